// Steps on whole files around a planner. Callers order them so that a crash between any two leaves no torn planner. All
// raise FileNotFound, ReadOnlyFile (no permission), DiskFull, FileExists or InputOutput.
#pragma once

#include "platform/runtime/descriptor.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

namespace wholefiles {
struct stat StatusOf(const QString& path);     // FileNotFound
struct stat StatusOfFile(const QString& path); // also NotADatabase if it is no regular file, or empty
QString RealPath(const QString& path);

// The names of the files beside a planner NAME.mdb: its journal; the lock file NAME.ldb; for copies NAME.WORD.mdb and
// NAME.bak, or else NAME.WORD2.mdb, NAME.bak2 and so on. A free name is one that neither a planner nor a file beside
// one has.
QString JournalOf(const QString& planner);
QString LockFileOf(const QString& planner);
QString FreeNameBeside(const QString& planner, QLatin1StringView word);
QString FreeBackupOf(const QString& planner);

bool Exists(const QString& path);        // also true for a dangling link
bool HasHotJournal(const QString& path); // one that the library would play back

QByteArray Content(const QString& path);
QByteArray Head(const QString& path, qsizetype size);  // at most so many bytes; empty if unreadable
void CopyInto(const QString& from, const QString& to); // an existing file; synced
void CopyToFree(const QString& from, const QString& to,
                const struct stat& model);                 // FileExists; the new file gets the model's mode and owner
void Fill(const QString& path, const QByteArray& content); // an existing file; synced
void Sync(const QString& path);
void SyncFolderOf(const QString& path);
void Rename(const QString& from, const QString& to);
void RenameToFree(const QString& from, const QString& to); // FileExists
bool Unlink(const QString& path);

// Replaces a planner by a complete and synced one. Nobody may have the old one open, and its journal is deleted.
void PutInPlace(const QString& fresh, const QString& planner);
} // namespace wholefiles

// Deletes its file at the end, with all files that the library puts beside it, unless the file was renamed.
class ScratchFile
{
public:
    // An empty file with the model's mode and, if permitted, its owner and group. Replaces a file left by a crash.
    ScratchFile(const QString& path, const struct stat& model);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const QString& Path() const { return m_path; }
    static void Remove(const QString& path); // and the files beside it

private:
    QString m_path;
};

// Locks out all users of the file through the library, even those that do not use the lock file.
class LibraryLock
{
public:
    explicit LibraryLock(const QString& path); // InUse, ReadOnlyFile

private:
    Descriptor m_file;
};
