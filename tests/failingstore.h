// A store that fails at a chosen call. Calls that release something (Unlock, EndRead, Rollback, Close) never fail.
#pragma once

#include "platform/engine/dbengine.h"
#include "platform/engine/store.h"
#include "platform/runtime/runtimeerror.h"

#include <QLatin1StringView>

#include <csignal>
#include <memory>

struct FailurePlan
{
    enum When
    {
        Before,  // the call does nothing and raises
        After,   // the call does its work and raises
        ForEver, // from the chosen call on, each counted call does nothing and raises
        Kill     // the process is killed before the call
    };

    int at = 0; // the call that fails, counted from 1; 0 for none
    When when = Before;
    RunTimeError error = {3043, u"The test's error"_s};
    QString only = {}; // counts calls of this name only, for example "Commit"; empty counts all
    int calls = 0;     // the counted calls so far
};

class FailingStore final : public Store
{
public:
    FailingStore(std::shared_ptr<Store> inner, std::shared_ptr<FailurePlan> plan)
        : m_inner(std::move(inner)), m_plan(std::move(plan))
    {
    }

    QString Address() const override { return m_inner->Address(); }
    QStringList TableNames() override { return Call("TableNames", &Store::TableNames); }
    TableDef Definition(const QString& t) override { return Call("Definition", &Store::Definition, t); }
    void CreateTable(const TableDef& t) override { Call("CreateTable", &Store::CreateTable, t); }
    std::optional<Row> Find(const TableDef& t, const Index& i, From f, const Place& p, const QString& field,
                            const QString& pattern) override
    {
        return Call("Find", &Store::Find, t, i, f, p, field, pattern);
    }
    std::optional<Row> Fetch(const TableDef& t, qint64 id) override { return Call("Fetch", &Store::Fetch, t, id); }
    std::vector<Row> Page(const TableDef& t, qint64 id, int rows) override
    {
        return Call("Page", &Store::Page, t, id, rows);
    }
    qint64 Insert(const TableDef& t, const std::vector<QVariant>& v) override
    {
        return Call("Insert", &Store::Insert, t, v);
    }
    void Replace(const TableDef& t, const Row& old, const std::vector<QVariant>& v) override
    {
        Call("Replace", &Store::Replace, t, old, v);
    }
    void Erase(const TableDef& t, const Row& old) override { Call("Erase", &Store::Erase, t, old); }
    void TryLock(const TableDef& t, qint64 id) override { Call("TryLock", &Store::TryLock, t, id); }
    bool Holds(const TableDef& t, qint64 id) const override { return m_inner->Holds(t, id); }
    void Unlock(const TableDef& t, qint64 id) override { m_inner->Unlock(t, id); }
    void BeginRead() override { Call("BeginRead", &Store::BeginRead); }
    void Expect(const TableDef& t, const Index& i, const QVariantList& keys) override { m_inner->Expect(t, i, keys); }
    void EndRead() override { m_inner->EndRead(); }
    // After an error these two leave no transaction open, as their contract says.
    void BeginWrite() override { CallOrRollBack("BeginWrite", &Store::BeginWrite); }
    void Commit() override { CallOrRollBack("Commit", &Store::Commit); }
    void Rollback() override { m_inner->Rollback(); }
    qint64 Revision() override { return Call("Revision", &Store::Revision); }
    void BackUp(const QString& path) override { Call("BackUp", &Store::BackUp, path); }
    void Refresh() override { Call("Refresh", &Store::Refresh); }
    void OnChange(ChangeListener listener) override { m_inner->OnChange(std::move(listener)); }
    void Close() override { m_inner->Close(); }

private:
    void CallOrRollBack(const char* name, void (Store::*call)())
    {
        try {
            Call(name, call);
        } catch (const RunTimeError&) {
            m_inner->Rollback();
            throw;
        }
    }

    template <typename Result, typename... Parameters, typename... Arguments>
    Result Call(const char* name, Result (Store::*call)(Parameters...), Arguments&&... arguments)
    {
        const bool counted = m_plan->only.isEmpty() || m_plan->only == QLatin1StringView(name);
        if (counted) ++m_plan->calls;
        const bool due = counted && m_plan->at > 0 && m_plan->calls == m_plan->at;
        const bool broken = counted && m_plan->at > 0 && m_plan->calls >= m_plan->at;
        if (m_plan->when == FailurePlan::Kill && due) std::raise(SIGKILL);
        if ((m_plan->when == FailurePlan::Before && due) || (m_plan->when == FailurePlan::ForEver && broken))
            throw m_plan->error;
        const Failing raise{m_plan->when == FailurePlan::After && due};
        if constexpr (std::is_void_v<Result>) {
            ((*m_inner).*call)(arguments...);
            raise.If(m_plan->error);
        } else {
            Result result = ((*m_inner).*call)(arguments...);
            raise.If(m_plan->error);
            return result;
        }
    }

    struct Failing
    {
        bool due;
        void If(const RunTimeError& error) const
        {
            if (due) throw error;
        }
    };

    std::shared_ptr<Store> m_inner;
    std::shared_ptr<FailurePlan> m_plan;
};

// Planners opened during its life fail by the plan, also after it.
class FailingStores
{
public:
    FailingStores()
    {
        DBEngine::SetStoreWrapperForTests(
            [plan = plan](auto store) { return std::make_shared<FailingStore>(std::move(store), plan); });
    }
    ~FailingStores() { DBEngine::SetStoreWrapperForTests(nullptr); }
    Q_DISABLE_COPY_MOVE(FailingStores)

    const std::shared_ptr<FailurePlan> plan = std::make_shared<FailurePlan>();
};
