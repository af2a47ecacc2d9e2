// Makes closed planners with the engine alone.
#pragma once

#include "plannerfile/schema.h"
#include "platform/engine/enginetesting.h"

inline const std::vector<TableDef> plannerTables = {schema::NotesTable(), schema::AlarmsTable(),
                                                    schema::RecursionsTable()};

// Makes a planner with these tables and no records.
inline Database MakePlanner(const QString& path, const std::vector<TableDef>& tables = plannerTables)
{
    Database planner = DBEngine::CreateDatabase(path, schema::Locale);
    for (const TableDef& table : tables)
        planner.Append(table);
    return planner;
}
