// The command that exports the open planner.
#pragma once

#include "exchange/extraction.h"

#include <functional>

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
    void ExportDays(const QStringList& keys, const QString& name); // name tells which: "The 12 days"

private:
    DaySpan ShownDays() const;
    QString NameOfShown() const;
    void Export(const ExportFormat& format, const std::function<Extract()>& extract);

    Cells& m_cells;
    Foot& m_foot;
    const ViewMode& m_viewMode;
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
};
