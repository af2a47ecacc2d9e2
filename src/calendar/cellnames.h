// What a screen reader says of the cells: their dates in words and their state. Kept up to date only while a screen
// reader listens, so turning a month costs nothing otherwise.
#pragma once

#include <QAccessible>
#include <QObject>

class Cells;

class CellNames : public QObject, private QAccessible::ActivationObserver
{
    Q_OBJECT

public:
    explicit CellNames(Cells& cells);
    ~CellNames() override;

private:
    void accessibilityActiveChanged(bool active) override;
    void NameAll();
    void Name(int cell);

    Cells& m_cells;
    bool m_active = false;
};
