#include "platform/engine/sqlite/wholefiles.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/longwork.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {
using namespace engineerrors;

constexpr off_t LibraryLockByte = 0x40000000; // the first byte of the library's own locks
constexpr off_t LibraryLockSize = 512;

QString NameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

int NumberOf(int error)
{
    if (error == ENOENT || error == ENOTDIR) return FileNotFound;
    if (error == ENOSPC || error == EDQUOT) return DiskFull;
    if (error == EACCES || error == EPERM || error == EROFS) return ReadOnlyFile;
    if (error == EEXIST) return FileExists;
    return InputOutput;
}

[[noreturn]] void Raise(const QString& path, int error)
{
    throw RunTimeError{NumberOf(error), u"'%1': %2."_s.arg(NameOf(path), QString::fromLocal8Bit(std::strerror(error)))};
}

struct Parts
{
    QString stem, extension;
};

Parts PartsOf(const QString& planner)
{
    constexpr QLatin1StringView Extension(".mdb");
    if (!planner.endsWith(Extension, Qt::CaseInsensitive)) return {planner, {}};
    return {planner.chopped(Extension.size()), planner.last(Extension.size())};
}

QString FirstFree(const QString& stem, const QString& extension)
{
    using namespace wholefiles;
    const auto isTaken = [](const QString& name) {
        return Exists(name) || Exists(JournalOf(name)) || Exists(LockFileOf(name));
    };
    QString name = stem + extension;
    for (int number = 2; isTaken(name); ++number)
        name = stem + QString::number(number) + extension;
    return name;
}

// A descriptor that raises errors.
class File
{
public:
    File(const QString& path, int flags, mode_t mode = 0) : m_path(path), m_descriptor(path, flags, mode)
    {
        if (!m_descriptor.IsOpen()) Raise(path, errno);
    }

    operator int() const { return m_descriptor.Number(); }

    std::size_t Read(char* data, std::size_t size) const
    {
        const ssize_t got = ::read(*this, data, size);
        if (got < 0) Raise(m_path, errno);
        return static_cast<std::size_t>(got);
    }
    template <typename Take>
    void ReadAll(Take&& take) const
    {
        std::array<char, 1 << 16> buffer;
        while (const std::size_t size = Read(buffer.data(), buffer.size()))
            take(buffer.data(), size);
    }
    void Write(const char* data, std::size_t size) const
    {
        while (size > 0) {
            const ssize_t written = ::write(*this, data, size);
            if (written < 0) Raise(m_path, errno);
            data += written;
            size -= static_cast<std::size_t>(written);
        }
    }
    void Sync() const
    {
        if (!m_descriptor.Sync()) Raise(m_path, errno);
    }

private:
    QString m_path;
    Descriptor m_descriptor;
};
} // namespace

namespace wholefiles {
struct stat StatusOf(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        if (NumberOf(errno) != FileNotFound) Raise(path, errno);
        throw RunTimeError{FileNotFound, u"Could not find file '%1'."_s.arg(NameOf(path))};
    }
    return status;
}

struct stat StatusOfFile(const QString& path)
{
    const struct stat status = StatusOf(path);
    if (!S_ISREG(status.st_mode) || status.st_size == 0) throw ErrorOf(NoPlanner, NameOf(path));
    return status;
}

QString RealPath(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

QString JournalOf(const QString& planner)
{
    return planner + "-journal"_L1;
}

QString LockFileOf(const QString& planner)
{
    return PartsOf(planner).stem + ".ldb"_L1;
}

QString FreeNameBeside(const QString& planner, QLatin1StringView word)
{
    const auto [stem, extension] = PartsOf(planner);
    return FirstFree(stem + u'.' + word, extension);
}

QString FreeBackupOf(const QString& planner)
{
    return FirstFree(PartsOf(planner).stem + ".bak"_L1, {});
}

bool Exists(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

bool HasHotJournal(const QString& path)
{
    if (!Exists(JournalOf(path))) return false;
    char first = '\0';
    return File(JournalOf(path), O_RDONLY).Read(&first, 1) == 1 && first != '\0';
}

QByteArray Content(const QString& path)
{
    QByteArray content;
    File(path, O_RDONLY).ReadAll([&](const char* data, std::size_t size) {
        content.append(data, static_cast<qsizetype>(size));
    });
    return content;
}

QByteArray Head(const QString& path, qsizetype size)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(size) : QByteArray();
}

void CopyInto(const QString& from, const QString& to)
{
    const File source(from, O_RDONLY), target(to, O_WRONLY | O_TRUNC);
    source.ReadAll([&](const char* data, std::size_t size) {
        target.Write(data, size);
        longwork::Goes();
    });
    target.Sync();
}

void CopyToFree(const QString& from, const QString& to, const struct stat& model)
{
    const ScratchFile copy(to + ".new"_L1, model);
    CopyInto(from, copy.Path());
    RenameToFree(copy.Path(), to);
}

void Fill(const QString& path, const QByteArray& content)
{
    const File file(path, O_WRONLY | O_TRUNC);
    file.Write(content.constData(), static_cast<std::size_t>(content.size()));
    file.Sync();
}

void Sync(const QString& path)
{
    File(path, O_RDONLY).Sync();
}

void SyncFolderOf(const QString& path)
{
    File(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY).Sync();
}

void Rename(const QString& from, const QString& to)
{
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0) Raise(to, errno);
}

void RenameToFree(const QString& from, const QString& to)
{
    const QByteArray source = QFile::encodeName(from), target = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, source, AT_FDCWD, target, RENAME_NOREPLACE) == 0) return;
    if (errno == EINVAL && !Exists(to)) return Rename(from, to); // a file system without such a rename
    Raise(to, errno);
}

bool Unlink(const QString& path)
{
    return ::unlink(QFile::encodeName(path).constData()) == 0;
}

void PutInPlace(const QString& fresh, const QString& planner)
{
    // The journal must be gone from the disk before the new planner is there, or it would be played back into it.
    if (!Unlink(JournalOf(planner)) && errno != ENOENT) Raise(JournalOf(planner), errno);
    SyncFolderOf(planner);
    Rename(fresh, planner);
    try {
        SyncFolderOf(planner);
    } catch (const RunTimeError&) {
        // The new file is in place. After an error the caller would drop the server's planner that a link names.
    }
}
} // namespace wholefiles

ScratchFile::ScratchFile(const QString& path, const struct stat& model) : m_path(path)
{
    Remove(m_path);
    const File file(path, O_WRONLY | O_CREAT | O_EXCL, 0600);
    // Owner and group are set one by one: a member of the planner's group may set the group and not the owner. The mode
    // comes last, since a change of owner can clear some of its bits.
    if (::fchown(file, model.st_uid, model.st_gid) != 0) {
        [[maybe_unused]] const int grouped = ::fchown(file, static_cast<uid_t>(-1), model.st_gid);
    }
    ::fchmod(file, model.st_mode & 0777);
}

ScratchFile::~ScratchFile()
{
    Remove(m_path);
}

void ScratchFile::Remove(const QString& path)
{
    for (const char* beside : {"", "-journal", "-wal", "-shm"})
        wholefiles::Unlink(path + QLatin1StringView(beside));
}

LibraryLock::LibraryLock(const QString& path) : m_file(path, O_RDWR)
{
    if (!m_file.IsOpen()) Raise(path, errno);
    if (m_file.Lock(F_WRLCK, LibraryLockByte, LibraryLockSize)) return;
    throw RunTimeError{InUse, u"Could not use '%1'; another program has it open."_s.arg(NameOf(path))};
}
