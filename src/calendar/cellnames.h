// What a screen reader says of the cells: their dates in words, and what else the eye sees of them. Kept up to date
// only while somebody listens, so that turning a month costs nothing more.
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
