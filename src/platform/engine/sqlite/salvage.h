// Reads what is left of a damaged planner without following the library's trees. Ignores journals and writes nothing.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"
#include "platform/engine/tabledef.h"

namespace salvage {
struct Table
{
    TableDef definition;
    std::vector<RawRow> rows;  // found through the tree, each once
    std::vector<RawRow> loose; // found on orphaned pages, the likelier first; take one only if neither its id nor its
                               // key is there yet. Empty if the tree is complete.
    bool complete = false;     // all pages could be read
    qint64 lastId = 0;         // the highest id ever given; 0 if lost
};

struct Result
{
    bool hasHead = false; // the bytes begin as a database does
    std::vector<Table> tables;
};

// The expected tables replace lost parts of the schema.
Result Read(QByteArrayView bytes, const std::vector<TableDef>& expected);
} // namespace salvage
