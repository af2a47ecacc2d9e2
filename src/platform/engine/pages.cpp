#include "platform/engine/pages.h"

namespace {
qsizetype SizeOf(const Store::Row& row)
{
    qsizetype size = 1;
    for (const QVariant& value : row.values)
        size += value.typeId() == QMetaType::QByteArray ? value.toByteArray().size() : value.toString().size();
    return size;
}
} // namespace

int RowsAfter(const std::vector<Store::Row>& page, qsizetype bytes)
{
    constexpr int Most = 4000; // rows
    qsizetype size = 0;
    for (const Store::Row& row : page)
        size += SizeOf(row);
    const qsizetype mean = size / static_cast<qsizetype>(page.size());
    return static_cast<int>(std::clamp<qsizetype>(bytes / qMax<qsizetype>(mean, 1), 1, Most));
}

qint64 LastId(Store& store, const TableDef& table)
{
    const auto last = store.Find(table, Index(), From::Last, {}, {}, {});
    return last ? last->id : 0;
}
