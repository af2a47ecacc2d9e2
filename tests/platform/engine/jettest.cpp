// Planners of the older engine: converted whole or not at all, whatever the file is and however the program ends.
#include "damagetesting.h"
#include "jet3file.h"
#include "planners.h"
#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/jet/jetrows.h"
#include "platform/engine/sqlite/bytelocks.h"
#include "platform/engine/sqlite/wholefiles.h"
#include "testmain.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace engineerrors;

namespace {
QByteArray RichText(const QByteArray& body)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}\r\n"
           "\\viewkind4\\uc1\\pard\\f0\\fs20 " +
           body + "\\par\r\n}\r\n";
}

const std::vector<Jet3File::Column> noteColumns = {
    {"qmtDate", jetstream::Text},        {"qmtFontSize", jetstream::Single}, {"QMTTEXT", jetstream::Memo},
    {"qmtFontBold", jetstream::Boolean}, {"Database Date", jetstream::Date}, {"ours", jetstream::Text}};

// Only the table of notes, with notes of every length in the code page of Central Europe.
Jet3File NotesOfTheThirdVersion(int longest)
{
    std::vector<Jet3File::Row> rows;
    for (int size = 10; size <= longest; size *= 3)
        rows.push_back({"1997/1/" + QByteArray::number(size), LittleEndian(8.25f),
                        QByteArray("\x9Elu\x9D").repeated(size / 4),
                        size % 20 ? std::nullopt : std::optional<QByteArray>(""), LittleEndian(35431.5), std::nullopt});
    Jet3File file(1250);
    file.AddTable("qmt table", noteColumns, rows);
    return file;
}

QByteArray Jet3Planner(int longest)
{
    return NotesOfTheThirdVersion(longest).Bytes();
}

// Every table with its rows, as text.
QStringList RowsOf(const QString& path)
{
    QStringList all;
    JetRows rows(path, plannerTables);
    while (const TableDef* table = rows.NextTable()) {
        all += table->Name;
        while (const auto row = rows.NextRow()) {
            QString words;
            QDebug(&words) << *row;
            all += words;
        }
    }
    return all;
}
} // namespace

class JetTest : public QObject
{
    Q_OBJECT

    std::optional<QTemporaryDir> m_folder;
    QString m_path, m_dummy, m_kept;
    QByteArray m_sample;

    int Convert(QString* text = nullptr) const
    {
        return ErrorOf(
            [this] {
                const DBEngine::AloneWith alone(m_path);
                DBEngine::CompactDatabase(m_path, m_dummy, plannerTables);
                DBEngine::ReplaceDatabase(m_dummy, m_path);
            },
            text);
    }
    QStringList Planners() const { return QDir(m_folder->path()).entryList({u"*.mdb*"_s}, QDir::Files); }
    QList<QByteArrayList> Notes() const { return Ask(m_path, "SELECT qmtDate, qmtText FROM \"QMT Table\" ORDER BY 1"); }
    void UseReader(const QByteArray& script) const
    {
        const QString reader = m_folder->filePath(u"shipped/orrelin-readjet"_s);
        QFile::remove(reader);
        if (script.isEmpty()) {
            QFile::link(QStringLiteral(READER), reader);
            return;
        }
        if (script == "none") return;
        SetContent(reader, "#!/bin/sh\n" + script + "\n");
        QFile::setPermissions(reader, QFile::ReadOwner | QFile::ExeOwner);
    }

    void DamageIn(const QByteArray& whole) const
    {
        QRandomGenerator random(7);
        int refused = 0;
        constexpr int runs = 150;
        for (int run = 0; run < runs; ++run) {
            QByteArray damaged = whole;
            if (run % 10 == 0) damaged.truncate(random.bounded(100, int(whole.size())));
            for (int i = 0; run % 10 != 0 && i < (1 << run % 9); ++i) {
                const auto at = random.bounded(100, int(whole.size()));
                damaged[at] = static_cast<char>(damaged[at] ^ 1 << random.bounded(8));
            }
            SetContent(m_path, damaged);
            QString text;
            const int error = ErrorOf([&] { DBEngine::CompactDatabase(m_path, m_dummy, plannerTables); }, &text);
            QVERIFY2(error == 0 || error == NotADatabase, qPrintable(text));
            QCOMPARE(Content(m_path), damaged);
            QCOMPARE(QFile::exists(m_dummy), error == 0);
            QFile::remove(m_dummy);
            refused += error != 0;
        }
        QVERIFY2(refused > runs / 10 && refused < runs, qPrintable(QString::number(refused)));
    }

    void LosePagesOf(const QByteArray& whole, int pageSize) const
    {
        SetContent(m_path, whole);
        const QStringList rows = RowsOf(m_path);
        QCOMPARE(rows.filter(u"Table"_s).size(), 3);
        int refused = 0;
        for (qsizetype at = pageSize; at < whole.size(); at += pageSize) {
            const auto filled = [&](char byte) {
                return QByteArray(whole).replace(at, pageSize, QByteArray(pageSize, byte));
            };
            for (const QByteArray& damaged : {filled('\0'), filled('\xFF'), whole.first(at), whole.first(at + 99)}) {
                SetContent(m_path, damaged);
                QString text;
                QStringList found;
                const bool isRead = ErrorOf([&] { found = RowsOf(m_path); }, &text) == 0;
                QVERIFY2(isRead ? found == rows : text.contains("damaged"_L1),
                         qPrintable(u"page %1: %2"_s.arg(at / pageSize).arg(text)));
                refused += !isRead;
            }
        }
        QVERIFY(refused > whole.size() / pageSize * 2);
    }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"-old 'pl\u00e4n\n%s.mdb"_s); // an unusual name
        m_kept = m_folder->filePath(u"-old 'pl\u00e4n\n%s.old.mdb"_s);
        m_dummy = m_folder->filePath(u"dummy.mdb"_s);
        QDir(m_folder->path()).mkdir(u"shipped"_s);
        folders::SetRootForTests(m_folder->path());
        UseReader({});
        m_sample = Content(QStringLiteral(SAMPLE));
        SetContent(m_path, m_sample);
    }
    void cleanup() { folders::SetRootForTests({}); }

    void AnOldPlannerIsConvertedWholeAndKept()
    {
        QString text;
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }, &text), NotSupported);
        QVERIFY2(text.contains("Compact"_L1), qPrintable(text));
        QCOMPARE(Convert(&text), 0);
        QCOMPARE(Content(m_kept), m_sample);
        const QByteArray dots(1005, '.');
        QByteArray longDay;
        for (int line = 0; line < 400; ++line)
            longDay +=
                "Line " + QByteArray::number(line) + " of a long day, \\b bold\\b0  and \\i italic\\i0 .\\par\r\n";
        const QList<QByteArrayList> notes = {
            {"1999/12/31", RichText("Year's end \\b party\\b0  at 9"), ""},
            {"2000/2/29", RichText("Leap day \\b meeting\\b0  at 9:00"), ""},
            {"2001/7/4", RichText("caf\\'e9 \\u8364?100 \\ul under\\ulnone"), dots},
            {"2003/1/15", RichText(longDay), dots},
            {"2003/1/Memo2", "Plain text note, not RTF.\r\nSecond line.", ""},
            {"2004/5/6", RichText("\\u382?lu\\u357?ou\\u269?k\\u253?  \\u26085?\\u26412?\\u-30050?"), dots},
        };
        QCOMPARE(Ask(m_path, "SELECT qmtDate, qmtText, qmtPadding FROM \"QMT Table\" ORDER BY 1"), notes);
        const QList<QByteArrayList> alarms = {
            {"2001/7/4", "09:05", RichText("Breakfast"), "", "chimes.wav", "0"},
            {"2001/7/4", "9:30", RichText("Old form of time"), "", "canyon.mid", "1"},
            {"1999/12/31", "00:00", RichText("Midnight"), "", "", "0"},
        };
        QCOMPARE(Ask(m_path, "SELECT \"Alarm Date\", \"Alarm Time\", \"Alarm Note\", \"Alarm Music\", \"Music Path\", "
                             "Silence FROM \"Alarm Table\""),
                 alarms);
        const QList<QByteArrayList> events = {
            {"1999/9/1", "1999/12/1", "WEEKLY", RichText("Choir")},
            {"2000/2/29", "2010/2/28", "YEARLY", RichText("Leap birthday")},
        };
        QCOMPARE(
            Ask(m_path, "SELECT \"Start Date\", \"End Date\", Frequency, \"Recursion Text\" FROM \"Recursion Table\""),
            events);
        Database planner = DBEngine::OpenDatabase(m_path);
        Recordset days = schema::OpenNotes(planner);
        QVERIFY(days.Fields(u"qmtFontSize"_s).isNull());
        QCOMPARE(days.Fields(u"qmtFontBold"_s), QVariant(false));
        Write(days, u"2005/1/1"_s, "new");
        QCOMPARE(Read(days, u"2005/1/1"_s), QByteArray("new"));
    }

    void NotesOfTheThirdVersionComeInTheirCodePage()
    {
        const QByteArray old = Jet3Planner(200000); // longer than 16 bits can count
        SetContent(m_path, old);
        SetContent(m_kept, "mine");
        QCOMPARE(DBEngine::CompactDatabase(m_path, m_dummy, plannerTables),
                 QStringList({schema::Alarms, schema::Recursions}));
        QFile::remove(m_dummy);
        QString text;
        QVERIFY2(Convert(&text) == 0, qPrintable(text));
        const auto notes = Notes();
        QCOMPARE(notes.size(), 10);
        for (const auto& note : notes)
            QCOMPARE(note[1], QByteArray("žluť").repeated(note[0].mid(7).toInt() / 4));
        QCOMPARE(Ask(m_path, "SELECT DISTINCT qmtFontSize, \"Database Date\", qmtFontName IS NULL FROM \"QMT Table\""),
                 QList<QByteArrayList>({{"8.25", "1997-01-01 12:00:00.000", "1"}}));
        QCOMPARE(Ask(m_path, "SELECT count(*) FROM \"QMT Table\" WHERE qmtFontBold"), QList<QByteArrayList>({{"0"}}));
        // As with any older planner, opening asks about missing tables.
        Database planner = DBEngine::OpenDatabase(m_path);
        QCOMPARE(planner.TableNames(), QStringList(schema::Notes));
        QCOMPARE(Content(m_kept), QByteArray("mine"));
        QCOMPARE(Content(m_folder->filePath(u"-old 'pl\u00e4n\n%s.old2.mdb"_s)), old);
    }

    void ARowOlderThanItsLastColumnsLacksThem()
    {
        std::vector<Jet3File::Column> columns = {{"qmtDate", jetstream::Text}, {"qmtText", jetstream::Memo}};
        Jet3File::Row whole = {"1997/1/1", "new"};
        for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "qmtFontBold"}) {
            columns.push_back({name, jetstream::Boolean});
            whole.push_back("");
        }
        columns.push_back({"qmtPadding", jetstream::Memo});
        whole.push_back("dots");
        Jet3File file(1252);
        file.AddTable("QMT Table", columns,
                      {whole, {"1996/1/1", "old"}}); // the second row has bytes of the first after it
        SetContent(m_path, file.Bytes());
        QString text;
        QVERIFY2(Convert(&text) == 0, qPrintable(text));
        QCOMPARE(Ask(m_path, "SELECT qmtText, qmtFontBold, coalesce(qmtPadding, 'null') FROM \"QMT Table\""),
                 QList<QByteArrayList>({{"new", "1", "dots"}, {"old", "0", "null"}}));
    }

    void AnEncodedPlannerIsReadInItsCodePage()
    {
        QCOMPARE(m_sample.count(Wide(u"Leap day"_s)), 1);
        QByteArray encoded = m_sample;
        encoded.replace(Wide(u"Leap day"_s), Wide(u"L\u20acap d\u00e3y"_s));
        constexpr quint32 key = 0x5EED1234;
        constexpr qsizetype pageSize = 4096;
        for (qsizetype page = 1; page * pageSize < encoded.size(); ++page)
            Rc4(encoded, page * pageSize, pageSize, LittleEndian(key ^ static_cast<quint32>(page)));
        const auto withKey = [&](quint32 told) {
            QByteArray file = encoded;
            for (int i = 0; i < 4; ++i)
                file[0x3E + i] = static_cast<char>(file[0x3E + i] ^ static_cast<char>(told >> 8 * i));
            return file;
        };
        SetContent(m_path, withKey(key + 1));
        QString text;
        QCOMPARE(Convert(&text), NotADatabase);
        QVERIFY2(text.contains("encoded"_L1), qPrintable(text));
        SetContent(m_path, withKey(key));
        QCOMPARE(Convert(), 0);
        QCOMPARE(Notes().value(1), (QByteArrayList{"2000/2/29", RichText("L\x80"
                                                                         "ap d\xE3y \\b meeting\\b0  at 9:00")}));
    }

    void WhatIsNoReadablePlannerIsLeftAlone()
    {
        QByteArray locked = m_sample, locked3 = Jet3Planner(10), version = m_sample;
        locked[0x42] = static_cast<char>(locked[0x42] ^ 'p');
        locked3[0x42] = static_cast<char>(locked3[0x42] ^ 'p');
        version[0x14] = 9;
        Jet3File other(1252), keyless(1252), twice(1252);
        other.AddTable("Customers", {{"Name", jetstream::Text}}, {{"Ann"}});
        keyless.AddTable("QMT Table", {{"qmtText", jetstream::Memo}}, {{"note"}});
        twice.AddTable("QMT Table", {{"qmtDate", jetstream::Text}}, {{"1997/1/1"}, {"1997/1/1"}});
        const auto flipped = [&](int page, int byte) {
            QByteArray bytes = m_sample;
            bytes[4096 * page + byte] = static_cast<char>(bytes[4096 * page + byte] ^ 0x10);
            return bytes;
        };
        const std::tuple<const char*, QByteArray, QString> rows[] = {
            {"password", locked, u"password"_s},
            {"password, third version", locked3, u"password"_s},
            {"unknown version", version, u"version"_s},
            {"no planner", other.Bytes(), u"no planner"_s},
            {"no days", keyless.Bytes(), u"qmtDate"_s},
            {"a day twice", twice.Bytes(), u"damaged"_s},
            {"head alone", m_sample.first(64), {}},
            {"bit of page 43", flipped(43, 56), u"damaged"_s},
            {"bit of page 44", flipped(44, 15), u"damaged"_s},
        };
        for (const auto& [name, bytes, word] : rows) {
            const InRow inRow(this, name);
            SetContent(m_path, bytes);
            QString text;
            QCOMPARE(Convert(&text), NotADatabase);
            QVERIFY2(text.contains(word), qPrintable(text));
            QCOMPARE(Content(m_path), bytes);
            QCOMPARE(Planners(), QStringList(QFileInfo(m_path).fileName()));
        }
    }

    void WhoHasItOpenInTheOlderEngineKeepsIt()
    {
        constexpr off_t userByte = 0x10000001;
        ByteLocks others(wholefiles::LockFileOf(m_path), 0600, ::getgid());
        QVERIFY(others.TryLock(userByte, ByteLocks::Exclusive));
        QString text;
        QCOMPARE(Convert(&text), InUse);
        QVERIFY2(text.contains("older engine"_L1), qPrintable(text));
        QCOMPARE(Content(m_path), m_sample);
        others.Unlock(userByte);
        QCOMPARE(Convert(), 0);
    }

    void NoReaderIsWaitedForOrBelieved()
    {
        const auto patient = qScopeGuard([] { JetRows::SetPatienceForTests({}); });
        const std::pair<const char*, QByteArray> rows[] = {
            {"silent", "exec sleep 100"},
            {"endless", "exec yes"},
            {"no program", "none"},
            {"dead", "kill -9 $$"},
            {"unfinished", "\"" READER "\" \"$@\" | head -c 3000"},
            {"with a table of its own", "\"" READER "\" MSysObjects \"$@\" MSysQueries 'QMT Table'"},
            {"changing", "test -e \"$0.x\" && exec \"" READER "\" 'QMT Table'; touch \"$0.x\"; "
                         "exec \"" READER "\" \"$@\""},
        };
        for (const auto& [name, script] : rows) {
            const InRow inRow(this, name);
            UseReader(script);
            // The others end by themselves. To an impatient test a slow one would pass for silent.
            JetRows::SetPatienceForTests(std::chrono::milliseconds(QByteArrayView(name) == "silent" ? 500 : 0));
            QVERIFY(Convert() != 0);
            QCOMPARE(Content(m_path), m_sample);
            QCOMPARE(Planners(), QStringList(QFileInfo(m_path).fileName()));
        }
    }

    void DamageNeverCrashesHangsOrChangesAFile()
    {
        for (const QByteArray& whole : {Jet3Planner(3000), m_sample})
            DamageIn(whole);
    }

    void NoLostPageTakesRowsAlong()
    {
        Jet3File third = NotesOfTheThirdVersion(3000);
        third.AddTable("Alarm Table", {{"Alarm Date", jetstream::Text}, {"Alarm Note", jetstream::Memo}},
                       {{"1997/1/1", "up"}, {"1997/1/2", QByteArray(500, 'x')}});
        third.AddTable("Recursion Table", {{"Start Date", jetstream::Text}, {"Recursion Text", jetstream::Memo}},
                       {{"1997/1/1", "again"}});
        LosePagesOf(third.Bytes(), 2048);
        LosePagesOf(m_sample, 4096);
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(JetTest)
#include "jettest.moc"
