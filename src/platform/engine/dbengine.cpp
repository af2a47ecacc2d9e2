#include "platform/engine/dbengine.h"

#include "platform/engine/moving.h"
#include "platform/engine/postgres/planneraddress.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/store.h"
#include "platform/engine/storekinds.h"
#include "platform/runtime/runtimeerror.h"

#include <optional>
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
    return DatabaseOver(OfKind(path, &StoreKind::Open)(path, exclusive));
}

void DeleteDatabase(const QString& path)
{
    OfKind(path, &StoreKind::Delete)(path);
}

AloneWith::AloneWith(const QString& path) : m_claim(OfKind(path, &StoreKind::Claim)(path)) {}

QStringList CompactDatabase(const QString& from, const QString& to, const std::vector<TableDef>& tables)
{
    return OfKind(from, &StoreKind::Compact)(from, to, tables);
}

QString ReplaceDatabase(const QString& scratch, const QString& target)
{
    return OfKind(target, &StoreKind::Replace)(scratch, target);
}

RepairReport RepairDatabase(const QString& path, const std::vector<TableDef>& tables)
{
    return OfKind(path, &StoreKind::Repair)(path, tables);
}

void MoveToServer(const QString& path, const QString& uri)
{
    moving::ToServer(path, uri);
}

QString LinkedAddress(const QString& path)
{
    return moving::LinkedAddress(path);
}

QString ServerOf(const QString& uri)
{
    return PlannerAddress(uri).Server();
}

// One store that fails does not keep the others waiting.
void Idle(int)
{
    std::optional<RunTimeError> failure;
    const auto open = g_openStores;
    for (const auto& one : open) {
        const auto store = one.lock();
        if (!store) continue;
        try {
            store->Refresh();
        } catch (const RunTimeError& error) {
            failure = error;
        }
    }
    if (failure) throw *failure;
}

void SetStoreWrapperForTests(StoreWrapper wrapper)
{
    g_wrapper = std::move(wrapper);
}
} // namespace DBEngine
