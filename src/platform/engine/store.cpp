#include "platform/engine/store.h"

std::vector<Row> Store::Page(const TableDef& table, qint64 afterId)
{
    if (auto row = Find(table, Index(), From::After, {{}, afterId}, {}, {})) return {std::move(*row)};
    return {};
}

void Store::InsertAll(const TableDef& table, const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        Insert(table, row.values);
}
