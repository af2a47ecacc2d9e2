// Walks a whole table in pages of about a megabyte, in order of insertion: each page is a wait for a server, and a page
// of pictures takes memory.
#pragma once

#include "platform/engine/store.h"

// How many rows to ask for after these, for about so many bytes.
int RowsAfter(const std::vector<Store::Row>& page, qsizetype bytes = 1 << 20);
qint64 LastId(Store& store, const TableDef& table); // 0 if the table is empty

// step(page, rows), with the number of rows that was asked for.
template <typename Step>
void ForPages(Store& store, const TableDef& table, Step&& step)
{
    constexpr int First = 100;
    int rows = First;
    for (auto page = store.Page(table, 0, rows); !page.empty(); page = store.Page(table, page.back().id, rows)) {
        step(page, rows);
        rows = RowsAfter(page);
    }
}
