// Keeps the menu's shortcuts with the menu while the caret stands in a cell: a text box would take some of them for
// its own. The key of a disabled entry does nothing at all.
#pragma once

#include <QObject>

class Cells;
class Menus;

class ShortcutFilter : public QObject
{
    Q_OBJECT

public:
    ShortcutFilter(Cells& cells, const Menus& menus); // for the boxes that are loaded from now on

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Menus& m_menus;
};
