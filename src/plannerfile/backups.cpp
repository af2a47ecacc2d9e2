#include "plannerfile/backups.h"

#include "platform/desktop/clock.h"
#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/waiting.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStorageInfo>

namespace {
constexpr qsizetype CopiesKept = 10;
constexpr qint64 RoomToLeave = 50 * 1024 * 1024; // for the save and for other programs

// Two folders may hold planners of the same name.
QDir FolderOf(const QFileInfo& planner)
{
    constexpr qsizetype Digits = 6;
    const QByteArray sum = QCryptographicHash::hash(planner.filePath().toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString name = planner.completeBaseName() + u'-' + QString::fromLatin1(sum.first(Digits));
    return {BackupFolder() + u'/' + name};
}

void RefuseWithoutRoom(const QFileInfo& planner)
{
    const qint64 free = QStorageInfo(BackupFolder()).bytesAvailable();
    if (free >= 0 && free < 2 * planner.size() + RoomToLeave)
        throw RunTimeError{engineerrors::DiskFull, u"There is too little room left for a backup."_s};
}

QString NameOf(const QFileInfo& planner, const QDate& day)
{
    return planner.completeBaseName() + u' ' + day.toString(Qt::ISODate) + u".mdb"_s;
}

// A copy with a future date was made while the clock was wrong. Its age is unknown, so it counts as oldest.
void RemoveOldest(const QString& planner, const QDate& today)
{
    auto copies = BackupsOf(planner);
    while (copies.size() > CopiesKept)
        QFile::remove(copies.take(copies.lastKey() > today ? copies.lastKey() : copies.firstKey()));
}

void Copy(const QFileInfo& planner, const QString& copy)
{
    QDir().mkpath(FolderOf(planner).path());
    RefuseWithoutRoom(planner);
    g_dbPlanner.BackUp(copy);
}

void BackUp(const QFileInfo& planner, const QDate& day)
{
    const QDir folder = FolderOf(planner);
    const QString copy = folder.filePath(NameOf(planner, day));
    if (QFileInfo::exists(copy)) return;
    Copy(planner, copy);
    RemoveOldest(planner.filePath(), day);
}
} // namespace

QString BackupFolder()
{
    return folders::ApplicationDirectory() + u"/backups"_s;
}

QString PlaceOfBackups()
{
    return u"Copies of your planners, one for each of the last days on which they were changed, are in %1"_s.arg(
        BackupFolder());
}

QMap<QDate, QString> BackupsOf(const QString& planner)
{
    const QFileInfo file(planner);
    const QDir folder = FolderOf(file);
    QMap<QDate, QString> copies;
    for (const QString& name : folder.entryList({u"*.mdb"_s}, QDir::Files)) {
        const QDate day = QDate::fromString(name.chopped(4).right(10), Qt::ISODate);
        if (day.isValid() && name == NameOf(file, day)) copies[day] = folder.filePath(name);
    }
    return copies;
}

QString BackUpBeforeSave()
{
    constexpr int Pause = 600; // seconds
    waiting::Before();
    if (!HasPlanner() || !g_dbPlanner.ServerAddress().isEmpty()) return {};
    const QDateTime now = desktopclock::Now();
    const bool isAnother = g_lastLook.planner != g_sNotesFile || g_lastLook.day != now.date();
    const bool isDue = g_lastLook.nextTry.isValid() && now >= g_lastLook.nextTry;
    if (!isAnother && !isDue) return g_lastLook.trouble;
    g_lastLook = {g_sNotesFile, now.date(), {}, {}};
    try {
        BackUp(QFileInfo(g_sNotesFile), now.date());
        return {};
    } catch (const RunTimeError& error) {
        LogError(error, " in Backups, BackUpBeforeSave"_L1);
        g_lastLook.nextTry = now.addSecs(Pause);
        return g_lastLook.trouble = error.Description;
    }
}

QString BackupBeforeImportOf(const QString& planner)
{
    const QFileInfo info(planner);
    return FolderOf(info).filePath(info.completeBaseName() + u" before import.mdb"_s);
}

QString BackUpBeforeImport()
{
    waiting::Before();
    if (!g_dbPlanner.ServerAddress().isEmpty()) return {};
    const QFileInfo planner(g_sNotesFile);
    try {
        Copy(planner, BackupBeforeImportOf(g_sNotesFile));
        return {};
    } catch (const RunTimeError& error) {
        LogError(error, " in Backups, BackUpBeforeImport"_L1);
        return error.Description;
    }
}
