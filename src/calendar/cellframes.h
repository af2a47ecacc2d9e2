// The cell with the caret: it wears a thin frame, and once it is left it shows its note from the beginning again.
// Follows the focus of the whole program.
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

    Cells& m_cells;
    const FormatBar& m_bar;
    const Sidebar& m_sidebar;
    int m_framed = 0;
    int m_visited = 0; // not left yet
};
