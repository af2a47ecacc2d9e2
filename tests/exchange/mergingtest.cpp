#include "exchange/merging.h"

#include "errorof.h"
#include "exchange/changednote.h"
#include "exchange/extraction.h"
#include "files.h"
#include "planners.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/engine/testserver.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfwriter.h"
#include "support.h"
#include "testmain.h"

#include <QTextCursor>

// An import in a planner that has notes of its own. The clock says 17 March 1999, 10:00.
class MergingTest : public QObject
{
    Q_OBJECT

    std::optional<TemporaryFolders> m_folders;
    Database m_planner;

    static ImportedEntry Entry(const QString& id, const QByteArray& text, const QStringList& keys)
    {
        ImportedEntry entry;
        entry.id = id;
        for (const QString& key : keys)
            entry.notes.push_back({*DayOfKey(key), 0, text});
        entry.repeats = keys.size() > 1;
        return entry;
    }

    // What the import did: added, changed, present.
    QList<int> Merge(const std::vector<ImportedEntry>& entries)
    {
        const MergeReport report = MergeInto(m_planner, entries, QDateTime({1999, 3, 17}, {10, 0}), u"tune.mid"_s);
        m_refused = report.refusedDays;
        m_over = report.over;
        return {report.added, report.changed, report.present};
    }
    QStringList m_refused;
    int m_over = 0;
    QString m_name; // on the server

    // "3/4: a|b" for a note, "3/4 10:30 a" for an alarm, "WEEKLY 3/4 - 3/11 a" for an event; all of March 1999.
    QStringList Content() const
    {
        const Extract extract = ExtractFrom(m_planner, {}, {});
        const auto name = [](const GridDay& day) { return u"%1/%2"_s.arg(day.month).arg(day.day); };
        const auto text = [](const QByteArray& rtf) { return LinesOfNote(rtf).replace(u'\n', u'|'); };
        QStringList content;
        for (const ExtractedNote& note : extract.notes)
            content += name(note.day) + (note.memo ? u" Memo"_s : QString()) + u": "_s + text(note.rtf);
        for (const ExtractedAlarm& alarm : extract.alarms)
            content += u"%1 at %2 %3"_s.arg(name(alarm.day)).arg(alarm.minute).arg(text(alarm.rtf));
        for (const ExtractedEvent& event : extract.events)
            content +=
                u"%1 %2 - %3 %4"_s.arg(WordOf(event.frequency), name(event.first), name(event.last), text(event.rtf));
        return content;
    }

    void SetNote(const QString& key, const QByteArray& text)
    {
        Recordset notes = schema::OpenNotes(m_planner);
        notes.Seek(schema::Equal, key);
        if (notes.NoMatch())
            notes.AddNew();
        else
            notes.Edit();
        notes.SetField(schema::DateField, key);
        notes.SetField(schema::TextField, text);
        notes.Update();
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }
    void init()
    {
        QFETCH_GLOBAL(bool, onServer);
        m_folders.emplace();
        const QString path = m_folders->Path(u"own.mdb"_s);
        m_planner = MakePlanner(path);
        if (onServer) {
            m_planner.Close();
            m_name = TestServer::Get().Take(path);
            m_planner = DBEngine::OpenDatabase(path);
        }
        SetNote(u"1999/3/4"_s, "mine");
    }
    void cleanup()
    {
        m_planner.Close();
        m_folders.reset();
    }

    void aSecondImportChangesNothing()
    {
        std::vector entries{Entry(u"b"_s, "10:30 Dentist\nMill Lane", {u"1999/3/4"_s}),
                            Entry(u"a"_s, "09:00 Ann", {u"1999/3/4"_s}),
                            Entry(u"c"_s, "Holiday", {u"1999/3/4"_s}),
                            Entry(u"d"_s, "Run", {u"1999/3/4"_s, u"1999/3/11"_s, u"1999/3/25"_s}),
                            Entry({}, "Ann", {u"1999/3/5"_s}),
                            Entry({}, "Ann", {u"1999/3/5"_s})};
        entries[0].alarms = {{{1999, 3, 18}, 630, "10:30 Dentist"}, {{1999, 3, 17}, 590, "over"}};
        entries[4].notes.push_back({{1999, 3, 0}, 2, "Memo"});
        entries[3].notes.push_back({{1999, 4, 1}, 0, "Walk"}); // once: no event
        entries[3].notes.push_back({{1999, 4, 8}, 0, "Swim"});
        entries[3].notes.push_back({{1999, 4, 9}, 0, "Swim"});
        const QStringList content{u"3/4: mine|Holiday|Run|09:00 Ann|10:30 Dentist|Mill Lane"_s,
                                  u"3/5: Ann|Ann"_s,
                                  u"3/11: Run"_s,
                                  u"3/25: Run"_s,
                                  u"3/0 Memo: Memo"_s,
                                  u"4/1: Walk"_s,
                                  u"4/8: Swim"_s,
                                  u"4/9: Swim"_s,
                                  u"3/18 at 630 10:30 Dentist"_s,
                                  u"WEEKLY 3/4 - 3/25 Run"_s,
                                  u"DAILY 4/8 - 4/9 Swim"_s};
        entries.push_back(Entry(u"e"_s, {}, {}));
        entries[6].alarms = {{{1999, 3, 17}, 590, "over"}};
        QCOMPARE(Merge(entries), QList({6, 0, 0}));
        QCOMPARE(m_over, 1);
        QCOMPARE(Content(), content);
        QCOMPARE(Merge(entries), QList({0, 0, 6}));
        QCOMPARE(Content(), content);
        // The same file from another calendar, or after a Repair that knows no such table.
        for (ImportedEntry& entry : entries)
            entry.id += u'2';
        QCOMPARE(Merge(entries), QList({0, 0, 6}));
        QCOMPARE(Content(), content);
        // A text that a person has deleted stays away.
        for (ImportedEntry& entry : entries)
            entry.id.chop(1);
        SetNote(u"1999/3/11"_s, " ");
        QCOMPARE(Merge(entries), QList({0, 0, 6}));
        QVERIFY(!Content().contains(u"3/11: Run"));
    }

    void aChangedEntryReplacesItsOwnLines()
    {
        std::vector entries{Entry(u"a"_s, "Dentist", {u"1999/3/4"_s, u"1999/3/5"_s, u"1999/3/6"_s}),
                            Entry(u"b"_s, "Ann", {u"1999/3/5"_s})};
        entries[0].alarms = {{{1999, 3, 18}, 630, "Dentist"}};
        Merge(entries);
        SetNote(u"1999/3/6"_s, "Dentist at nine");
        entries[0] = Entry(u"a"_s, "Doctor", {u"1999/3/5"_s, u"1999/3/6"_s, u"1999/3/8"_s});
        entries[0].alarms = {{{1999, 3, 18}, 640, "Doctor"}};
        QCOMPARE(Merge(entries), QList({0, 1, 1}));
        const QStringList content{u"3/4: mine"_s,   u"3/5: Ann|Doctor"_s,    u"3/6: Dentist at nine|Doctor"_s,
                                  u"3/8: Doctor"_s, u"3/18 at 640 Doctor"_s, u"DAILY 3/5 - 3/8 Doctor"_s};
        QCOMPARE(Content(), content);
        entries[0] = Entry(u"a"_s, "Doctor", {u"1999/4/5"_s});
        QCOMPARE(Merge(entries), QList({0, 1, 1}));
        QCOMPARE(Content(), QStringList({u"3/4: mine"_s, u"3/5: Ann"_s, u"3/6: Dentist at nine"_s, u"4/5: Doctor"_s}));
        Recordset notes = schema::OpenNotes(m_planner);
        notes.Seek(schema::Equal, u"1999/3/8"_s);
        QVERIFY(notes.NoMatch()); // as after a save of an emptied day
    }

    // What another program has made of an export.
    void aNoteComesBackOnce()
    {
        SetNote(u"1999/3/8"_s, "{\\rtf1 Mon \\par Rent\\par {\\pict\\pngblip 00}\\par Foo{\\pict\\pngblip 00}\\par}");
        SetNote(u"1999/3/9"_s, "Bo\nAnn\nBo");
        const QStringList before = Content();
        QCOMPARE(Merge({Entry(u"a"_s, "Mon\nFoo", {u"1999/3/8"_s}), Entry(u"b"_s, "Rent", {u"1999/3/8"_s}),
                        Entry(u"c"_s, "Bo", {u"1999/3/9"_s}), Entry(u"d"_s, "Bo\nAnn", {u"1999/3/9"_s})}),
                 QList({0, 0, 4}));
        QCOMPARE(Content(), before);
        // Pictures alone are compared.
        const auto picture = [](QRgb color) {
            QTextDocument note;
            QTextCursor cursor(&note);
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(color);
            InsertPicture(cursor, image, {});
            return WriteRtf(note);
        };
        for (const int isNew : {1, 0})
            QCOMPARE(Merge({Entry({}, picture(0xff0000), {u"1999/3/10"_s}), Entry({}, picture(255), {u"1999/3/10"_s})}),
                     QList({2 * isNew, 0, 2 - 2 * isNew}));
    }

    // What an import does not speak of stays: days behind the end that the person chooses now, alarms without a tick,
    // and lines that the person has written.
    void whatIsNotMeantStays()
    {
        std::vector entries{Entry(u"a"_s, "Run", {u"1999/3/5"_s, u"1999/3/6"_s, u"1999/3/7"_s}),
                            Entry(u"b"_s, "mine", {u"1999/3/4"_s})};
        entries[0].isEndless = true;
        entries[0].alarms = {{{1999, 3, 18}, 630, "Run"}};
        Merge(entries);
        const QStringList all{u"3/4: mine"_s, u"3/5: Run"_s,        u"3/6: Run"_s,
                              u"3/7: Run"_s,  u"3/18 at 630 Run"_s, u"DAILY 3/5 - 3/7 Run"_s};
        QCOMPARE(Content(), all);
        entries[0].notes.pop_back();
        entries[0].alarms.clear();
        entries[0].takesAlarms = false;
        entries[1] = Entry(u"b"_s, "theirs", {u"1999/3/9"_s});
        QCOMPARE(Merge(entries), QList({1, 0, 1}));
        QStringList more = all;
        more.insert(4, u"3/9: theirs"_s);
        QCOMPARE(Content(), more);
        entries[0].isEndless = false;
        entries[0].takesAlarms = true;
        Merge(entries);
        QCOMPARE(Content(), QStringList({u"3/4: mine"_s, u"3/5: Run"_s, u"3/6: Run"_s, u"3/9: theirs"_s,
                                         u"DAILY 3/5 - 3/6 Run"_s}));
    }

    // Forms and pictures stay, of the note as of the text.
    void theFormStays()
    {
        SetNote(u"1999/3/4"_s, "{\\rtf1\\b mine\\par}");
        const ImportedEntry entry = Entry(u"a"_s, "{\\rtf1\\i its\\par own}", {u"1999/3/4"_s});
        Merge({entry});
        const QByteArray rtf = ExtractFrom(m_planner, {}, {}).notes.at(0).rtf;
        QVERIFY2(rtf.contains("\\b\\f0\\fs24 mine\\par") && rtf.contains("\\b0\\i its\\par"), rtf);
        Merge({Entry(u"a"_s, "new", {u"1999/3/5"_s})});
        QCOMPARE(Content(), QStringList({u"3/4: mine"_s, u"3/5: new"_s}));
    }

    // Others may hold a day; the next import tries it again.
    void aHeldDayIsListed()
    {
        const std::vector entries{Entry(u"a"_s, "Run", {u"1999/3/4"_s, u"1999/3/5"_s})};
        SetNote(u"1999/3/5"_s, "theirs");
        Database theirs = DBEngine::OpenDatabase(m_folders->Path(u"own.mdb"_s));
        Recordset held = schema::OpenNotes(theirs);
        held.Seek(schema::Equal, u"1999/3/5"_s);
        held.Edit();
        QCOMPARE(Merge(entries), QList({1, 0, 0}));
        QCOMPARE(m_refused, QStringList(u"1999/3/5"_s));
        held.Close();
        QCOMPARE(Merge(entries), QList({0, 1, 0}));
        QCOMPARE(m_refused, QStringList());
        QCOMPARE(Content(), QStringList({u"3/4: mine|Run"_s, u"3/5: theirs|Run"_s, u"DAILY 3/4 - 3/5 Run"_s}));
    }

    // Who may write notes may import, with or without the memory.
    void rightsOnTheServerMayBeFew()
    {
        QFETCH_GLOBAL(bool, onServer);
        if (!onServer) return;
        const QString place = u"orrelin_"_s + m_name, link = m_folders->Path(u"bob.mdb"_s);
        TestServer::Get().Ask(u"DO $$BEGIN CREATE ROLE bob LOGIN; EXCEPTION WHEN duplicate_object THEN END$$"_s);
        TestServer::Get().Ask(u"GRANT USAGE ON SCHEMA %1 TO bob"_s.arg(place));
        TestServer::Get().Ask(u"GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA %1 TO bob"_s.arg(place));
        SetContent(link, "Orrelin planner link 1\n" +
                             TestServer::Get().Uri(m_name).replace("ann@"_L1, "bob@"_L1).toUtf8() + '\n');
        Database own = std::exchange(m_planner, DBEngine::OpenDatabase(link));
        QCOMPARE(Merge({Entry(u"a"_s, "Run", {u"1999/3/5"_s})}), QList({1, 0, 0}));
        std::swap(own, m_planner);
        QVERIFY(!m_planner.TableNames().contains(schema::Imports));
        QCOMPARE(Merge({Entry(u"b"_s, "Swim", {u"1999/3/5"_s})}), QList({1, 0, 0}));
        std::swap(own, m_planner);
        QCOMPARE(Merge({Entry(u"a"_s, "Run", {u"1999/3/5"_s}), Entry(u"b"_s, "Walk", {u"1999/3/5"_s})}),
                 QList({1, 0, 1}));
        QCOMPARE(Content(), QStringList({u"3/4: mine"_s, u"3/5: Run|Swim|Walk"_s}));
        own.Close();
    }

    void aCancelLeavesNothing()
    {
        std::vector<ImportedEntry> entries;
        for (int day = 1; day <= 20; ++day)
            entries.push_back(Entry(QString::number(day), "Run", {u"1999/3/%1"_s.arg(day)}));
        longwork::SetWatch([steps = 0](double) mutable { return ++steps < 10; });
        QCOMPARE(ErrorOf([&] { Merge(entries); }), engineerrors::Cancelled);
        longwork::SetWatch(nullptr);
        QCOMPARE(Content(), QStringList{u"3/4: mine"_s});
        QVERIFY(!m_planner.TableNames().contains(schema::Imports));
    }
};

ORRELIN_TEST(MergingTest)
#include "mergingtest.moc"
