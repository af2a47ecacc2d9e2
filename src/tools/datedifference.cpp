#include "tools/datedifference.h"

#include "calendar/calendarstate.h"
#include "calendar/modshow.h"
#include "hall/cells.h"
#include "hall/menus.h"
#include "plannerfile/refusals.h"
#include "platform/controls/toolbar.h"
#include "platform/look/colorvalue.h"
#include "platform/runtime/language.h"
#include "tools/datediffform.h"

#include <QApplication>
#include <QLabel>

namespace {
const QString ButtonKey = u"datediff"_s;

QString CaptionOf(DateUnit unit, int difference)
{
    static constexpr const char* words[] = {"Day ", "Week ", "Month "};
    return QLatin1StringView(words[static_cast<int>(unit)]) + TrimmedStr(difference);
}
} // namespace

bool DateDifference::IsOn() const
{
    return m_toolbar.Buttons(ButtonKey).Value() == 1;
}

void DateDifference::mnuDateDiffShow_Click()
{
    m_toolbar.Buttons(ButtonKey).SetValue(IsOn() ? 0 : 1);
    subApplyDateDiff();
}

void DateDifference::mnuDateDiffCustomize_Click()
{
    if (RefusesWithoutPlanner()) return;
    DateDiffForm(m_cells.Client()->window()).exec();
}

void DateDifference::subApplyDateDiff()
{
    m_menus("mnuDateDiffShow"_L1).SetChecked(IsOn());
    if (IsOn())
        PaintDateDiffLabel(m_lblDateDiff, ColorOf(Read(settings::DateDiffColor)));
    else
        m_lblDateDiff.hide();
}

void DateDifference::tbDay_MouseMove(int Index)
{
    if (!IsOn()) return;
    const QString caption = m_cells.panelDay(Index).Caption();
    if (IsMemoCaption(caption)) return;
    const auto start = DayOfText(StoredStartDate());
    if (!start) return m_lblDateDiff.hide();
    const DateUnit unit = StoredDateUnit();
    const GridDay day = {g_iYear, g_iMonth, IntegerOf(caption)};
    Show(Index, CaptionOf(unit, DateDifferenceOf(unit, *start, day)));
}

// Whoever walks by the keyboard has no mouse to point with. A hit of the word search is no walk: its window is active.
void DateDifference::tbDay_GotFocus(int Index)
{
    const bool isWalk = QApplication::activeWindow() == m_cells.Client()->window();
    if (isWalk && !MouseRestsOnCell()) tbDay_MouseMove(Index);
}

bool DateDifference::MouseRestsOnCell() const
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.Shows(cell) && (m_cells.panelDay(cell).underMouse() || m_cells.tbDay(cell).underMouse()))
            return true;
    return false;
}

void DateDifference::FollowCell()
{
    if (m_lblDateDiff.isHidden()) return;
    if (m_cells.Shows(m_cell) && !IsMemoCaption(m_cells.panelDay(m_cell).Caption())) return tbDay_MouseMove(m_cell);
    m_lblDateDiff.hide();
}

void DateDifference::Show(int cell, const QString& caption)
{
    m_cell = cell;
    m_lblDateDiff.raise(); // cells that are placed anew come to the front
    m_lblDateDiff.setText(caption);
    m_lblDateDiff.adjustSize();
    QRect place = m_lblDateDiff.geometry();
    place.moveBottomRight(m_cells.tbDay(cell).geometry().bottomRight());
    m_lblDateDiff.setGeometry(place);
    m_lblDateDiff.show();
}
