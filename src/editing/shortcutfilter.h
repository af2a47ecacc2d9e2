// Keeps shortcuts with the menu while a cell has the caret, since a text box would take some of them. The key of a
// disabled entry does nothing.
#pragma once

#include <QObject>

class Cells;
class Menus;

class ShortcutFilter : public QObject
{
    Q_OBJECT

public:
    ShortcutFilter(Cells& cells, const Menus& menus); // filters the boxes loaded from now on

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Menus& m_menus;
};
