// The command that imports a file into the open planner.
#pragma once

#include "exchange/importedfile.h"

class Foot;
class LockedDay;
class QMTDB;
struct MergeReport;

class Importing
{
public:
    Importing(Foot& foot, QMTDB& notes, LockedDay& lockedDay) : m_foot(foot), m_notes(notes), m_lockedDay(lockedDay) {}

    void mnuImport_Click();

private:
    void Import(const QString& path);
    void Write(const std::vector<ImportedEntry>& entries);
    void Tell(const MergeReport& report);

    Foot& m_foot;
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
};
