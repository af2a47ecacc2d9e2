#include "tools/datesearchform.h"

#include "calendar/calendarstate.h"
#include "calendar/modshow.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/runtime/errortail.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

namespace {
constexpr int FirstYear = 1990, LastYear = 2009;

QRadioButton* AddOption(QButtonGroup& group, const char* name, int index, const QString& caption)
{
    auto* option = new QRadioButton(caption);
    option->setObjectName(u"%1(%2)"_s.arg(QLatin1StringView(name)).arg(index));
    group.addButton(option, index);
    return option;
}

std::optional<std::int16_t> Chosen(const QButtonGroup& group)
{
    const int id = group.checkedId();
    return id < 0 ? std::nullopt : std::optional(static_cast<std::int16_t>(id));
}

void Choose(const QButtonGroup& group, int index)
{
    QAbstractButton* option = group.button(index);
    if (!option) throw RunTimeError{errors::NoSuchElement, u"There is no button for %1"_s.arg(index)};
    option->setChecked(true);
}
} // namespace

DateSearchForm::DateSearchForm(QWidget* owner)
    : QDialog(owner), m_opMonth(new QButtonGroup(this)), m_opYear(new QButtonGroup(this))
{
    setObjectName(u"DateSearchForm"_s);
    setWindowTitle(u"Fast Search"_s);
    auto* column = DialogColumn(*this);
    auto* row = new QHBoxLayout;
    row->addWidget(MakeMonths());
    row->addWidget(MakeYears());
    column->addLayout(row);
    column->addWidget(MakeOkCancel(*this));
    ChooseShown();
    CenterOnScreen(*this);
    if (QAbstractButton* month = m_opMonth->checkedButton()) month->setFocus();
}

QGroupBox* DateSearchForm::MakeMonths()
{
    constexpr int Rows = 6;
    auto* frame = new QGroupBox(u"Month"_s);
    auto* grid = new QGridLayout(frame);
    for (int month = 1; month <= 12; ++month) {
        QRadioButton* option = AddOption(*m_opMonth, "opMonth", month, MonthWord(month));
        grid->addWidget(option, (month - 1) % Rows, (month - 1) / Rows);
    }
    return frame;
}

QGroupBox* DateSearchForm::MakeYears()
{
    constexpr int Rows = 5;
    auto* frame = new QGroupBox(u"Year"_s);
    auto* grid = new QGridLayout(frame);
    for (int year = FirstYear; year <= LastYear; ++year) {
        QRadioButton* option = AddOption(*m_opYear, "opYear", year, QString::number(year));
        grid->addWidget(option, (year - FirstYear) % Rows, (year - FirstYear) / Rows);
    }
    return frame;
}

void DateSearchForm::ChooseShown()
{
    const ErrorTail tail(" in DateSearchForm, Form_Load"_L1);
    tail([&] { Choose(*m_opMonth, g_iMonth); });
    tail([&] { Choose(*m_opYear, g_iYear); });
}

std::optional<std::int16_t> DateSearchForm::Month() const
{
    return Chosen(*m_opMonth);
}

std::optional<std::int16_t> DateSearchForm::Year() const
{
    return Chosen(*m_opYear);
}
