// What can still be read of a damaged planner's bytes, without the library's walk along its trees. Knows nothing of
// journals and writes nothing.
#pragma once

#include "platform/engine/sqlite/rawvalue.h"
#include "platform/engine/tabledef.h"

namespace salvage {
struct Table
{
    TableDef definition;
    std::vector<RawRow> rows;  // found by way of the tree, each once
    std::vector<RawRow> loose; // found on pages that nothing leads to, the likelier first: to be taken where neither id
                               // nor key is there yet. None where the tree is complete.
    bool complete = false;     // all of its pages could be read
    qint64 lastId = 0;         // the highest ever given, where that could be read
};

struct Result
{
    bool hasHead = false; // the bytes begin as a database does
    std::vector<Table> tables;
};

// The expected tables stand in for what is lost of the schema.
Result Read(QByteArrayView bytes, const std::vector<TableDef>& expected);
} // namespace salvage
