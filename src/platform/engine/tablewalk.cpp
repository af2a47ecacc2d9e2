#include "platform/engine/tablewalk.h"

#include "platform/engine/pages.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {
constexpr int FirstRows = 50, MostRows = 2000;
constexpr qint64 TimeOfPage = 6'000'000; // nanoseconds

int RowsIn(qint64 time, qint64 took, int rows)
{
    constexpr int LargestStep = 4;
    const qint64 fitting = rows * time / std::max<qint64>(took, 1);
    return static_cast<int>(std::clamp<qint64>(fitting, FirstRows, std::min(MostRows, LargestStep * rows)));
}
} // namespace

TableWalk::TableWalk(const Database& database, const QString& table, const QStringList& fields)
    : m_database(database.m_state), m_rows(FirstRows)
{
    Store& store = *database.Live().store;
    m_table = store.Definition(table);
    for (const QString& field : fields)
        m_fields.push_back(FieldNumber(m_table, field));
    m_last = LastId(store, m_table);
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
    m_rows = isLast ? 0 : RowsIn(TimeOfPage, clock.nsecsElapsed(), m_rows);
    std::vector<QVariantList> rows;
    rows.reserve(page.size());
    for (const Store::Row& row : page) {
        QVariantList& values = rows.emplace_back();
        for (const std::size_t field : m_fields)
            values += row.values[field];
    }
    return rows;
}

double TableWalk::Done() const
{
    return m_rows == 0 || m_last == 0 ? 1 : std::min(1.0, static_cast<double>(m_after) / static_cast<double>(m_last));
}
