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
#include <QGroupBox>
#include <QRadioButton>

namespace {
constexpr int FirstYear = 1990, LastYear = 2009;

// Radio buttons for months or years, column by column.
class Options : public QGroupBox
{
public:
    Options(const QString& title, const char* name, int first, int last, int rows, QString (*caption)(int number))
        : QGroupBox(title), m_group(new QButtonGroup(this))
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

    void ReadInto(std::int16_t& number) const // unchanged if none is checked
    {
        if (m_group->checkedId() >= 0) number = static_cast<std::int16_t>(m_group->checkedId());
    }

private:
    QButtonGroup* m_group;
};

class DateSearchForm : public QDialog
{
public:
    explicit DateSearchForm(QWidget* owner)
        : QDialog(owner), m_months(new Options(u"Month"_s, "opMonth", 1, 12, 6, MonthWord)),
          m_years(
              new Options(u"Year"_s, "opYear", FirstYear, LastYear, 5, [](int year) { return QString::number(year); }))
    {
        setObjectName(u"DateSearchForm"_s);
        setWindowTitle(u"Fast Search"_s);
        auto* column = DialogColumn(*this);
        column->addLayout(DialogRow(-1, {m_months, m_years}));
        column->addWidget(MakeOkCancel(*this));
        const ErrorTail tail(" in DateSearchForm, Form_Load"_L1);
        tail([this] { m_years->Choose(g_iYear); });
        tail([this] { m_months->Choose(g_iMonth); }); // last, since it takes the focus
        CenterOnScreen(*this);
    }

    void ReadChoice() const
    {
        m_months->ReadInto(g_iMonth);
        m_years->ReadInto(g_iYear);
    }

private:
    Options* m_months;
    Options* m_years;
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
        m_redraw.subDisplayMonth();
        m_foot.ShowMonth();
    });
}
