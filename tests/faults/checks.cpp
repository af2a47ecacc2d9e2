#include "checks.h"

#include "notes/journalfile.h"
#include "notes/rescuefiles.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/desktop/folders.h"
#include "platform/engine/damagetesting.h"
#include "platform/profile/profile.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {
constexpr int EventDays = 40, OldNotes = 15, OldRows = 3;
using faultycalls::Fault;

QByteArray OldNote(int day)
{
    return "{\\rtf1 old note " + QByteArray::number(day) + "}";
}

void AddRow(Recordset records, const TableDef& table, int number)
{
    records.AddNew();
    for (const Field& field : table.Fields)
        if (field.Type == dbText || field.Type == dbMemo) {
            const QString text = u"%1%2"_s.arg(field.Name.at(0)).arg(number);
            records.SetField(field.Name, field.Type == dbMemo ? QVariant(text.toLatin1()) : QVariant(text));
        }
    records.Update();
}

QStringList RowsOf(Recordset records, const TableDef& table)
{
    QStringList rows;
    for (; !records.EOF_(); records.MoveNext()) {
        QStringList row;
        for (const Field& field : table.Fields)
            row += records.Fields(field.Name).toString();
        rows += row.join(u'|');
    }
    return rows;
}

void MakePlanner(const QString& path)
{
    Database planner = DBEngine::CreateDatabase(path, {});
    for (const TableDef& table : schema::AllTables())
        planner.Append(table);
    WriteTransaction all(planner);
    Recordset notes = schema::OpenNotes(planner);
    for (int day = 1; day < 2 * OldNotes; day += 2)
        Write(notes, u"1999/3/%1"_s.arg(day), OldNote(day));
    for (int row = 0; row < OldRows; ++row) {
        AddRow(schema::OpenAlarms(planner), schema::AlarmsTable(), row);
        AddRow(schema::OpenRecursions(planner), schema::RecursionsTable(), row);
    }
    all.Commit();
}

void SetInLook(const char* key, const char* value)
{
    WritePrivateProfileStringA(u"Days"_s, QString::fromLatin1(key), QString::fromLatin1(value), u"PLANNER.INI"_s);
}

QString InLook(const char* key)
{
    return GetPrivateProfileStringA(u"Days"_s, QString::fromLatin1(key), {}, 20, u"PLANNER.INI"_s);
}

// The files that every scene starts with, by their names; made once.
const QMap<QString, QByteArray>& Template()
{
    static QMap<QString, QByteArray> s_files;
    if (!s_files.isEmpty()) return s_files;
    const QTemporaryDir folder;
    MakePlanner(folder.path() + Planner);
    folders::SetRootForTests(folder.path());
    SetInLook("Color", "old");
    SetInLook("Font", "kept");
    folders::SetRootForTests({});
    for (QDirIterator file(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); file.hasNext();) {
        const QString path = file.next();
        s_files[path.mid(folder.path().size())] = Content(path);
    }
    s_files[OldPlanner] = Content(QStringLiteral(SAMPLE));
    return s_files;
}

// Damages the index of the notes and no note.
void SpoilIndex(const QString& planner)
{
    const QByteArray page = Ask(planner, "SELECT rootpage FROM sqlite_master WHERE type = 'index'")[0][0];
    const QByteArray size = Ask(planner, "PRAGMA page_size")[0][0];
    QByteArray bytes = Content(planner);
    bytes.replace((page.toInt() - 1) * size.toInt(), size.toInt(), QByteArray(size.toInt(), '\x5a'));
    SetContent(planner, bytes);
}

QString JournalFolder()
{
    return folders::ApplicationDirectory() + u"/journal"_s;
}

// As a killed run leaves it.
void LeaveJournal(const QString& planner)
{
    UnsavedNotes notes;
    notes.Keep(planner, Third, {"{\\rtf1 " + QByteArray(TypedOnThird) + "old note 3}", OldNote(3), {}});
    notes.Keep(planner, Fourth, {"{\\rtf1 " + QByteArray(TypedOnFourth) + "}", QByteArray(), {}});
    QDir().mkpath(JournalFolder());
    SetContent(JournalFolder() + u"/1.notes"_s, journalfile::Encode(notes));
}

bool IsInJournal(const QString& planner, const QString& key, const QByteArray& text)
{
    for (const QFileInfo& file : QDir(JournalFolder()).entryInfoList({u"*.notes"_s})) {
        const auto notes = journalfile::Decode(Content(file.filePath()));
        const auto note = notes ? notes->Find(planner, key) : std::nullopt;
        if (note && note->rtf.contains(text)) return true;
    }
    return false;
}

bool IsInAFile(const QString& key, const QByteArray& text)
{
    const QString name = u"planner %1*.rtf"_s.arg(QString(key).replace(u'/', u'-'));
    for (const QFileInfo& file : QDir(RescueFolder()).entryInfoList({name}))
        if (Content(file.filePath()).contains(text)) return true;
    return false;
}

class Left
{
public:
    Left(const Scene& scene, const QString& root, const Answer& answer) : m_root(root), m_answer(answer), m_scene(scene)
    {
    }

    void CheckPlanner();
    void CheckTyped() const;
    void CheckScene() const;
    void CheckPages() const;
    void CheckFiles() const;

private:
    QString Path(const QString& name) const { return m_root + name; }
    bool IsDone() const { return m_answer.text == u"done"; }
    void ReadPlanner();
    void CheckRecurrence() const;
    void CheckImport() const;
    void CheckBackUp() const;
    void CheckCompact() const;
    void CheckRepair() const;
    void CheckConvert() const;
    void CheckMove() const;
    void CheckSettings() const;

    QString m_root;
    Answer m_answer;
    Scene m_scene;
    QMap<QString, QByteArray> m_notes;
    QStringList m_alarms, m_events;
};

void Left::ReadPlanner()
{
    Database planner = DBEngine::OpenDatabase(Path(Planner), true);
    for (Recordset all = schema::OpenNotes(planner); !all.EOF_(); all.MoveNext())
        m_notes[all.Fields(u"qmtDate"_s).toString()] = all.Fields(u"qmtText"_s).toByteArray();
    m_alarms = RowsOf(schema::OpenAlarms(planner), schema::AlarmsTable());
    m_events = RowsOf(schema::OpenRecursions(planner), schema::RecursionsTable());
}

void Left::CheckPlanner()
{
    QString said;
    QVERIFY2(ErrorOf([&] { ReadPlanner(); }, &said) == 0, qPrintable(said));
    for (int day = 1; day < 2 * OldNotes; day += 2) {
        QByteArray note = m_notes.value(u"1999/3/%1"_s.arg(day));
        note.replace(TypedOnThird, ""); // inserted into the old note
        QVERIFY2(note.contains("old note " + QByteArray::number(day)), note);
    }
    QCOMPARE(m_alarms.size(), OldRows);
    for (int row = 0; row < OldRows; ++row) {
        QVERIFY(m_alarms.contains(u"A%1|A%1|A%1|A%1|M%1|"_s.arg(row)));
        QVERIFY(m_events.contains(u"S%1|E%1|F%1|R%1"_s.arg(row)));
    }
}

// Text may be lost if the disk stays full from before the journal has it to the end of the program.
void Left::CheckTyped() const
{
    const bool lasts = m_answer.fault == Fault::FullFromHere || m_answer.fault == Fault::BadFromHere;
    if (!m_scene.types || (!m_answer.isKept && (lasts || !IsDone()))) return;
    const bool isInPlanner = m_answer.fault == Fault::None && QByteArrayView(m_scene.name) != "journal";
    const bool isOneDay = QByteArrayView(m_scene.name) == "locked day" || QByteArrayView(m_scene.name) == "day view";
    for (const auto& [key, typed] : {std::pair(Third, TypedOnThird), std::pair(Fourth, TypedOnFourth)}) {
        if (isOneDay && key == Fourth) continue;
        const QByteArray text = QByteArray(typed).trimmed();
        const bool isElsewhere = IsInJournal(Path(Planner), key, text) || IsInAFile(key, text);
        QVERIFY2(m_notes.value(key).contains(text) || (isElsewhere && !isInPlanner), typed);
    }
}

// A killed run has written all days before the kill and none after.
void Left::CheckRecurrence() const
{
    int written = 0;
    for (int day = 0; day < EventDays; ++day) {
        const QString key = QDate(1999, 3, 1).addDays(day).toString(u"yyyy/M/d"_s);
        if (!m_notes.value(key).contains("Standup")) continue;
        if (Ends(m_answer.fault)) QCOMPARE(written, day);
        ++written;
    }
    QVERIFY2(written == 0 || m_events.size() > OldRows, "an event that could never be taken out again");
    if (IsDone()) QCOMPARE(written, EventDays);
}

// All of it or nothing.
void Left::CheckImport() const
{
    const auto written =
        std::ranges::count_if(m_notes, [](const QByteArray& note) { return note.contains("Standup"); });
    QVERIFY(written == (IsDone() ? 31 : 0) || (written == 31 && Ends(m_answer.fault)));
    QCOMPARE(m_events.size() > OldRows, written > 0);
    const bool isRemembered = DBEngine::OpenDatabase(Path(Planner)).TableNames().contains(schema::Imports);
    QCOMPARE(isRemembered, written > 0);
}

void Left::CheckBackUp() const
{
    int copies = 0;
    for (QDirIterator file(BackupFolder(), {u"*.mdb"_s}, QDir::Files, QDirIterator::Subdirectories); file.hasNext();
         ++copies)
        QCOMPARE(NotesIn(file.next()).size(), OldNotes + OldRows);
    if (IsDone()) QCOMPARE(copies, 1);
}

// There is never half a copy.
void Left::CheckCompact() const
{
    const QString copy = Path(u"/dummy.mdb"_s);
    if (QFile::exists(copy)) QCOMPARE(NotesIn(copy).size(), OldNotes + OldRows);
}

// The next repair finishes an interrupted one.
void Left::CheckRepair() const
{
    const QString alone = Path(u"/alone.mdb"_s);
    SetContent(alone, Content(Path(Planner)));
    const bool isSound = Ask(alone, "PRAGMA integrity_check(1)")[0][0] == "ok";
    QVERIFY2(!isSound || !QFile::exists(Path(Planner) + u"-journal"_s), "the journal would undo the repair");
    DBEngine::RepairReport second;
    QCOMPARE(ErrorOf([&] { second = DBEngine::RepairDatabase(Path(Planner)); }), 0);
    QVERIFY2(!IsDone() || second.KeptAs.isEmpty(), "said to be repaired");
}

// The old planner is whole, under its own name or under another beside the new planner.
void Left::CheckConvert() const
{
    const QByteArray sample = Content(QStringLiteral(SAMPLE));
    const bool isConverted = Content(Path(OldPlanner)) != sample;
    QVERIFY(isConverted || !IsDone());
    if (!isConverted) return;
    QCOMPARE(Content(Path(u"/old.old.mdb"_s)), sample);
    const QByteArray counts = "SELECT (SELECT count(*) FROM \"QMT Table\"), (SELECT count(*) FROM \"Alarm Table\"), "
                              "(SELECT count(*) FROM \"Recursion Table\")";
    QCOMPARE(Ask(Path(OldPlanner), counts), QList<QByteArrayList>({{"6", "3", "2"}}));
}

void Left::CheckMove() const
{
    const bool isLink = !DBEngine::LinkedAddress(Path(Planner)).isEmpty();
    QVERIFY(isLink || !IsDone());
    if (isLink) QCOMPARE(NotesIn(Path(u"/planner.bak"_s)).size(), OldNotes + OldRows);
}

void Left::CheckSettings() const
{
    const QString color = InLook("Color");
    QVERIFY2(color == u"new" || (color == u"old" && !IsDone()), qPrintable(color));
    QCOMPARE(InLook("Font"), u"kept"_s);
}

void Left::CheckScene() const
{
    const std::pair<const char*, void (Left::*)() const> checks[] = {
        {"compact", &Left::CheckCompact},   {"recurrence", &Left::CheckRecurrence},
        {"backup", &Left::CheckBackUp},     {"import", &Left::CheckImport},
        {"repair", &Left::CheckRepair},     {"convert", &Left::CheckConvert},
        {"settings", &Left::CheckSettings}, {"move", &Left::CheckMove}};
    for (const auto& [name, check] : checks)
        if (QByteArrayView(name) == m_scene.name) (this->*check)();
}

void Left::CheckPages() const
{
    if (!DBEngine::LinkedAddress(Path(Planner)).isEmpty()) return;
    QCOMPARE(ErrorOf([&] { DBEngine::CompactDatabase(Path(Planner), Path(u"/checked.mdb"_s)); }), 0);
}

// A step that finds no room removes what it has begun.
void Left::CheckFiles() const
{
    static const QRegularExpression s_whole(u"^((planner|old)(\\.damaged|\\.old)?\\.(mdb|mdb-journal|ldb|bak)|"
                                            u"dummy\\.mdb\\.lock|PLANNER\\.INI(\\.lock)?)$"_s);
    if (m_answer.fault != Fault::DiskFull && m_answer.fault != Fault::FullFromHere) return;
    for (const QString& folder : {m_root, folders::WindowsDirectory()})
        for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden))
            QVERIFY2(s_whole.match(name).hasMatch(), qPrintable(name));
}
} // namespace

void Prepare(const Scene& scene, const QString& root)
{
    for (const char* folder : {"/shipped", "/cut"})
        QDir().mkpath(root + QString::fromLatin1(folder));
    QFile::link(QStringLiteral(READER), root + u"/shipped/orrelin-readjet"_s);
    for (auto file = Template().cbegin(); file != Template().cend(); ++file) {
        QDir().mkpath(QFileInfo(root + file.key()).path());
        SetContent(root + file.key(), file.value());
    }
    if (QByteArrayView(scene.name) == "repair") {
        SpoilIndex(root + Planner);
        CrashWhileSaving(root + Planner, 1);
    }
    folders::SetRootForTests(root);
    if (QByteArrayView(scene.name) == "recovery") LeaveJournal(root + Planner);
    folders::SetRootForTests({});
}

void Check(const Scene& scene, const QString& root, const Answer& answer)
{
    folders::SetRootForTests(root);
    const auto back = qScopeGuard([] { folders::SetRootForTests({}); });
    Left left(scene, root, answer);
    left.CheckFiles();
    if (QByteArrayView(scene.name) == "repair") left.CheckScene(); // also repairs the planner
    left.CheckPlanner();
    left.CheckTyped();
    left.CheckScene();
    left.CheckPages();
}
