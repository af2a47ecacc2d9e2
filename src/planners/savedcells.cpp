#include "planners/savedcells.h"

#include "notes/qmtdb.h"
#include "settings/messages.h"
#include "state/lockedday.h"

bool SaveCellsBefore(const char* verb, QMTDB& notes, LockedDay& lockedDay)
{
    if (!lockedDay.Commit()) return false;
    notes.subUpdateQMTDatabase();
    notes.ReadCells(" in MainForm, SaveCellsBefore"_L1); // a save has released them, so no typing would be saved
    if (!notes.HasChanges()) return true;
    messages::Tell(
        u"Some notes could not be saved yet. Please save them before you %1."_s.arg(QString::fromLatin1(verb)),
        msgbox::Exclamation);
    return false;
}
