#include "platform/engine/sqlite/sqliteerrors.h"

#include "platform/engine/enginerefusals.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>

namespace {
using namespace engineerrors;

struct Meaning
{
    int code;
    int number;
    const char16_t* text;
};

// The first match counts, so extended codes precede their primary codes.
constexpr std::array Meanings = {
    Meaning{SQLITE_READONLY_DBMOVED, InputOutput, u"The planner '%1' has been moved or deleted while it was open."},
    Meaning{SQLITE_CONSTRAINT, DuplicateKey,
            u"The changes were not saved to '%1': there is a record with the same key already."},
    Meaning{SQLITE_FULL, DiskFull, u"Could not save to '%1': the disk is full."},
    Meaning{SQLITE_IOERR, InputOutput, u"The disk or network drive of '%1' reports an error."},
    Meaning{SQLITE_CANTOPEN, ReadOnlyFile, u"Could not open '%1' and its journal for writing."},
    Meaning{SQLITE_READONLY, ReadOnlyFile, u"Could not write '%1': the file or its folder is read-only."},
    Meaning{SQLITE_PERM, ReadOnlyFile, u"Could not write '%1': you have no permission."},
    Meaning{SQLITE_NOTADB, NotADatabase, u"'%1' is not a planner."},
    Meaning{SQLITE_INTERRUPT, Cancelled, u"The work on '%1' was cancelled."},
    Meaning{SQLITE_TOOBIG, FieldTooSmall, u"The text is too long to be saved to '%1'."},
};

RunTimeError BusyError(Doing doing, const QString& file)
{
    if (doing == Doing::Writing)
        return {CouldNotSave, u"Could not save to '%1'; another user is saving to it just now."_s.arg(file)};
    return {Busy, u"Could not read '%1'; another user is saving to it just now."_s.arg(file)};
}
} // namespace

bool IsBusy(const SQLite::Exception& error)
{
    const int code = error.getErrorCode() & 0xff;
    return code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

bool IsDamage(const SQLite::Exception& error)
{
    const int code = error.getErrorCode() & 0xff;
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
}

RunTimeError RunTimeErrorOf(const SQLite::Exception& error, Doing doing, const QString& file)
{
    if (IsBusy(error)) return BusyError(doing, file);
    if ((error.getErrorCode() & 0xff) == SQLITE_CORRUPT) return ErrorOf(DamagedPlanner, file);
    const auto fits = [&](const Meaning& meaning) {
        return meaning.code == error.getExtendedErrorCode() || meaning.code == (error.getErrorCode() & 0xff);
    };
    const auto found = std::ranges::find_if(Meanings, fits);
    if (found != Meanings.end()) return {found->number, QString::fromUtf16(found->text).arg(file)};
    return {InputOutput, u"'%1': %2."_s.arg(file, QString::fromUtf8(error.what()))};
}
