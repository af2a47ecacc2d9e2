// The frames of cells. The cell with the caret has a thin frame; once it is left it shows its note from the beginning.
// A day that this user has locked has a frame until it is unlocked, wherever the caret is.
#pragma once

#include <QObject>

class Cells;
struct FormatBar;
struct Sidebar;

class CellFrames : public QObject
{
    Q_OBJECT

public:
    CellFrames(Cells& cells, const FormatBar& bar, const Sidebar& sidebar);

private:
    void FollowFocus();
    bool IsTool(const QWidget* now) const;
    void Frame(int cell);
    void Leave(int forCell);
    void FollowLocks();

    Cells& m_cells;
    const FormatBar& m_bar;
    const Sidebar& m_sidebar;
    int m_framed = 0;
    int m_visited = 0; // the cell whose note still shows the caret's place
};
