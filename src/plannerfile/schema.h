// The tables of a planner, both for a new file and for the upgrade of an older one.
#pragma once

#include "platform/engine/database.h"

namespace schema {
inline const QString Notes = u"QMT Table"_s;
inline const QString Alarms = u"Alarm Table"_s;
inline const QString Recursions = u"Recursion Table"_s;
inline const QString Imports = u"Import Table"_s; // made by the first import

inline const QString DateField = u"qmtDate"_s;
inline const QString TextField = u"qmtText"_s;
inline const QString PaddingField = u"qmtPadding"_s;
inline const QByteArray EmptiedNote = " "_ba; // a zero-length text is never stored

inline const QString Equal = u"="_s; // for Seek
inline const QString NotesIndex = u"qmtPrimaryKey"_s;
inline const QString AlarmsIndex = u"AlarmKey"_s;
inline const QString RecursionsIndex = u"RecurseKey"_s;

inline const QString Locale = u";LANGID=0x0809;CP=1252;COUNTRY=0"_s;

TableDef NotesTable();
TableDef AlarmsTable();
TableDef RecursionsTable();
std::vector<TableDef> AllTables();

// The tables of an open planner, each in the order of its index. NoTable if an older planner lacks one.
Recordset OpenNotes(Database planner);
Recordset OpenAlarms(Database planner);
Recordset OpenRecursions(Database planner);
} // namespace schema
