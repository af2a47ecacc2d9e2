// The thin frame around the cell with the caret. Follows the focus of the whole program by one connection.
#pragma once

#include <QObject>
#include <QPointer>

class Cells;
class SSPanel;

class CellFrames : public QObject
{
    Q_OBJECT

public:
    explicit CellFrames(Cells& cells);

private:
    void FollowFocus(QWidget* now);
    void Frame(SSPanel* panel);

    Cells& m_cells;
    QPointer<SSPanel> m_framed;
};
