// Writes what an import brings into the open planner.
#pragma once

#include "exchange/importedfile.h"
#include "platform/engine/database.h"

struct MergeReport
{
    int added = 0, changed = 0, present = 0; // entries
    int over = 0;                            // entries of which only alarms are left that would never ring
    QStringList refusedDays;                 // the keys of days that another user holds or has just changed
};

// Adds each entry's text below the notes of its days, its alarms that are still to come, with this tune, and for a
// rule the record of a recurring event. What stands there already is not added again. Texts that a former import of the
// same entry has written, and that are unchanged, are taken out if the entry does not have them any more. All in one
// transaction, but for the days that are refused; the next import tries those again. Raises the engine's errors;
// Cancelled: then nothing is written.
MergeReport MergeInto(const Database& planner, const std::vector<ImportedEntry>& entries, const QDateTime& now,
                      const QString& tune);
