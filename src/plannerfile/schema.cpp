#include "plannerfile/schema.h"

namespace schema {
TableDef NotesTable()
{
    // No version ever wrote the date field and the seven font fields, but older programs expect them.
    return {Notes,
            {{u"Database Date"_s, dbDate},
             {DateField, dbText, 15},
             {TextField, dbMemo},
             {u"qmtFontName"_s, dbText, 40},
             {u"qmtFontSize"_s, dbSingle},
             {u"qmtFontBold"_s, dbBoolean},
             {u"qmtFontItalic"_s, dbBoolean},
             {u"qmtFontUnderline"_s, dbBoolean},
             {u"qmtFontStrikeThru"_s, dbBoolean},
             {u"qmtFontColor"_s, dbLong},
             {PaddingField, dbMemo}},
            {{NotesIndex, u'-' + DateField, true}}};
}

TableDef AlarmsTable()
{
    return {Alarms,
            {{u"Alarm Date"_s, dbText, 15},
             {u"Alarm Time"_s, dbText, 5},
             {u"Alarm Note"_s, dbMemo},
             {u"Alarm Music"_s, dbText, 25},
             {u"Music Path"_s, dbText, 255},
             {u"Silence"_s, dbBoolean}},
            {{AlarmsIndex, u"-Alarm Date"_s, false}}};
}

TableDef RecursionsTable()
{
    return {Recursions,
            {{u"Start Date"_s, dbText, 15},
             {u"End Date"_s, dbText, 15},
             {u"Frequency"_s, dbText, 10},
             {u"Recursion Text"_s, dbMemo}},
            {{RecursionsIndex, u"-Start Date"_s, false}}};
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
