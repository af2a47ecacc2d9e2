// The menu tree of the main window, built from one table: names, captions, shortcuts. No behaviour.
#pragma once

#include "hall/menuitem.h"

#include <QKeySequence>

#include <map>

class QMenu;
class QMenuBar;

class Menus
{
public:
    explicit Menus(QMenuBar& bar);

    MenuItem& operator()(QLatin1StringView name);          // 340 for a name that is not in the table
    MenuItem& mnuMRU(int index);                           // 0 to 3
    QMenu& mnuRightMouse() const { return *m_rightMouse; } // not in the bar; a popup

    // The entry that a key belongs to, or null: cells leave these keys to the menu, even while the entry is disabled.
    const MenuItem* OfShortcut(const QKeySequence& key) const;

private:
    std::map<QString, MenuItem> m_items;
    QMenu* m_rightMouse = nullptr;
};
