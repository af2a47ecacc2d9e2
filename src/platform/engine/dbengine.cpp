#include "platform/engine/dbengine.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/jet/jetfile.h"
#include "platform/engine/moving.h"
#include "platform/engine/postgres/plannerlink.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/repairing.h"
#include "platform/engine/sqlite/sqlitefile.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {
// The kinds of planner files, one row each: how to recognise a file, and its functions. Meaning and errors as in
// DBEngine. A function is null if the kind cannot do it.
struct StoreKind
{
    bool (*Recognise)(QByteArrayView head);
    const char16_t* Refusal; // why '%1' does not support a function
    std::shared_ptr<Store> (*Open)(const QString& path, bool exclusive);
    void (*Delete)(const QString& path);
    std::shared_ptr<void> (*Claim)(const QString& path);
    QStringList (*Compact)(const QString& from, const QString& to, const std::vector<TableDef>& expected);
    QString (*Replace)(const QString& scratch, const QString& target);
    RepairReport (*Repair)(const QString& path, const std::vector<TableDef>& tables);
    PlannerAddress (*Address)(const QString& path);
    void (*CopyAsItStands)(const QString& planner, const QString& to);
    bool (*FindsPlanner)(const QString& path, const std::vector<TableDef>& tables); // in a file that Open refuses
};

// The last row takes every other file as a damaged planner. Its functions report what is wrong.
constexpr std::array Kinds = {
    StoreKind{plannerlink::IsLink, plannerlink::Refusal, plannerlink::Open, plannerlink::Delete, nullptr, nullptr,
              nullptr, nullptr, plannerlink::Read, nullptr, nullptr},
    StoreKind{jetfile::IsJet, jetfile::Refusal, nullptr, sqlitefile::Delete, sqlitefile::Claim, jetfile::Compact,
              jetfile::Replace, nullptr, nullptr, nullptr, nullptr},
    StoreKind{[](QByteArrayView) { return true; }, u"", sqlitefile::Open, sqlitefile::Delete, sqlitefile::ClaimPlanner,
              sqlitefile::Compact, sqlitefile::Replace, repairing::Repair, nullptr, sqlitefile::CopyAsItStands,
              repairing::FindsPlanner},
};
constexpr qsizetype HeadSize = 64;

// By the file's first bytes, not its name. FileNotFound.
const StoreKind& KindOf(const QString& path)
{
    const struct stat status = wholefiles::StatusOf(path);
    if (!S_ISREG(status.st_mode) || OpenFile::IsOpenHere(status)) return Kinds.back();
    const QByteArray head = wholefiles::Head(path, HeadSize);
    return *std::ranges::find_if(Kinds, [&](const StoreKind& kind) { return kind.Recognise(head); });
}

// The function of the path's kind. FileNotFound; NotSupported if it is null.
template <typename Function>
Function OfKind(const QString& path, Function StoreKind::*function)
{
    const StoreKind& kind = KindOf(path);
    if (kind.*function) return kind.*function;
    throw RunTimeError{engineerrors::NotSupported, QString::fromUtf16(kind.Refusal).arg(QFileInfo(path).fileName())};
}

bool IsDamagedPlanner(const QString& path, const std::vector<TableDef>& tables)
{
    if (!path.endsWith(".mdb"_L1, Qt::CaseInsensitive)) return false;
    try {
        const auto finds = KindOf(path).FindsPlanner;
        return finds && finds(path, tables);
    } catch (const RunTimeError&) {
        return false; // the first error says more
    }
}

DBEngine::StoreWrapper g_wrapper;
std::vector<std::weak_ptr<Store>> g_openStores; // for Idle

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

Database OpenToRead(const QString& path, const QString& folder)
{
    const auto copy = KindOf(path).CopyAsItStands;
    if (!copy) return OpenDatabase(path);
    const QString made = folder + u'/' + QFileInfo(path).fileName();
    copy(path, made);
    return OpenDatabase(made, true);
}

Database OpenResting(const QString& path)
{
    return DatabaseOver(sqlitefile::OpenResting(path));
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
    const PlannerAddress address(uri);
    const QByteArray link = plannerlink::Text(address);
    OfKind(path, &StoreKind::Claim); // raises NotSupported: a link is already on its server
    moving::ToServer(path, address, link);
}

QString LinkedAddress(const QString& path)
{
    const auto address = KindOf(path).Address;
    return address ? address(path).Uri() : QString();
}

QString ServerOf(const QString& uri)
{
    return PlannerAddress(uri).Server();
}

RunTimeError Explained(const RunTimeError& error, const QString& path, const std::vector<TableDef>& tables)
{
    if (error.Number != engineerrors::NotADatabase || !IsDamagedPlanner(path, tables)) return error;
    return ErrorOf(engineerrors::DamagedPlanner, QFileInfo(path).fileName());
}

// A failing store does not stop the others.
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
