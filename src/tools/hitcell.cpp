#include "tools/hitcell.h"

#include "calendar/navigation.h"
#include "calendar/redraw.h"
#include "hall/cells.h"
#include "notes/turn.h"
#include "state/calendarstate.h"
#include "state/viewmode.h"
#include "tools/wordsearch.h"

namespace {
constexpr QLatin1StringView GotoLiteral(" in FindWordForm, subGotoRecCalendar");
}

bool HitCell::ShowDay(const GridDay& day)
{
    const int mode = m_viewMode.GetViewMode();
    if (mode != ViewMode::Month && mode != ViewMode::Week) {
        g_iDay = static_cast<std::int16_t>(day.day);
        return true;
    }
    const bool turned = m_turn(GotoLiteral, [&] {
        g_iYear = static_cast<std::int16_t>(day.year);
        g_iMonth = static_cast<std::int16_t>(day.month);
        g_iDay = static_cast<std::int16_t>(day.day);
        if (mode == ViewMode::Month) m_redraw.subDisplayMonth();
        if (mode == ViewMode::Week) m_redraw.subDisplayWeek();
    });
    if (!turned) return false;
    if (const int cell = m_cells.CellOfDay(CellsOf(mode), day.day)) {
        m_iCell = cell;
        FocusCell();
    }
    return true;
}

void HitCell::Show(const NoteHit& note, const WordQuery& query)
{
    const bool isMemo = note.place.memo != 0;
    if (isMemo && m_viewMode.GetViewMode() == ViewMode::Week) m_navigation.subSwitchToMonthView();
    GridDay day = note.place.day;
    if (isMemo) day.day = 1;
    if (!ShowDay(day)) return;
    ClearSelections();
    for (const int cell : CellsOf(m_viewMode.GetViewMode())) {
        if (!m_cells.tbDay.Exists(cell) || m_cells.KeyOf(cell) != note.key) continue;
        m_iCell = cell;
        if (isMemo) FocusCell();
        RichTextBox& box = m_cells.tbDay(cell);
        // The note may have changed since the search. Then it is shown all the same.
        const auto word = query.FirstIn(box.document()->toPlainText());
        if (!word) return;
        box.SetSelStart(static_cast<int>(word->at));
        box.SetSelLength(static_cast<int>(word->length));
        box.ensureCursorVisible();
    }
}

// The calendar's window does not become active: a person who presses Enter again wants to search on, and Enter would
// replace the selected note. An inactive window gets no focus event, so the cell is told here.
void HitCell::FocusCell()
{
    m_cells.tbDay(m_iCell).setFocus();
    if (g_iCurrentPanel != m_iCell) m_cells.EnterAgain();
}

// An earlier hit in the same month would look like the new one.
void HitCell::ClearSelections()
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.tbDay.Exists(cell) && m_cells.tbDay(cell).SelLength() > 0) m_cells.tbDay(cell).SetSelLength(0);
}

// Selects the whole note, since a position in the stored text does not match the shown one.
void HitCell::SelectNote()
{
    RichTextBox& box = m_cells.tbDay(m_iCell);
    box.SetSelStart(0);
    box.SetSelLength(box.document()->characterCount() - 1);
}

// The calendar may have turned meanwhile, so the cell may show another day.
bool HitCell::Shows(const GridDay& day) const
{
    return m_cells.Shows(m_iCell) && g_iYear == day.year && g_iMonth == day.month &&
           m_cells.CellOfDay(CellsOf(m_viewMode.GetViewMode()), day.day) == m_iCell;
}
