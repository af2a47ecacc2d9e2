#include "tenyears.h"

#include "painting.h"
#include "plannerfile/schema.h"
#include "platform/desktop/twips.h"
#include "platform/engine/dbengine.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"
#include "state/modshow.h"

#include <QDate>
#include <QDir>

namespace {
void WriteNotes(Recordset& notes, YearMonth month)
{
    const QStringList keys = KeysOf(month);
    for (int cell = 1; cell <= BoxCount; ++cell) {
        notes.AddNew();
        notes.SetField(u"qmtDate"_s, keys[cell - 1]);
        notes.SetField(u"qmtText"_s, RtfOf(MakeNote(NoteNumber(month, cell))));
        notes.Update();
    }
}

template <typename Setting>
void Put(const QString& file, const Setting& setting, const QString& value)
{
    WritePrivateProfileStringA(setting.section.toString(), setting.key.toString(), value, file);
}

void WriteSettings(const QString& file, const QString& planner)
{
    const ProfileBatch once(file);
    Put(file, settings::LoadCondition, u"1"_s);
    Put(file, settings::LoadFilePath, planner);
    Put(file, settings::LoadFileTitle, QFileInfo(planner).fileName());
    Put(file, settings::LoadWorkgroup, u"0"_s);
    Put(file, settings::MainLeft, u"0"_s);
    Put(file, settings::MainTop, u"0"_s);
    Put(file, settings::MainRight, QString::number(ToTwips(WindowSize.width())));
    Put(file, settings::MainBottom, QString::number(ToTwips(WindowSize.height())));
}
} // namespace

YearMonth ThisMonth()
{
    const QDate today = QDate::currentDate();
    return {today.year(), today.month()};
}

QStringList KeysOf(YearMonth month)
{
    QStringList keys;
    for (const DaySlot& slot : MonthGrid(Weekday(month.year, month.month, 1), MonthLength(month.year, month.month))) {
        keys += u"%1/%2/%3"_s.arg(month.year).arg(month.month).arg(slot.Caption().trimmed());
    }
    return keys;
}

int NoteNumber(YearMonth month, int cell)
{
    return (month.year * 12 + month.month) * BoxCount + cell;
}

void WritePlanner(const QString& path, int years)
{
    Database planner = DBEngine::CreateDatabase(path, schema::Locale);
    for (const TableDef& table : {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()})
        planner.Append(table);
    Recordset notes = planner.OpenTable(schema::Notes);
    WriteTransaction writing(planner);
    const int first = ThisMonth().year - years / 2;
    for (YearMonth month{first, 1}; month.year < first + years; month = month.Next())
        WriteNotes(notes, month);
    writing.Commit();
}

void Furnish(const Home& home, const QString& planner)
{
    const QString settingsFolder = home.Config() + u"/orrelin"_s;
    QDir().mkpath(settingsFolder);
    QDir().mkpath(home.Data());
    QFile::copy(planner, home.Planner());
    WriteSettings(settingsFolder + u'/' + settings::PlannerIni.toString(), home.Planner());
}

void UseHome(const Home& home)
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.Config()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.Data()));
}
