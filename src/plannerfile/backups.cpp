#include "plannerfile/backups.h"

#include "plannerfile/plannerstate.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"

#include <QCryptographicHash>
#include <QDir>
#include <QStorageInfo>

#include <utility>

namespace {
constexpr QLatin1StringView BackupTail(" in Backups, BackUpBeforeSave");
constexpr qsizetype CopiesKept = 10;
constexpr qint64 RoomToLeave = 50 * 1024 * 1024; // for the save and whatever else there is

// Planners of one name in two folders are two planners.
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
        throw RunTimeError{engineerrors::DiskFull, QStringLiteral("There is too little room left for a backup.")};
}

void RemoveOldest(const QDir& folder)
{
    const QStringList copies = folder.entryList({QStringLiteral("*.mdb")}, QDir::Files, QDir::Name); // by their day
    for (qsizetype i = 0; i < copies.size() - CopiesKept; ++i)
        QFile::remove(folder.filePath(copies[i]));
}

void BackUp(const QFileInfo& planner, const QString& day)
{
    const QDir folder = FolderOf(planner);
    const QString copy = folder.filePath(planner.completeBaseName() + u' ' + day + QStringLiteral(".mdb"));
    if (QFileInfo::exists(copy)) return;
    QDir().mkpath(folder.path());
    RefuseWithoutRoom(planner);
    g_dbPlanner.BackUp(copy);
    RemoveOldest(folder);
}
} // namespace

QString BackupFolder()
{
    return folders::ApplicationDirectory() + QStringLiteral("/backups");
}

void BackUpBeforeSave()
{
    static std::pair<QString, QString>
        s_last; // the planner and the day of the last look, so that most saves look no more
    if (!HasPlanner() || !g_dbPlanner.ServerAddress().isEmpty()) return;
    const QString day = desktopclock::Now().date().toString(Qt::ISODate);
    if (std::exchange(s_last, {g_sNotesFile, day}) == std::pair(g_sNotesFile, day)) return;
    ErrorTail{BackupTail}([&] { BackUp(QFileInfo(g_sNotesFile), day); });
}
