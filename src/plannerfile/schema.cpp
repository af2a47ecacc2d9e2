#include "plannerfile/schema.h"

namespace schema {
TableDef NotesTable()
{
    // The date field and the seven of the font were never written; older programs expect to find them.
    return {Notes,
            {{QStringLiteral("Database Date"), dbDate},
             {QStringLiteral("qmtDate"), dbText, 15},
             {QStringLiteral("qmtText"), dbMemo},
             {QStringLiteral("qmtFontName"), dbText, 40},
             {QStringLiteral("qmtFontSize"), dbSingle},
             {QStringLiteral("qmtFontBold"), dbBoolean},
             {QStringLiteral("qmtFontItalic"), dbBoolean},
             {QStringLiteral("qmtFontUnderline"), dbBoolean},
             {QStringLiteral("qmtFontStrikeThru"), dbBoolean},
             {QStringLiteral("qmtFontColor"), dbLong},
             {QStringLiteral("qmtPadding"), dbMemo}},
            {{NotesIndex, QStringLiteral("-qmtDate"), true}}};
}

TableDef AlarmsTable()
{
    return {Alarms,
            {{QStringLiteral("Alarm Date"), dbText, 15},
             {QStringLiteral("Alarm Time"), dbText, 5},
             {QStringLiteral("Alarm Note"), dbMemo},
             {QStringLiteral("Alarm Music"), dbText, 25},
             {QStringLiteral("Music Path"), dbText, 255},
             {QStringLiteral("Silence"), dbBoolean}},
            {{AlarmsIndex, QStringLiteral("-Alarm Date"), false}}};
}

TableDef RecursionsTable()
{
    return {Recursions,
            {{QStringLiteral("Start Date"), dbText, 15},
             {QStringLiteral("End Date"), dbText, 15},
             {QStringLiteral("Frequency"), dbText, 10},
             {QStringLiteral("Recursion Text"), dbMemo}},
            {{RecursionsIndex, QStringLiteral("-Start Date"), false}}};
}

std::vector<TableDef> AllTables()
{
    return {NotesTable(), AlarmsTable(), RecursionsTable()};
}

namespace {
Recordset OpenIndexed(Database& planner, const QString& table, const QString& index)
{
    Recordset records = planner.OpenTable(table);
    records.SetIndex(index);
    return records;
}
} // namespace

Recordset OpenNotes(Database planner)
{
    return OpenIndexed(planner, Notes, NotesIndex);
}

Recordset OpenAlarms(Database planner)
{
    return OpenIndexed(planner, Alarms, AlarmsIndex);
}

Recordset OpenRecursions(Database planner)
{
    return OpenIndexed(planner, Recursions, RecursionsIndex);
}
} // namespace schema
