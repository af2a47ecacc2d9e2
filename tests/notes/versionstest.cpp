#include "notes/dayversions.h"
#include "notes/journal.h"
#include "notes/rescuefiles.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/engine/enginetesting.h"
#include "program.h"
#include "testmain.h"

// The list of a day's former texts, without its window.
class VersionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_key = u"1999/3/17"_s;

    // The day's backup has the text before this one.
    void SaveOn(int day, const QByteArray& text) const
    {
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, day), QTime(9, 30)));
        QCOMPARE(BackUpBeforeSave(), QString());
        Recordset notes = schema::OpenNotes(g_dbPlanner);
        Write(notes, m_key, text);
    }
    static QString Backup(int day) { return BackupsOf(g_sNotesFile).value(QDate(1999, 3, day)); }
    QStringList Listed(const QByteArray& present = "present") const
    {
        QStringList listed;
        for (const DayVersion& version : VersionsOf(m_key, present).found)
            listed += u"%1 %2"_s.arg(version.when.date().day()).arg(PlainText(version.rtf));
        return listed;
    }
    QStringList Sources() const
    {
        QStringList sources;
        for (const DayVersion& version : VersionsOf(m_key, "present").found)
            sources += version.from + u": "_s + PlainText(version.rtf);
        sources.sort();
        return sources;
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"notes.mdb"_s);
    }
    void cleanup() { m_program.reset(); }

    void WhatAPersonTellsApartIsListed()
    {
        int day = 0;
        for (const char* text : {"one", "{\\rtf1 two}", "{\\rtf1\\ansi {two}}", "{\\rtf1\\b two}", " ", "six", "now"})
            SaveOn(++day, text);
        const QStringList all = {u"7 six"_s, u"5 two"_s, u"4 two"_s, u"2 one"_s};
        const auto backups = BackupsOf(g_sNotesFile);
        const QString folder = QFileInfo(backups.first()).path();
        const auto entries = [&] { return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden); };
        const QStringList before = entries();
        const QByteArray bytes = Content(backups.last());
        QCOMPARE(Listed("now"), all);
        QCOMPARE(Listed("{\\rtf1 {\\b two}}"), QStringList({u"7 six"_s, u"4 two"_s, u"2 one"_s}));
        Recordset notes = schema::OpenNotes(g_dbPlanner);
        notes.Seek(schema::Equal, m_key);
        notes.Delete();
        QCOMPARE(Listed({}), all); // the day is gone
        QVERIFY(VersionsOf(u"1999/3/18"_s, {}).found.empty());
        QCOMPARE(entries(), before); // nothing is written beside a backup, nor in it
        QCOMPARE(Content(backups.last()), bytes);
    }

    void WhatCannotBeReadIsPassedOver()
    {
        for (int day = 1; day <= 6; ++day)
            SaveOn(day, QByteArray::number(day));
        SetContent(Backup(3), "no planner");
        SetContent(Backup(4), Content(Backup(4)).first(5000));
        SetContent(Backup(5) + u"-journal"_s, "beside"); // as if left within a write
        QFile::remove(Backup(6));
        QVERIFY(QFile::link(u"/nowhere"_s, QFileInfo(Backup(5)).path() + u"/notes 1999-03-06.mdb"_s));
        QCOMPARE(Listed(), QStringList(u"2 1"_s));
        const QStringList remarks = VersionsOf(m_key, {}).remarks;
        QCOMPARE(remarks.size(), 4); // and where the backups are
        QVERIFY2(remarks.join(u' ').contains(u"notes 1999-03-03.mdb"_s), qPrintable(remarks.join(u' ')));
        QTest::qWait(50);
        QVERIFY(!QApplication::activeModalWidget()); // the open planner is not said to be damaged
    }

    void WhatIsNotSavedIsListedAndStays()
    {
        QDir().mkpath(RescueFolder());
        for (const char* name : {"notes 1999-3-17.rtf", "notes 1999-3-17 (2).rtf", "notes 1999-3-1.rtf",
                                 "notes 1999-3-17x.rtf", "more notes 1999-3-17.rtf"})
            SetContent(RescueFolder() + u'/' + QString::fromLatin1(name), name);
        QString reason;
        UnsavedNotes mine, others;
        mine.Keep(g_sNotesFile, m_key, {"typed", {}, {}});
        others.Keep(m_program->folders.Path(u"other.mdb"_s), m_key, {"elsewhere", {}, {}});
        QVERIFY(Journal::LeaveBehind(mine, reason) && Journal::LeaveBehind(others, reason));
        SaveOn(17, "kept");
        QCOMPARE(BackUpBeforeImport(), QString());
        const QStringList wanted = {u"Before the last import: kept"_s, u"Not saved when Orrelin ended: typed"_s,
                                    u"Unsaved note: notes 1999-3-17 (2).rtf"_s, u"Unsaved note: notes 1999-3-17.rtf"_s};
        QCOMPARE(Sources(), wanted);
        QCOMPARE(Sources(), wanted);
        SetContent(folders::ApplicationDirectory() + u"/journal/1.notes"_s, "damaged");
        const DayVersions rest = VersionsOf(m_key, "present");
        QCOMPARE(rest.found.size(), std::size_t(3));
        QVERIFY2(rest.remarks.join(u' ').contains(u"damaged-1"_s), qPrintable(rest.remarks.join(u' ')));
    }
};

ORRELIN_TEST(VersionsTest)
#include "versionstest.moc"
