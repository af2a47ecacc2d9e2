#include "platform/engine/enginerefusals.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

namespace engineerrors {
void RaiseDataChanged()
{
    throw RunTimeError{DataChanged, u"Data has changed; operation stopped. Another user has saved this record."_s};
}

void RaiseNoUpdatePending()
{
    throw RunTimeError{NoUpdatePending, u"Update or CancelUpdate without AddNew or Edit."_s};
}

void RaiseRecordLocked(const QString& holder)
{
    throw RunTimeError{RecordLocked, u"Could not update; currently locked by %1."_s.arg(holder)};
}

void RaiseInUse(const QString& name, const QString& holder)
{
    throw RunTimeError{InUse, u"Could not use '%1'; file already in use by %2."_s.arg(name, holder)};
}

void RaiseSaveUnderWay(const QString& name)
{
    throw RunTimeError{CouldNotSave, u"Could not save to '%1'; a save is under way."_s.arg(name)};
}

void RaiseNewer(const QString& name)
{
    throw RunTimeError{NotADatabase,
                       u"'%1' was written by a newer Orrelin. Please update this one to open it."_s.arg(name)};
}

RunTimeError DamagedError(const QString& name)
{
    return {NotADatabase, u"The planner '%1' is damaged. Repair may be able to mend it."_s.arg(name)};
}

void RaiseNoTable(const QString& table)
{
    throw RunTimeError{NoTable, u"The planner has no table named '%1'."_s.arg(table)};
}

void RaiseTableExists(const QString& table)
{
    throw RunTimeError{TableExists, u"Table '%1' already exists."_s.arg(table)};
}

void RaiseFileExists(const QString& path)
{
    throw RunTimeError{FileExists, u"'%1' exists already."_s.arg(QFileInfo(path).fileName())};
}

void RaiseClosed()
{
    throw RunTimeError{Closed, u"Object is closed."_s};
}
} // namespace engineerrors
