#include "alarms/followedplanner.h"

#include "plannerfile/schema.h"
#include "planners.h"
#include "platform/desktop/clock.h"
#include "platform/engine/dbengine.h"
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
        FollowedPlanner planner(m_path);
        const QDate today(1999, 3, 17);
        QCOMPARE(planner.Due(today, u"09:30"_s, true).size(), 0u);
        Add("1999/3/17", "09:30", "first");
        Add("1999/3/17", "09:30", "second");
        Add("1999/3/18", "08:00", "tomorrow");
        QCOMPARE(Notes(planner.Due(today, u"09:30"_s, true)), QByteArrayList({"first", "second"}));
        QCOMPARE(Notes(planner.Due(today, u"09:30"_s, false)), QByteArrayList({"first"}));
        QCOMPARE(Notes(planner.Between(Wall(17, 10), Wall(19, 0))), QByteArrayList({"tomorrow"}));
        {
            // One person alone may have it, and the clock goes on with what it knows.
            Database alone = DBEngine::OpenDatabase(m_path, true);
            QCOMPARE(planner.Due(today, u"09:30"_s, true).size(), 2u);
        }
        QVERIFY(QFile::rename(m_path, m_path + u".moved"_s));
        QCOMPARE(planner.Due(today, u"09:30"_s, true).size(), 2u);
        QVERIFY(QFile::rename(m_path + u".moved"_s, m_path));
        DBEngine::DeleteDatabase(m_path);
        QVERIFY(!QFile::exists(m_path));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(FollowedPlannerTest)
#include "followedplannertest.moc"
