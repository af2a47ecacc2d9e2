// Turns the calendar to the day of a hit, and selects in its cell. Find Word and its list share it.
#pragma once

#include "state/moddate.h"

class Cells;
class Navigation;
class Redraw;
class Turn;
class ViewMode;
class WordQuery;
struct NoteHit;

class HitCell
{
public:
    HitCell(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode, Navigation& navigation)
        : m_cells(cells), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode), m_navigation(navigation)
    {
    }

    bool ShowDay(const GridDay& day); // and enters its cell; false if a locked day could not be stored
    // Shows a day or memo of the list, a memo in the month's view, and selects the first of the words.
    void Show(const NoteHit& note, const WordQuery& query);
    bool Shows(const GridDay& day) const; // still, in the cell that it was shown in
    void FocusCell();
    void ClearSelections();
    void SelectNote();

private:
    Cells& m_cells;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    Navigation& m_navigation;
    int m_iCell = 0; // the cell of the hit
};
