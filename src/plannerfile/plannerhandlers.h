// The main window's commands on planner files, under their own names.
#pragma once

#include <QString>

class Creation;
class Opening;
class QMTDB;
class Redraw;
class MenuItem;
class ViewMode;

class PlannerHandlers
{
public:
    PlannerHandlers(Creation& creation, Opening& opening, QMTDB& notes, Redraw& redraw, const ViewMode& viewMode)
        : m_creation(creation), m_opening(opening), m_notes(notes), m_redraw(redraw), m_viewMode(viewMode)
    {
    }

    void mnuNew_Click();
    void mnuOpen_Click();
    void mnuSave_Click();
    void mnuMRU_Click(const MenuItem& entry);

    // As from the recent list. The path is that of a file, letter for letter, whether it is there or not.
    void OpenFile(const QString& path);

private:
    void OpenListed(const QString& path);

    Creation& m_creation;
    Opening& m_opening;
    QMTDB& m_notes;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
};
