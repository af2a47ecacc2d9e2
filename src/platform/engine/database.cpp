#include "platform/engine/database.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/engine/moving.h"
#include "platform/engine/pages.h"

Recordset Database::OpenTable(const QString& name)
{
    const auto& store = Live().store;
    return Recordset(std::make_shared<RecordsetState>(store, store->Definition(name), Index()));
}

Recordset Database::CreateDynaset(const QString& name)
{
    const auto& store = Live().store;
    const TableDef table = store->Definition(name);
    return Recordset(std::make_shared<RecordsetState>(store, table, PrimaryIndex(table)));
}

QString Database::ServerAddress() const
{
    return m_state && m_state->store ? m_state->store->Address() : QString();
}

void Database::Walk(const QString& name, const QStringList& fields,
                    const std::function<void(const QVariantList&)>& step) const
{
    Store& store = *Live().store;
    const TableDef table = store.Definition(name);
    std::vector<std::size_t> numbers;
    for (const QString& field : fields)
        numbers.push_back(FieldNumber(table, field));
    const qint64 last = LastId(store, table);
    ForPages(store, table, [&](const std::vector<Store::Row>& page, int) {
        for (const Store::Row& row : page) {
            QVariantList values;
            for (const std::size_t number : numbers)
                values += row.values[number];
            step(values);
        }
        longwork::Reached(page.back().id, last);
    });
}

void Database::SaveToFile(const QString& path)
{
    moving::ToFile(*Live().store, path);
}

// Without a history all else works, so its failure stops nothing. A broken connection shows at the next call.
void Database::KeepHistory(const KeptTexts& texts)
{
    try {
        Live().store->KeepHistory(texts);
    } catch (const RunTimeError&) {
        return;
    }
}

void Database::Close()
{
    const std::shared_ptr<Store> store = std::exchange(Live().store, nullptr);
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

WriteTransaction::WriteTransaction(const Database& database) : m_store(database.Live().store)
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
