// Planners damaged in every way: rows on untouched pages are recovered byte for byte, and no row is invented.
#include "damagetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <functional>

using namespace engineerrors;

namespace {
constexpr int pageSize = 4096;

// A planner's bytes after the damage, and the damaged pages.
struct Damaged
{
    explicit Damaged(const QByteArray& before) : bytes(before), pages(static_cast<int>(before.size() / pageSize)) {}

    void Put(int page, int at, const QByteArray& what)
    {
        bytes.replace(pageSize * (page - 1) + at, what.size(), what);
        touched.insert(page);
    }
    void Cut(qsizetype size)
    {
        bytes.truncate(size);
        for (int page = static_cast<int>(size / pageSize) + 1; page <= pages; ++page)
            touched.insert(page);
    }

    QByteArray bytes;
    int pages;
    QSet<int> touched;
    bool wholePages = true; // the contents of damaged pages cannot pass for rows
};

using Random = QRandomGenerator;
using Damage = std::function<void(Damaged&, Random&)>;

QByteArray Rubbish(int size, Random& random)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.bounded(256));
    return bytes;
}

void PutOnPages(Damaged& planner, Random& random, int count, const std::function<QByteArray()>& what)
{
    for (int i = 0; i < count; ++i)
        planner.Put(random.bounded(2, planner.pages + 1), 0, what());
}

const QList<std::pair<const char*, Damage>> damages = {
    {"one page", [](Damaged& planner,
                    Random& random) { PutOnPages(planner, random, 1, [&] { return Rubbish(pageSize, random); }); }},
    {"many pages", [](Damaged& planner,
                      Random& random) { PutOnPages(planner, random, 60, [&] { return Rubbish(pageSize, random); }); }},
    {"emptied pages",
     [](Damaged& planner, Random& random) {
         PutOnPages(planner, random, 20, [] { return QByteArray(pageSize, '\0'); });
     }},
    {"pages in the place of others",
     [](Damaged& planner, Random& random) {
         planner.wholePages = false; // the end of one text may replace another's
         const QByteArray before = planner.bytes;
         PutOnPages(planner, random, 10,
                    [&] { return before.mid(pageSize * random.bounded(1, planner.pages), pageSize); });
     }},
    {"the tail", [](Damaged& planner, Random& random) { planner.Cut(random.bounded(pageSize, planner.bytes.size())); }},
    {"the head", [](Damaged& planner, Random& random) { planner.Put(1, 0, Rubbish(100, random)); }},
    {"the schema", [](Damaged& planner, Random& random) { planner.Put(1, 100, Rubbish(pageSize - 100, random)); }},
    {"the first page and others",
     [](Damaged& planner, Random& random) {
         PutOnPages(planner, random, 10, [&] { return Rubbish(pageSize, random); });
         planner.Put(1, 0, Rubbish(pageSize, random));
     }},
    {"single bytes",
     [](Damaged& planner, Random& random) {
         planner.wholePages = false;
         for (int i = 0; i < 300; ++i)
             planner.Put(random.bounded(1, planner.pages + 1), random.bounded(pageSize), Rubbish(1, random));
     }},
    {"heads of pages",
     [](Damaged& planner, Random& random) {
         planner.wholePages = false;
         for (int i = 0; i < 60; ++i)
             planner.Put(random.bounded(1, planner.pages + 1), 0, Rubbish(random.bounded(1, 40), random));
     }},
};
} // namespace

class RepairTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_made;
    std::optional<QTemporaryDir> m_folder;
    QString m_path;
    QByteArray m_content; // of an undamaged planner
    Notes m_notes;
    QMap<QByteArray, QSet<int>> m_pages;
    QSet<int> m_trunks; // pages of the free list

    static std::vector<TableDef> Tables() { return {DayTable(), AlarmTable()}; }
    QString Beside(const char* name) const { return m_folder->filePath(QLatin1StringView(name)); }
    DBEngine::RepairReport Repair() const { return DBEngine::RepairDatabase(m_path, Tables()); }
    QStringList Files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }

    void ComeBackAfter(const Damage& damage, quint32 seed) const
    {
        Random random(seed);
        Damaged planner(m_content);
        damage(planner, random);
        SetContent(m_path, planner.bytes);
        DBEngine::RepairReport report;
        QString error;
        QVERIFY2(ErrorOf([&] { report = Repair(); }, &error) == 0, qPrintable(error));
        const QString kept = report.KeptAs.isEmpty() ? m_path : report.KeptAs;
        QVERIFY(Content(kept) == planner.bytes);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), 0);
        const Notes notes = NotesIn(m_path);
        for (const auto& [key, text] : m_notes.asKeyValueRange()) {
            if (m_pages[key].intersects(planner.touched)) continue;
            QVERIFY2(notes.value(key) == text, (key + " of " + QByteArray::number(seed)).constData());
        }
        if (!planner.wholePages) return;
        const auto rows = Ask(m_path, "SELECT key FROM (SELECT 1 AS key FROM \"QMT Table\" UNION ALL "
                                      "SELECT 1 FROM \"Alarm Table\")");
        QCOMPARE(rows.size(), notes.size()); // no row twice
        const bool listOfFreeIsLost = planner.touched.contains(1) || planner.touched.intersects(m_trunks);
        for (const auto& [key, text] : notes.asKeyValueRange()) {
            if (listOfFreeIsLost && key.startsWith("Qgone")) continue;
            QVERIFY2(m_notes.contains(key) && m_notes[key].startsWith(text), key.constData());
        }
    }

    void PlayBack(int journalSize, bool damaged, bool foreign) const
    {
        const QString journal = m_path + "-journal"_L1;
        CrashWhileSaving(m_path);
        if (journalSize >= 0) SetContent(journal, Content(journal).left(journalSize));
        if (foreign) {
            const QString other = Beside("other.mdb");
            {
                Database database = DBEngine::CreateDatabase(other, {});
                database.Append(AlarmTable());
                database.Append(DayTable());
                Recordset days = Days(database);
                for (int day = 0; day < 30; ++day)
                    Write(days, DayKey(day), QByteArray(3000, 'x'));
            }
            CrashWhileSaving(other);
            SetContent(journal, Content(other + "-journal"_L1));
            SetContent(m_path, m_content);
        }
        Damaged planner(Content(m_path));
        const int page = *m_pages[QByteArray("Q1999/1/8")].cbegin();
        if (damaged) planner.Put(page, 0, QByteArray(pageSize, '\x5a'));
        SetContent(m_path, planner.bytes);
        const QByteArray journalBefore = Content(journal);

        const auto report = Repair();
        if (!report.KeptAs.isEmpty()) {
            QVERIFY(Content(report.KeptAs) == planner.bytes);
            QVERIFY(Content(report.KeptAs + "-journal"_L1) == journalBefore);
        }
        const Notes notes = NotesIn(m_path);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), 0);
        QCOMPARE(ErrorOf([&] { DBEngine::CompactDatabase(m_path, Beside("dummy.mdb")); }), 0);
        if (journalSize < 0) { // the journal also restores the overwritten page
            QVERIFY(notes == m_notes);
            return;
        }
        for (const auto& [key, text] : m_notes.asKeyValueRange())
            if (key.startsWith('Q') && !(damaged && m_pages[key].contains(page)))
                QVERIFY2(notes[key] == text || notes[key] == "half" + text, key.constData());
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_path = m_made.filePath(u"notes.mdb"_s);
        MakeFullPlanner(m_path);
        m_content = Content(m_path);
        m_notes = NotesIn(m_path);
        m_pages = PagesOfNotes(m_path);
        QCOMPARE(m_notes.size(), 460);
        QVERIFY(m_pages[QByteArray("Q" + DayKey(100).toUtf8())].size() > 70);
        for (int trunk = m_content.mid(32, 4).toHex().toInt(nullptr, 16); trunk != 0;
             trunk = m_content.mid(pageSize * (trunk - 1), 4).toHex().toInt(nullptr, 16))
            m_trunks.insert(trunk);
    }

    void init()
    {
        m_folder.emplace();
        m_path = Beside("notes.mdb");
        SetContent(m_path, m_content);
    }

    // One row for each damage, since each test function has a time limit.
    void WhatIsLeftComesBack_data()
    {
        QTest::addColumn<int>("damage");
        for (int i = 0; i < damages.size(); ++i)
            QTest::newRow(damages[i].first) << i;
    }

    void WhatIsLeftComesBack()
    {
        QFETCH(int, damage);
        for (quint32 seed = 1; seed <= 12 && !QTest::currentTestFailed(); ++seed)
            ComeBackAfter(damages[damage].second, seed * 100 + static_cast<quint32>(damage));
    }

    void ADefinitionThatTakesTooLongToReadIsNoHindrance()
    {
        QByteArray indexes;
        for (int i = 0; i < 300; ++i)
            indexes += "CREATE INDEX \"more " + QByteArray::number(i) + "\" ON \"QMT Table\" (qmtFontSize);";
        Ask(m_path, "VACUUM;" + indexes); // without free pages, so that new ones are at the end
        Damaged planner(Content(m_path));
        planner.Put(planner.pages, 0, QByteArray(pageSize, '\x5a')); // a page of an index
        SetContent(m_path, planner.bytes);
        QVERIFY(!Repair().KeptAs.isEmpty());
        QVERIFY(NotesIn(m_path) == m_notes);
    }

    void TheSizeOfPagesIsFoundAgain()
    {
        for (const QByteArray size : {"512", "1024", "65536"}) {
            SetContent(m_path, m_content);
            Ask(m_path, "PRAGMA page_size = " + size + "; VACUUM");
            SetContent(m_path, Content(m_path).replace(0, 100, QByteArray(100, '\x5a')));
            QVERIFY(!Repair().KeptAs.isEmpty());
            QVERIFY2(NotesIn(m_path) == m_notes, size.constData());
        }
    }

    void AnUndamagedPlannerIsLeftAlone()
    {
        const auto report = Repair();
        QCOMPARE(report.KeptAs, QString());
        QVERIFY(Content(m_path) == m_content);
        QCOMPARE(Files(), QStringList({u"notes.ldb"_s, u"notes.mdb"_s}));
    }

    void ADamagedPlannerIsKeptUnderAFreeName()
    {
        SetContent(Beside("notes.damaged.mdb"), "mine");
        ::chmod(QFile::encodeName(m_path).constData(), 0640);
        Damaged planner(m_content);
        planner.Put(1, 68, "\x01\x01\x01\x01"); // only the program's mark
        SetContent(m_path, planner.bytes);
        const auto report = Repair();
        QCOMPARE(report.KeptAs, Beside("notes.damaged2.mdb"));
        QVERIFY(Content(report.KeptAs) == planner.bytes);
        QCOMPARE(Content(Beside("notes.damaged.mdb")), QByteArray("mine"));
        QCOMPARE(report.Tables[0].Rows, 400);
        QCOMPARE(report.Tables[1].Rows, 60);
        QCOMPARE(QFile(m_path).permissions() & 0xfff, QFile(report.KeptAs).permissions() & 0xfff);
        QVERIFY(NotesIn(m_path) == m_notes);
        QCOMPARE(Ask(m_path, "SELECT seq FROM sqlite_sequence")[0][0], QByteArray("480")); // the id of a deleted note
        QCOMPARE(Files().size(), 4);
    }

    void WhatIsNoPlannerIsRefused()
    {
        Damaged newer(m_content), empty(m_content);
        newer.Put(1, 60, QByteArray("\0\0\0\2", 4));
        empty.Put(1, 100, QByteArray(m_content.size() - 100, '\0'));
        const std::tuple<const char*, QByteArray, QString> rows[] = {
            {"text", QByteArray(300000, 'a'), u"is not a planner"_s},
            {"0 bytes", {}, u"is not a planner"_s},
            {"7 bytes", "SQLite ", u"is not a planner"_s},
            {"zeros", QByteArray(300000, '\0'), u"is not a planner"_s},
            {"newer", newer.bytes, u"newer Orrelin"_s},
            {"a head and nothing else", m_content.left(100), u"Nothing can be read"_s},
            {"nothing left", empty.bytes, u"Nothing can be read"_s},
        };
        for (const auto& [name, content, part] : rows) {
            const InRow inRow(this, name);
            SetContent(m_path, content);
            QString text;
            QCOMPARE(ErrorOf([&] { Repair(); }, &text), NotADatabase);
            QVERIFY2(text.contains(part), qPrintable(text));
            QVERIFY(Content(m_path) == content);
            QCOMPARE(Files().size(), 1); // no lock file was made
        }
    }

    void AnotherProgramsDatabaseIsRefused()
    {
        QFile::remove(m_path);
        Ask(m_path, "CREATE TABLE theirs (a); INSERT INTO theirs VALUES (1)");
        QCOMPARE(ErrorOf([&] { Repair(); }), NotADatabase);
        QCOMPARE(Ask(m_path, "SELECT a FROM theirs").size(), 1);
        QCOMPARE(Files().size(), 1);
    }

    void AJournalIsPlayedBackWhereItIsRight()
    {
        constexpr int whole = -1;
        const std::tuple<const char*, int, bool, bool> rows[] = {
            {"sound", whole, false, false},
            {"beside a damaged planner", whole, true, false},
            {"torn", 100000, false, false},
            {"torn in its head", 20, true, false},
            {"of another planner", whole, false, true},
        };
        for (const auto& [name, journalSize, damaged, foreign] : rows) {
            const InRow inRow(this, name);
            PlayBack(journalSize, damaged, foreign);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(RepairTest)
#include "repairtest.moc"
