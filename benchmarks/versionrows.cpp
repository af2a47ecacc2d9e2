#include "notes/dayversions.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/desktop/clock.h"
#include "rows.h"
#include "state/plannerstate.h"

#include <QFile>

#include <sqlite3.h>

namespace {
constexpr int Backups = 10;
constexpr Turns SomeTurns{30, 4};
const QString Key = u"1990/1/1"_s; // no shown cell has it

void WriteNote(int number)
{
    Recordset notes = schema::OpenNotes(g_dbPlanner);
    notes.Seek(schema::Equal, Key);
    if (notes.NoMatch())
        notes.AddNew();
    else
        notes.Edit();
    notes.SetField(schema::DateField, Key);
    notes.SetField(schema::TextField, RtfOf(MakeNote(number)));
    notes.Update();
}

// Ten backups of the month's planner, in each of which the day has another text.
const QMap<QDate, QString>& Made()
{
    static const QMap<QDate, QString> made = [] {
        const BackupLook before = g_lastLook;
        for (int day = 1; day <= Backups; ++day) {
            WriteNote(day);
            desktopclock::SetForTests(QDateTime(QDate(2000, 1, day), QTime(9, 0)));
            BackUpBeforeSave();
        }
        desktopclock::SetForTests({});
        g_lastLook = before;
        return BackupsOf(g_sNotesFile);
    }();
    return made;
}

bool LookUp(const QString& path)
{
    sqlite3* file = nullptr;
    sqlite3_stmt* find = nullptr;
    sqlite3_open_v2(QFile::encodeName(path).constData(), &file, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v2(file, R"(SELECT "qmtText" FROM "QMT Table" WHERE "qmtDate" = '1990/1/1')", -1, &find, nullptr);
    const bool isFound = sqlite3_step(find) == SQLITE_ROW && sqlite3_column_bytes(find, 0) > 0;
    sqlite3_finalize(find);
    sqlite3_close(file);
    return isFound;
}
} // namespace

void AddVersionRow(const TakeRow& add)
{
    static std::size_t found = 0;
    const auto ready = [] { Made(), found = 0; };
    const auto foundAll = [] { return found >= Backups - 1; }; // today's backup may have pushed one out
    add({"list of a day's versions",
         {[] { found = VersionsOf(Key, "{\\rtf1 present}").found.size(); }, ready, foundAll},
         {[] { found = std::size_t(std::ranges::count_if(Made(), LookUp)); }, ready, foundAll},
         SomeTurns});
}
