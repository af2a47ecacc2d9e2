// The command that exports the open planner.
#pragma once

#include "exchange/extraction.h"

class Cells;
class Foot;
class LockedDay;
class QMTDB;
class ViewMode;
struct ExportFormat;

class Exporting
{
public:
    Exporting(Cells& cells, Foot& foot, const ViewMode& viewMode, QMTDB& notes, LockedDay& lockedDay)
        : m_cells(cells), m_foot(foot), m_viewMode(viewMode), m_notes(notes), m_lockedDay(lockedDay)
    {
    }

    void mnuExport_Click();

private:
    DaySpan ShownDays() const;
    QString NameOfShown() const;
    void Export(const std::optional<DaySpan>& span, const ExportFormat& format);

    Cells& m_cells;
    Foot& m_foot;
    const ViewMode& m_viewMode;
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
};
