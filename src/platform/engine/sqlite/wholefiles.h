// Steps on whole files around a planner, ordered by their callers so that a crash between any two leaves nothing torn.
// All of them raise FileNotFound, ReadOnlyFile (no permission), DiskFull, FileExists or InputOutput.
#pragma once

#include "platform/runtime/descriptor.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

namespace wholefiles {
struct stat StatusOf(const QString& path);     // FileNotFound
struct stat StatusOfFile(const QString& path); // NotADatabase too if it is no file, or empty
QString RealPath(const QString& path);

// The names of the files that stand beside a planner, NAME.mdb: its journal; NAME.ldb, the file of locks;
// NAME.WORD.mdb and NAME.bak for copies, else NAME.WORD2.mdb, NAME.bak2 and so on: a name that no planner has, and
// nothing beside one.
QString JournalOf(const QString& planner);
QString LockFileOf(const QString& planner);
QString FreeNameBeside(const QString& planner, QLatin1StringView word);
QString FreeBackupOf(const QString& planner);

bool Exists(const QString& path);        // a link that leads nowhere exists too
bool HasHotJournal(const QString& path); // one that the library would play back

QByteArray Content(const QString& path);
QByteArray Head(const QString& path, qsizetype size);  // at most so many bytes; none if it cannot be read
void CopyInto(const QString& from, const QString& to); // an existing file; synced
void CopyToFree(const QString& from, const QString& to,
                const struct stat& model);                 // FileExists; a new file like the model
void Fill(const QString& path, const QByteArray& content); // an existing file; synced
void Sync(const QString& path);
void SyncFolderOf(const QString& path);
void Rename(const QString& from, const QString& to);
void RenameToFree(const QString& from, const QString& to); // FileExists
bool Unlink(const QString& path);

// Puts a planner that is complete and synced in the place of another one, which nobody has open and whose journal is of
// no use any more.
void PutInPlace(const QString& fresh, const QString& planner);
} // namespace wholefiles

// A file that is gone with all that the library puts beside it when this ends, unless it was renamed meanwhile.
class ScratchFile
{
public:
    // Empty, with the model's mode and, as far as they are ours to give, its owner and group. What a crashed run left
    // under this name is replaced.
    ScratchFile(const QString& path, const struct stat& model);
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const QString& Path() const { return m_path; }
    static void Remove(const QString& path); // with what lies beside it

private:
    QString m_path;
};

// Keeps the library's users of a file out, those that know nothing of the file of locks included.
class LibraryLock
{
public:
    explicit LibraryLock(const QString& path); // InUse, ReadOnlyFile

private:
    Descriptor m_file;
};
