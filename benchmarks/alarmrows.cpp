#include "alarms/alarmclock.h"
#include "alarms/alarmfiles.h"
#include "alarms/alarmrecords.h"
#include "alarms/alarmrules.h"
#include "alarms/alarmspan.h"
#include "alarms/openplanneralarms.h"
#include "plannerfile/schema.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/folders.h"
#include "rows.h"
#include "state/moddate.h"
#include "state/plannerstate.h"

#include <QFile>

namespace {
constexpr int AlarmsInAll = 10000, AlarmsADay = 8;
constexpr Turns ManyTicks{30, 20};

QString DateKeyOf(const QDateTime& time)
{
    const QDate day = time.date();
    return KeyOf({day.year(), day.month(), day.day()});
}

// Years of alarms, today's included; none is due.
struct AlarmPlanner
{
    AlarmPlanner()
    {
        Database file = DBEngine::CreateDatabase(Path, schema::Locale);
        for (const TableDef& table : {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()})
            file.Append(table);
        Recordset alarms = schema::OpenAlarms(file);
        WriteTransaction writing(file);
        for (int i = 0; i < AlarmsInAll; ++i) {
            const QDateTime day = Noon.addDays(i / AlarmsADay - AlarmsInAll / AlarmsADay / 2);
            subAddAlarmRecord(alarms, {DateKeyOf(day), u"11:59"_s, RtfOf(MakeNote(i)), {}, true});
        }
        writing.Commit();
        alarms.Close();
        file.Close();
        QFile::copy(Path, RawPath);
        Planner = DBEngine::OpenDatabase(Path, true);
        Alarms = schema::OpenAlarms(Planner);
        Raw = std::make_unique<RawPlanner>(RawPath);
    }

    // The month's window keeps its planner for the other rows.
    void Swap()
    {
        std::swap(g_dbPlanner, Planner);
        std::swap(g_rsAlarm, Alarms);
    }

    void SetNextMinute() { desktopclock::SetForTests(Noon.addSecs(60 * (++Minute % (12 * 60)))); }
    bool HasAlarm() { return Raw->HasAlarm(DateKeyOf(Noon), u"12:00"_s); }

    const QDateTime Noon{QDate::currentDate(), QTime(12, 0)};
    const QString Path = folders::ApplicationDirectory() + u"/alarms.mdb"_s;
    const QString RawPath = folders::ApplicationDirectory() + u"/rawalarms.mdb"_s;
    int Minute = 0;
    Database Planner;
    Recordset Alarms;
    std::unique_ptr<RawPlanner> Raw;
};
} // namespace

void AddAlarmRows(const TakeRow& add, QWidget& client)
{
    static std::unique_ptr<AlarmPlanner> planner;
    static PutOffAlarms putOff(alarmfiles::PutOff());
    static OpenPlannerAlarms source;
    static MissedAlarms missed(source, alarmfiles::Heard());
    static AlarmClock clock(source, &client, putOff, missed);
    static bool found = false;
    const auto make = [] {
        if (!planner) planner = std::make_unique<AlarmPlanner>();
    };
    add({"alarm clock, 10,000 alarms",
         {[] { clock.tmAlarm_Timer(); }, [=] { make(), planner->SetNextMinute(), planner->Swap(); },
          [] {
              const bool lookedThrough = g_rsAlarm.EOF_();
              planner->Swap();
              desktopclock::SetForTests({});
              return lookedThrough;
          }},
         {[] { found = planner->HasAlarm(); }, make, [] { return !found; }},
         ManyTicks});
    static std::size_t listed = 0;
    static int walked = 0;
    add({"alarms of a week, of 10,000",
         {[] {
              const QDateTime noon = WallMinute(planner->Noon);
              listed = AlarmsBetween(planner->Planner, noon, noon.addDays(7)).size();
          },
          make, [] { return listed == 7 * AlarmsADay; }},
         {[] { walked = planner->Raw->CountAlarms(); }, make, [] { return walked == AlarmsInAll; }},
         Turns{10}});
}
