// The former texts of a day: in the backups, in the server's history, in `unsaved`, in journals that wait.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

#include <vector>

struct DayVersion
{
    QDateTime when; // of a backup: its day, and the time if the file has kept it
    QString from;   // in words for the person
    QByteArray rtf;
};

struct DayVersions
{
    std::vector<DayVersion> found; // the newest first
    QStringList remarks;           // for the person: which sources could not be read, where others are kept
};

// The texts of the open planner's day that a person would tell from the present one, and each from the next newer one.
// Blank ones are left out. Nothing is changed, but a damaged journal is put aside. Raises nothing.
DayVersions VersionsOf(const QString& key, const QByteArray& present);
