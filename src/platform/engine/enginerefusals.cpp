#include "platform/engine/enginerefusals.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>

namespace engineerrors {
void RaiseDataChanged()
{
    throw RunTimeError{DataChanged,
                       QStringLiteral("Data has changed; operation stopped. Another user has saved this record.")};
}

void RaiseNoUpdatePending()
{
    throw RunTimeError{NoUpdatePending, QStringLiteral("Update or CancelUpdate without AddNew or Edit.")};
}

void RaiseRecordLocked(const QString& holder)
{
    throw RunTimeError{RecordLocked, QStringLiteral("Could not update; currently locked by %1.").arg(holder)};
}

void RaiseInUse(const QString& name, const QString& holder)
{
    throw RunTimeError{InUse, QStringLiteral("Could not use '%1'; file already in use by %2.").arg(name, holder)};
}

void RaiseSaveUnderWay(const QString& name)
{
    throw RunTimeError{CouldNotSave, QStringLiteral("Could not save to '%1'; a save is under way.").arg(name)};
}

void RaiseNewer(const QString& name)
{
    throw RunTimeError{
        NotADatabase,
        QStringLiteral("'%1' was written by a newer Orrelin. Please update this one to open it.").arg(name)};
}

RunTimeError DamagedError(const QString& name)
{
    return {NotADatabase, QStringLiteral("The planner '%1' is damaged. Repair may be able to mend it.").arg(name)};
}

void RaiseNoTable(const QString& table)
{
    throw RunTimeError{NoTable, QStringLiteral("The planner has no table named '%1'.").arg(table)};
}

void RaiseTableExists(const QString& table)
{
    throw RunTimeError{TableExists, QStringLiteral("Table '%1' already exists.").arg(table)};
}

void RaiseFileExists(const QString& path)
{
    throw RunTimeError{FileExists, QStringLiteral("'%1' exists already.").arg(QFileInfo(path).fileName())};
}

void RaiseClosed()
{
    throw RunTimeError{Closed, QStringLiteral("Object is closed.")};
}
} // namespace engineerrors
