#include "notes/dayversions.h"

#include "notes/journal.h"
#include "notes/rescuefiles.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "state/plannerstate.h"

#include <QFileInfo>
#include <QTextDocument>

#include <algorithm>

namespace {
// The step's error becomes a reason. An unreadable source must not hide the others.
template <typename Step>
void Try(DayVersions& all, Step&& step)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        all.remarks += error.Description;
    }
}

void AddBackup(const QString& path, const QDateTime& when, const QString& name, const QString& key, DayVersions& all)
{
    Try(all, [&] {
        Recordset notes = schema::OpenNotes(DBEngine::OpenResting(path));
        notes.Seek(schema::Equal, key);
        if (!notes.NoMatch()) all.found.push_back({when, name, notes.Fields(schema::TextField).toByteArray()});
    });
}

void AddBackups(const QString& key, DayVersions& all)
{
    const auto backups = BackupsOf(g_sNotesFile);
    for (auto backup = backups.cbegin(); backup != backups.cend(); ++backup) {
        const QDateTime written = QFileInfo(*backup).lastModified();
        AddBackup(*backup, written.date() == backup.key() ? written : backup.key().startOfDay(), u"Backup"_s, key, all);
    }
    const QFileInfo import(BackupBeforeImportOf(g_sNotesFile));
    if (import.exists()) AddBackup(import.filePath(), import.lastModified(), u"Before the last import"_s, key, all);
}

void AddHistory(const QString& key, DayVersions& all)
{
    if (g_dbPlanner.ServerAddress().isEmpty()) return;
    const auto texts = g_dbPlanner.PastTexts(key);
    all.remarks += texts ? u"The server keeps the last ten texts of each day."_s
                         : u"The server keeps no history of this planner. It begins when its owner opens it."_s;
    for (const PastText& past : texts.value_or(std::vector<PastText>()))
        all.found.push_back({past.replaced, u"Replaced by "_s + past.by, past.text});
}

void AddRescued(const QString& key, DayVersions& all)
{
    for (const QFileInfo& entry : RescueFilesOf(g_sNotesFile, key)) {
        QFile file(entry.filePath());
        if (file.open(QIODevice::ReadOnly))
            all.found.push_back({entry.lastModified(), u"Unsaved note"_s, file.readAll()});
        else
            all.remarks += u"%1: %2"_s.arg(entry.filePath(), file.errorString());
    }
}

bool IsOpenPlanner(const QString& path)
{
    const QString real = QFileInfo(path).canonicalFilePath();
    return path == g_sNotesFile || (!real.isEmpty() && real == QFileInfo(g_sNotesFile).canonicalFilePath());
}

void AddJournals(const QString& key, DayVersions& all)
{
    const LeftJournal::All left = LeftJournal::FindAll();
    for (const QString& path : left.damaged)
        all.remarks += u"A journal is damaged. It lies in %1"_s.arg(path);
    for (const LeftJournal& journal : left.whole)
        for (const QString& planner : journal.Notes().Planners()) {
            const auto note = journal.Notes().Find(planner, key);
            if (note && IsOpenPlanner(planner))
                all.found.push_back({journal.Written(), u"Not saved when Orrelin ended"_s, note->rtf});
        }
}

constexpr void (*Sources[])(const QString& key, DayVersions& all) = {AddBackups, AddHistory, AddRescued, AddJournals};

// The text and its form. Programs and versions write the same note in different bytes. Empty for a blank note.
QByteArray SeenOf(const QByteArray& rtf)
{
    QTextDocument note;
    ReadRtf(rtf, note);
    return note.toPlainText().trimmed().isEmpty() ? QByteArray() : WriteRtf(note); // a picture is no blank
}

// Equal bytes look equal, so most versions need not be read.
void DropEqual(std::vector<DayVersion>& versions, const QByteArray& present)
{
    const QByteArray seenNow = SeenOf(present);
    QByteArray newer = present, seenNewer = seenNow;
    std::erase_if(versions, [&](const DayVersion& version) {
        if (version.rtf == present || version.rtf == newer) return true;
        const QByteArray seen = SeenOf(version.rtf);
        if (seen.isEmpty() || seen == seenNow || seen == seenNewer) return true;
        newer = version.rtf;
        seenNewer = seen;
        return false;
    });
}
} // namespace

DayVersions VersionsOf(const QString& key, const QByteArray& present)
{
    DayVersions all;
    for (const auto add : Sources)
        Try(all, [&] { add(key, all); });
    std::ranges::stable_sort(all.found, std::greater(), &DayVersion::when);
    DropEqual(all.found, present);
    if (g_dbPlanner.ServerAddress().isEmpty()) all.remarks += PlaceOfBackups();
    return all;
}
