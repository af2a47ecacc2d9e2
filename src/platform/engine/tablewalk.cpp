#include "platform/engine/tablewalk.h"

#include "platform/engine/pages.h"

#include <algorithm>
#include <bit>

namespace {
constexpr int FirstRows = 16, MostRows = 512;
constexpr qsizetype BytesOfPage = 256 << 10; // some milliseconds of work

// Few sizes, since each is a statement of its own.
int NextRows(const std::vector<Store::Row>& page)
{
    return std::min(MostRows, static_cast<int>(std::bit_floor(static_cast<unsigned>(RowsAfter(page, BytesOfPage)))));
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

std::vector<std::vector<QVariant>> TableWalk::Next()
{
    const auto state = m_database.lock();
    if (m_rows == 0) return {};
    if (!state || !state->store) throw engineerrors::ErrorOf(engineerrors::ObjectClosed);
    std::vector<Store::Row> page = state->store->Page(m_table, m_after, m_rows);
    const bool isLast = static_cast<int>(page.size()) < m_rows;
    if (!page.empty()) m_after = page.back().id;
    m_rows = isLast ? 0 : NextRows(page);
    std::vector<std::vector<QVariant>> rows;
    rows.reserve(page.size());
    for (Store::Row& row : page)
        rows.push_back(std::move(row.values));
    return rows;
}

double TableWalk::Done() const
{
    return m_rows == 0 || m_last == 0 ? 1 : std::min(1.0, static_cast<double>(m_after) / static_cast<double>(m_last));
}
