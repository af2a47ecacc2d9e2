#include "tools/datesearch.h"

#include "calendar/redraw.h"
#include "hall/foot.h"
#include "notes/turn.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "state/calendarstate.h"
#include "state/modshow.h"
#include "state/viewmode.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>

namespace {
constexpr int FirstButton = 1990, LastButton = 2009, OtherYear = 0;

// Radio buttons for months or years, column by column.
class Options : public DialogPart
{
public:
    Options(const QString& title, const char* name, int first, int last, int rows, QString (*caption)(int number))
        : DialogPart(title), m_group(new QButtonGroup(this))
    {
        auto* grid = new QGridLayout(this);
        for (int number = first; number <= last; ++number) {
            auto* option = Named(new QRadioButton(caption(number)), name, number);
            m_group->addButton(option, number);
            grid->addWidget(option, (number - first) % rows, (number - first) / rows);
        }
    }

    void Choose(int number)
    {
        QAbstractButton* option = m_group->button(number);
        if (!option) throw RunTimeError{errors::NoSuchElement, u"There is no button for %1"_s.arg(number)};
        option->setChecked(true);
        option->setFocus();
    }

    int Chosen() const { return m_group->checkedId(); } // -1 for none

protected:
    QButtonGroup* m_group;
};

// Takes up to four digits. The Up and Down keys step through the years.
class YearBox : public QLineEdit
{
public:
    YearBox()
    {
        setObjectName(u"tbOtherYear"_s);
        setAccessibleName(u"Other year"_s);
        setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,4}"_s), this));
        setFixedWidth(fontMetrics().horizontalAdvance(u"00000000"_s));
    }

    int Year() const { return text().toInt(); } // 0 if it is empty

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const int step = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
        if (step == 0) return QLineEdit::keyPressEvent(event);
        setText(QString::number(qBound(1, Year() + step, 9999)));
        setModified(true);
        Q_EMIT textEdited(text());
    }
};

// The listed years, and a box for all others.
class YearOptions : public Options
{
public:
    YearOptions()
        : Options(u"Year"_s, "opYear", FirstButton, LastButton, 5, [](int year) { return QString::number(year); })
    {
        m_other = Named(new QRadioButton(u"Other &year"_s), "opOtherYear");
        m_group->addButton(m_other, OtherYear);
        m_other->setFocusProxy(m_box); // who chooses it types the year
        connect(m_other, &QRadioButton::clicked, m_box, &QLineEdit::selectAll);
        auto* grid = static_cast<QGridLayout*>(layout());
        grid->addLayout(DialogRow(Rhythm, {m_other, m_box, nullptr}), grid->rowCount(), 0, 1, grid->columnCount());
        connect(m_box, &QLineEdit::textEdited, m_other, [this] { m_other->setChecked(true); });
    }

    void ShowOther(int year)
    {
        m_box->setText(QString::number(year));
        if (Chosen() < 0) m_other->setChecked(true);
    }

    // The shown year stays while nobody has changed it: the arrows of the calendar lead beyond four digits.
    int Year() const
    {
        if (Chosen() != OtherYear) return Chosen();
        return m_box->isModified() ? m_box->Year() : g_iYear;
    }

    bool Refuses() // after a message
    {
        if (Chosen() != OtherYear || !m_box->isModified() || m_box->Year() > 0) return false;
        msgbox::Tell(u"Please type a year from 1 to 9999"_s);
        m_box->setFocus();
        m_box->selectAll();
        return true;
    }

private:
    QRadioButton* m_other;
    YearBox* m_box = new YearBox;
};

class DateSearchForm : public QDialog
{
public:
    explicit DateSearchForm(QWidget* owner)
        : QDialog(owner), m_months(new Options(u"Month"_s, "opMonth", 1, 12, 6, MonthWord)), m_years(new YearOptions)
    {
        setObjectName(u"DateSearchForm"_s);
        setWindowTitle(u"Fast Search"_s);
        auto* column = DialogColumn(*this);
        column->addLayout(DialogRow(4 * Rhythm, {m_months, m_years}));
        column->addWidget(MakeOkCancel(*this));
        const ErrorTail tail(" in DateSearchForm, Form_Load"_L1);
        tail([this] { m_years->Choose(g_iYear); });
        m_years->ShowOther(g_iYear);
        tail([this] { m_months->Choose(g_iMonth); }); // last, since it takes the focus
        CenterOnScreen(*this);
    }

    void accept() override
    {
        if (!m_years->Refuses()) QDialog::accept();
    }

    void ReadChoice() const
    {
        g_iMonth = static_cast<std::int16_t>(m_months->Chosen());
        g_iYear = static_cast<std::int16_t>(m_years->Year());
    }

private:
    Options* m_months;
    YearOptions* m_years;
};
} // namespace

void DateSearch::PanelBottom_DblClick()
{
    if (m_viewMode.GetViewMode() == ViewMode::Month) return mnuDateSearch_Click();
    MsgBox(u"Please switch to Monthly View first."_s, msgbox::Information, u"Currently not Monthly View"_s);
}

void DateSearch::mnuDateSearch_Click()
{
    DateSearchForm form(m_client.window());
    if (form.exec() != QDialog::Accepted) return;
    m_turn(" in DateSearchForm, btnOk_Click"_L1, [&] {
        form.ReadChoice();
        m_viewMode.GetViewMode() == ViewMode::Week ? ShowFirstWeek() : m_redraw.subDisplayMonth();
        m_foot.ShowMonth();
    });
}

// The week view draws with the month lengths of the last month drawn, which can be of another year.
void DateSearch::ShowFirstWeek()
{
    g_iDay = 1;
    subSetDaysInMonth(g_iYear);
    m_redraw.subDisplayWeek();
}
