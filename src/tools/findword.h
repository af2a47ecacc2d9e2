// The command that opens the search for a word.
#pragma once

#include <QPointer>

class Cells;
class FindWordForm;
class Redraw;
class Turn;
class ViewMode;

class FindWord
{
public:
    FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode); // sets how stored notes are read
    ~FindWord();

    void mnuFindWord_Click(); // one window at most; a second time brings it to the front
    void Unload();            // closes the window, if there is one

private:
    Cells& m_cells;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QPointer<FindWordForm> m_form;
};
