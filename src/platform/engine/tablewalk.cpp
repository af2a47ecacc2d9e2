#include "platform/engine/tablewalk.h"

#include "platform/engine/pages.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {
constexpr int FirstRows = 50, MostRows = 1600;
constexpr qint64 TimeOfPage = 6'000'000; // nanoseconds

// Few sizes, since each is a statement of its own.
int RowsAfter(qint64 took, int rows)
{
    if (took > TimeOfPage) return std::max(FirstRows, rows / 2);
    return 3 * took < TimeOfPage ? std::min(MostRows, 2 * rows) : rows;
}
} // namespace

TableWalk::TableWalk(const Database& database, const QString& table, const QStringList& fields)
    : m_database(database.m_state), m_rows(FirstRows)
{
    Store& store = *database.Live().store;
    const TableDef whole = store.Definition(table);
    m_table.Name = whole.Name;
    for (const QString& field : fields)
        m_table.Fields.push_back(whole.Fields[FieldNumber(whole, field)]);
    m_last = LastId(store, whole);
}

std::vector<QVariantList> TableWalk::Next()
{
    const auto state = m_database.lock();
    if (m_rows == 0) return {};
    if (!state || !state->store) throw engineerrors::ErrorOf(engineerrors::ObjectClosed);
    QElapsedTimer clock;
    clock.start();
    const std::vector<Store::Row> page = state->store->Page(m_table, m_after, m_rows);
    const bool isLast = static_cast<int>(page.size()) < m_rows;
    if (!page.empty()) m_after = page.back().id;
    m_rows = isLast ? 0 : RowsAfter(clock.nsecsElapsed(), m_rows);
    std::vector<QVariantList> rows;
    rows.reserve(page.size());
    for (const Store::Row& row : page)
        rows.emplace_back(row.values.begin(), row.values.end());
    return rows;
}

double TableWalk::Done() const
{
    return m_rows == 0 || m_last == 0 ? 1 : std::min(1.0, static_cast<double>(m_after) / static_cast<double>(m_last));
}
