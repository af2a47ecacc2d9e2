#include "platform/engine/database.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/enginerefusals.h"
#include "platform/engine/moving.h"
#include "platform/engine/recordsetstate.h"
#include "platform/runtime/runtimeerror.h"

struct Database::State
{
    std::shared_ptr<Store> store; // null when closed
};

Database::Database() = default;

Database::Database(std::shared_ptr<Store> store) : m_state(std::make_shared<State>(State{std::move(store)})) {}

const std::shared_ptr<Store>& Database::Live() const
{
    if (!m_state) throw RunTimeError{errors::ObjectNotSet, u"Object variable not set"_s};
    if (!m_state->store) engineerrors::RaiseClosed();
    return m_state->store;
}

bool Database::IsNothing() const
{
    return !m_state;
}

Recordset Database::OpenTable(const QString& name)
{
    const auto& store = Live();
    return Recordset(std::make_shared<RecordsetState>(store, store->Definition(name), Index()));
}

Recordset Database::CreateDynaset(const QString& name)
{
    const auto& store = Live();
    const TableDef table = store->Definition(name);
    return Recordset(std::make_shared<RecordsetState>(store, table, PrimaryIndex(table)));
}

void Database::Append(const TableDef& table)
{
    Live()->CreateTable(table);
}

QStringList Database::TableNames() const
{
    return Live()->TableNames();
}

QString Database::ServerAddress() const
{
    return m_state && m_state->store ? m_state->store->Address() : QString();
}

void Database::SaveToFile(const QString& path)
{
    moving::ToFile(*Live(), path);
}

void Database::BackUp(const QString& path)
{
    Live()->BackUp(path);
}

void Database::OnChange(ChangeListener listener)
{
    Live()->OnChange(std::move(listener));
}

void Database::Close()
{
    Live();
    const std::shared_ptr<Store> store = std::exchange(m_state->store, nullptr);
    store->OnChange(nullptr);
    if (store.use_count() == 1) store->Close();
}

ReadTransaction::ReadTransaction(const Database& database)
{
    if (!database.m_state || !database.m_state->store) return;
    try {
        database.m_state->store->BeginRead();
        m_store = database.m_state->store;
    } catch (const RunTimeError&) {
        m_store.reset();
    }
}

ReadTransaction::~ReadTransaction()
{
    if (m_store) m_store->EndRead();
}

void ReadTransaction::Expect(const Recordset& records, const QVariantList& keys) const
{
    if (!m_store || !records.m_state || records.m_state->store != m_store) return;
    m_store->Expect(records.m_state->table, records.m_state->index, keys);
}

WriteTransaction::WriteTransaction(const Database& database) : m_store(database.Live())
{
    m_store->BeginWrite();
}

WriteTransaction::~WriteTransaction()
{
    if (m_store) m_store->Rollback();
}

void WriteTransaction::Commit()
{
    if (!m_store) throw RunTimeError{engineerrors::Closed, u"The transaction has ended already."_s};
    std::exchange(m_store, nullptr)->Commit();
}
