#include "platform/engine/dbengine.h"

#include "platform/engine/sqlite/compacting.h"
#include "platform/engine/sqlite/repairing.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/store.h"

#include <vector>

namespace {
DBEngine::StoreWrapper g_wrapper;
std::vector<std::weak_ptr<Store>> g_openStores; // what Idle goes to

Database DatabaseOver(std::shared_ptr<Store> store)
{
    if (g_wrapper) store = g_wrapper(std::move(store));
    std::erase_if(g_openStores, [](const auto& open) { return open.expired(); });
    g_openStores.push_back(store);
    return Database(std::move(store));
}
} // namespace

namespace DBEngine {
Database CreateDatabase(const QString& path, const QString&)
{
    return DatabaseOver(sqlitefile::Create(path));
}

Database OpenDatabase(const QString& path, bool exclusive)
{
    return DatabaseOver(sqlitefile::Open(path, exclusive));
}

void DeleteDatabase(const QString& path)
{
    sqlitefile::Delete(path);
}

AloneWith::AloneWith(const QString& path) : m_claim(sqlitefile::Claim(path)) {}

void CompactDatabase(const QString& from, const QString& to)
{
    compacting::Compact(from, to);
}

void ReplaceDatabase(const QString& scratch, const QString& target)
{
    compacting::Replace(scratch, target);
}

RepairReport RepairDatabase(const QString& path, const std::vector<TableDef>& tables)
{
    return repairing::Repair(path, tables);
}

void Idle(int)
{
    for (const auto& open : g_openStores)
        if (const auto store = open.lock()) store->Refresh();
}

void SetStoreWrapperForTests(StoreWrapper wrapper)
{
    g_wrapper = std::move(wrapper);
}
} // namespace DBEngine
