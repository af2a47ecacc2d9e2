#include "alarms/followedplanner.h"

#include "alarms/alarmfiles.h"
#include "alarms/missedalarms.h"
#include "plannerfile/schema.h"
#include "planners.h"
#include "platform/desktop/clock.h"
#include "platform/engine/dbengine.h"
#include "settingsfile.h"
#include "support.h"
#include "testmain.h"

// The planner that the clock in the tray follows.
class FollowedPlannerTest : public QObject
{
    Q_OBJECT

    TemporaryFolders m_folders;
    QString m_path;

    void Add(const char* date, const char* time, const QByteArray& note) const
    {
        Database planner = DBEngine::OpenDatabase(m_path);
        Recordset alarms = schema::OpenAlarms(planner);
        subAddAlarmRecord(alarms, {QString::fromLatin1(date), QString::fromLatin1(time), note, u"x.wav"_s, true});
    }
    static QByteArrayList Notes(const std::vector<Alarm>& alarms)
    {
        QByteArrayList notes;
        for (const Alarm& alarm : alarms)
            notes += alarm.note;
        return notes;
    }
    static QDateTime Wall(int day, int hour) { return {QDate(1999, 3, day), QTime(hour, 0), Qt::UTC}; }

private Q_SLOTS:
    void init()
    {
        m_path = m_folders.Path(u"mine.mdb"_s);
        QFile::remove(m_path);
        MakePlanner(m_path).Close();
    }

    void FollowsTheFileAndHoldsNothing()
    {
        QVERIFY(QFile::rename(m_path, m_path + u".moved"_s)); // a drive that is not there yet
        FollowedPlanner planner(m_path);
        QVERIFY_EXCEPTION_THROWN(planner.Between(Wall(12, 10), Wall(17, 10)), RunTimeError); // nobody takes it for none
        QVERIFY(QFile::rename(m_path + u".moved"_s, m_path));
        const QDate today(1999, 3, 17);
        QCOMPARE(planner.Due(today, u"09:30"_s).size(), 0u);
        Add("1999/3/17", "09:30", "first");
        Add("1999/3/17", "09:30", "second");
        Add("1999/3/18", "08:00", "tomorrow");
        Add("1999/3/14", "08:00", "past");
        QCOMPARE(Notes(planner.Due(today, u"09:30"_s)), QByteArrayList({"first", "second"}));
        QCOMPARE(Notes(planner.Between(Wall(17, 10), Wall(19, 0))), QByteArrayList({"tomorrow"}));
        QCOMPARE(Notes(planner.Between(Wall(12, 10), Wall(17, 10))), QByteArrayList({"past", "first", "second"}));
        Add("1999/3/17", "09:30", "third");
        {
            const Environment noRoom("TMPDIR", "/dev/null"); // the disk is full
            QCOMPARE(planner.Due(today, u"09:30"_s).size(), 2u);
        }
        {
            // One person alone may have it.
            Database alone = DBEngine::OpenDatabase(m_path, true);
            QCOMPARE(planner.Due(today, u"09:30"_s).size(), 3u);
        }
        QVERIFY(QFile::remove(m_path));
        QCOMPARE(planner.Due(today, u"09:30"_s).size(), 3u); // as it is known
        MakePlanner(m_path).Close();
        QCOMPARE(planner.Due(today, u"09:30"_s).size(), 0u);
        DBEngine::DeleteDatabase(m_path);
        QVERIFY(!QFile::exists(m_path));
    }

    // What could not be read is listed later.
    void AFailedLookIsRepeated()
    {
        SetIni("ALARMS", "MISSED", "1");
        Add("1999/3/17", "09:30", "tea");
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(10, 0)));
        HeardAlarms(alarmfiles::Heard()).SetUntil(m_path, Wall(17, 8));
        FollowedPlanner planner(m_path);
        MissedAlarms missed(planner, alarmfiles::Heard());
        QByteArrayList shown;
        missed.SetShow([&](const auto& alarms) { shown = Notes(alarms); });
        missed.Follow(false);
        QVERIFY(QFile::rename(m_path, m_path + u".moved"_s));
        QVERIFY_EXCEPTION_THROWN(missed.ListUpTo(Wall(17, 10)), RunTimeError);
        missed.Looked(Wall(17, 10));
        QVERIFY(QFile::rename(m_path + u".moved"_s, m_path));
        missed.ListUpTo(Wall(17, 11));
        QCOMPARE(shown, QByteArrayList({"tea"}));
        desktopclock::SetForTests({});
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(FollowedPlannerTest)
#include "followedplannertest.moc"
