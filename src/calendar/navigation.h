// Moving through time. Every move does the same in the same order: save what the cells hold, change the date, draw,
// read the notes.
#pragma once

#include <QLatin1StringView>

class Menus;
class QMTDB;
class Redraw;
class ViewMode;

class Navigation
{
public:
    Navigation(QMTDB& notes, Redraw& redraw, Menus& menus, const ViewMode& viewMode)
        : m_notes(notes), m_redraw(redraw), m_menus(menus), m_viewMode(viewMode)
    {
    }

    void subActionNext();
    void subActionPrevious();
    void subSetViewMenus(); // which of the Goto and View entries the present mode allows

private:
    void Move(QLatin1StringView literal, void (Redraw::*display)());

    QMTDB& m_notes;
    Redraw& m_redraw;
    Menus& m_menus;
    const ViewMode& m_viewMode;
};
