#include "notes/journal.h"

#include "notes/journalfile.h"
#include "platform/desktop/folders.h"
#include "platform/runtime/errortail.h"

#include <QDir>

#include <filesystem>

namespace {
constexpr QLatin1StringView JournalTail(" in Journal, Write");
constexpr int Pause = 700;              // milliseconds without a key, so that typing never waits for the disk
constexpr int LongestWait = 2000;       // milliseconds, while keys follow each other without a pause
constexpr int AfterFailure = 15000;     // milliseconds
constexpr qint64 LargestFile = 1 << 30; // bytes; a larger file is no journal of ours
const QString Ending = u".notes"_s;

QDir Folder()
{
    return QDir(folders::ApplicationDirectory() + u"/journal"_s);
}

// Readable by the user only: notes may be private.
void MakeFolder(QString& reason)
{
    const QString path = Folder().path();
    if (QFileInfo::exists(path)) return;
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (error) reason = QString::fromStdString(error.message());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QString LockOf(const QString& journal)
{
    return journal.chopped(Ending.size()) + u".lock"_s;
}

struct Place
{
    QString path;
    std::unique_ptr<FileLock> lock; // null if the folder takes no locks
};

// The first number that neither a running nor an ended program uses.
Place FreePlace(QString& reason)
{
    MakeFolder(reason);
    for (int number = 1;; ++number) {
        const QString path = Folder().filePath(QString::number(number) + Ending);
        auto lock = FileLock::Try(LockOf(path));
        if (!lock && !QFileInfo(LockOf(path)).isFile()) return {path, nullptr};
        if (lock && !QFileInfo::exists(path)) return {path, std::move(lock)};
    }
}

// Renames the file so that no journal has its name. Returns the path where it is then.
QString PutAside(const QFileInfo& journal)
{
    for (int number = 1;; ++number) {
        const QString name = journal.dir().filePath(u"damaged-%1"_s.arg(number));
        if (QFileInfo::exists(name)) continue;
        return QFile::rename(journal.filePath(), name) ? name : journal.filePath();
    }
}
} // namespace

Journal::Journal()
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, Guarded(JournalTail, [this] { Write(); }));
}

void Journal::Touch()
{
    if (m_failed && m_timer.isActive()) return; // or each key would wait for a full disk
    if (!m_timer.isActive()) m_sinceTouch.start();
    m_timer.start(qBound(0, LongestWait - int(m_sinceTouch.elapsed()), Pause));
}

void Journal::Follow()
{
    if (m_timer.isActive() || !m_written.isEmpty()) Write();
}

// After a failure only the timer tries again, since a turn calls this at every look-up.
void Journal::Hurry()
{
    if (m_timer.isActive() && !m_failed) Write();
}

bool Journal::Write()
{
    m_timer.stop();
    const UnsavedNotes notes = m_source ? m_source() : UnsavedNotes();
    if (notes.IsEmpty()) {
        Remove();
        return true;
    }
    const QByteArray content = journalfile::Encode(notes);
    if (content == m_written) {
        Recover();
        return true;
    }
    QString reason;
    Claim(reason);
    const bool isWritten = reason.isEmpty() && WriteDurably(m_path, content, &reason);
    if (isWritten) {
        m_written = content;
        Recover();
    } else {
        Fail(reason);
    }
    return isWritten;
}

void Journal::Claim(QString& reason)
{
    if (m_lock && QFileInfo::exists(LockOf(m_path))) return;
    m_lock.reset(); // somebody has removed the folder
    Place place = FreePlace(reason);
    m_path = place.path;
    m_lock = std::move(place.lock);
}

bool Journal::LeaveBehind(const UnsavedNotes& notes, QString& reason)
{
    const Place place = FreePlace(reason);
    // Without a lock no opening would find the file.
    if (!place.lock && reason.isEmpty()) reason = u"'%1' takes no locks."_s.arg(Folder().path());
    if (reason.isEmpty() && WriteDurably(place.path, journalfile::Encode(notes), &reason)) return true;
    LogError({errors::PathFileAccess, reason}, JournalTail);
    return false;
}

// Logs the first failure only, and tries again later, since a full disk may be freed.
void Journal::Fail(const QString& reason)
{
    if (!m_failed) LogError({errors::PathFileAccess, reason}, JournalTail);
    m_failed = true;
    m_onTrouble(reason);
    m_timer.start(AfterFailure);
}

void Journal::Recover()
{
    if (std::exchange(m_failed, false)) m_onTrouble({});
}

void Journal::Remove()
{
    m_timer.stop();
    if (!m_written.isEmpty()) QFile::remove(m_path);
    m_written.clear();
    Recover();
}

void Journal::Leave()
{
    m_timer.stop();
    m_source = nullptr;
    m_written.clear();
}

LeftJournal::LeftJournal(QString path, UnsavedNotes notes, std::unique_ptr<FileLock> lock)
    : m_path(std::move(path)), m_notes(std::move(notes)), m_lock(std::move(lock))
{
}

LeftJournal::All LeftJournal::FindAll()
{
    All all;
    // Regular files only: a link may lead to something endless.
    const auto kind = QDir::Files | QDir::NoSymLinks;
    for (const QFileInfo& entry : Folder().entryInfoList({u'*' + Ending}, kind, QDir::Time)) {
        auto lock = FileLock::Try(LockOf(entry.filePath()));
        QFile file(entry.filePath());
        if (!lock || !file.open(QIODevice::ReadOnly)) continue;
        auto notes = entry.size() <= LargestFile ? journalfile::Decode(file.readAll()) : std::nullopt;
        if (notes) {
            all.whole.push_back(LeftJournal(entry.filePath(), *notes, std::move(lock)));
        } else {
            all.damaged << PutAside(entry);
        }
    }
    return all;
}

void LeftJournal::Forget(const QString& planner)
{
    m_notes.Forget(planner);
    if (m_notes.IsEmpty()) {
        QFile::remove(m_path);
    } else {
        WriteDurably(m_path, journalfile::Encode(m_notes));
    }
}
