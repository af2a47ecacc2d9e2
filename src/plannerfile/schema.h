// The tables of a planner. One definition serves the making of a new file and the upgrade of an older one.
#pragma once

#include "platform/engine/database.h"

namespace schema {
inline const QString Notes = QStringLiteral("QMT Table");
inline const QString Alarms = QStringLiteral("Alarm Table");
inline const QString Recursions = QStringLiteral("Recursion Table");

inline const QString NotesIndex = QStringLiteral("qmtPrimaryKey");
inline const QString AlarmsIndex = QStringLiteral("AlarmKey");
inline const QString RecursionsIndex = QStringLiteral("RecurseKey");

inline const QString Locale = QStringLiteral(";LANGID=0x0809;CP=1252;COUNTRY=0");

TableDef NotesTable();
TableDef AlarmsTable();
TableDef RecursionsTable();
std::vector<TableDef> AllTables();

// The tables of an open planner, each in the order of its index. 3011 where an older planner lacks one.
Recordset OpenNotes(Database planner);
Recordset OpenAlarms(Database planner);
Recordset OpenRecursions(Database planner);
} // namespace schema
