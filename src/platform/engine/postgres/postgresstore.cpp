#include "platform/engine/postgres/postgresstore.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/postgres/postgresdialect.h"
#include "platform/engine/postgres/postgreshistory.h"
#include "platform/engine/postgres/postgresschema.h"

#include <QScopeGuard>

namespace {
using namespace engineerrors;

constexpr qsizetype BytesOfInsert = 1 << 22;
constexpr std::size_t MaximalValues = 60000; // of one statement
constexpr qsizetype LongestName = 63;        // the server cuts longer names, so that two could become one

void RefuseLongName(const QString& name)
{
    if (name.toUtf8().size() <= LongestName) return;
    throw RunTimeError{InvalidArgument, u"The name '%1' is too long for a server."_s.arg(name)};
}

qsizetype SizeOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray ? 2 * value.toByteArray().size() : value.toString().size();
}
} // namespace

PostgresStore::PostgresStore(const PlannerAddress& address, const QString& name, bool exclusive, Planner planner)
    : SqlStore(postgres::Dialect, address.Schema()), m_name(name), m_address(address.Uri()),
      m_connection(address, name,
                   {[this] { Welcome(); }, [this] { Forget(); },
                    [this](const QString& message) {
                        ++m_revision;
                        m_changes.Take(message);
                    }}),
      m_planner(planner), m_openMode(m_connection, exclusive), m_changes(m_connection)
{
    m_connection.Connect();
}

PostgresStore::~PostgresStore()
{
    Close();
}

void PostgresStore::Welcome()
{
    if (m_planner == Planner::New) return;
    const auto mark = postgresschema::FindMark(m_connection, m_schema);
    if (!mark || mark->version < 1)
        throw RunTimeError{NotADatabase,
                           u"'%1' cannot be opened: its server has no planner of this name."_s.arg(m_name)};
    if (mark->version > postgresschema::Version) throw ErrorOf(NewerPlanner, m_name);
    if (!m_id.isEmpty() && m_id != mark->id)
        throw RunTimeError{BrokenConnection, u"The server of '%1' has another planner now. Please open it "
                                             "again."_s.arg(m_name)};
    m_openMode.Enter(mark->id, {mark->table, 0}, m_name);
    m_id = mark->id;
    m_channel = "orrelin_"_L1 + m_id;
    m_changes.Start(m_channel);
}

void PostgresStore::Forget()
{
    ++m_revision; // commits of others are missed from here on
    m_openMode.Forget();
    m_changes.Lose();
    ForgetSession();
}

void PostgresStore::CreateTable(const TableDef& table)
{
    RefuseLongName(table.Name);
    for (const Field& field : table.Fields)
        RefuseLongName(field.Name);
    for (const Index& index : table.Indexes)
        RefuseLongName(index.Name);
    SqlStore::CreateTable(table);
}

std::optional<Store::Row> PostgresStore::Find(const TableDef& table, const Index& index, From from, const Place& place,
                                              const QString& likeField, const QString& likePattern)
{
    const auto expected = m_expected.find({table.Name, index.Fields});
    if (from == From::AtKey && likeField.isEmpty() && !place.key.isNull() && expected != m_expected.end() &&
        expected->second.reading == m_connection.Reading()) {
        const auto row = expected->second.byKey.constFind(place.key.toString());
        if (row != expected->second.byKey.cend()) return *row;
    }
    return SqlStore::Find(table, index, from, place, likeField, likePattern);
}

void PostgresStore::Expect(const TableDef& table, const Index& index, const QVariantList& keys)
{
    const std::size_t field = index.Fields.isEmpty() ? 0 : FieldNumber(table, KeyField(index));
    if (index.Fields.isEmpty() || table.Fields[field].Type != dbText || !m_connection.Reading()) return;
    ExpectedRows expected = {m_connection.Reading(), {}};
    QStringList texts;
    for (const QVariant& key : keys)
        expected.byKey.insert(texts.emplace_back(key.toString()), std::nullopt);
    try {
        for (const SqlRow& found : m_connection.Ask(m_text.FindKeys(table, index), {texts})) {
            Row row = RowOf(found, table);
            std::optional<Row>& first = expected.byKey[row.values[field].toString()];
            if (!first) first = std::move(row);
        }
    } catch (const RunTimeError&) {
        return; // the look-ups raise it themselves
    }
    m_expected[{table.Name, index.Fields}] = std::move(expected);
}

// Also notifies the others and returns the transaction's number, in the same statement.
SqlRow PostgresStore::WriteRow(const QString& statement, const SqlValues& values, const TableDef& table,
                               const Values& before, const Values& after)
{
    SqlValues all = values;
    for (const Values* told : {&before, &after})
        all.emplace_back(PostgresChanges::Message(table, *told));
    const QString telling = u", pg_notify('%1', %2), pg_notify('%1', %3), pg_current_xact_id()::text"_s.arg(
        m_channel, m_text.Mark(values.size() + 1), m_text.Mark(values.size() + 2));
    SqlRow written = SqlStore::WriteRow(statement + telling, all, table, before, after);
    m_connection.NoteTransaction(written.Text(3));
    ++m_revision;
    return written;
}

void PostgresStore::InsertAll(const TableDef& table, const std::vector<Row>& rows)
{
    std::size_t at = 0;
    while (at < rows.size()) {
        SqlValues values;
        qsizetype bytes = 0;
        const std::size_t first = at;
        for (; at < rows.size() && bytes < BytesOfInsert && values.size() < MaximalValues; ++at)
            for (const QVariant& value : rows[at].values) {
                bytes += SizeOf(value);
                values.push_back(value);
            }
        m_connection.Ask(m_text.Insert(table, at - first), values);
    }
}

// Another user may have the lock since the break.
void PostgresStore::RefuseWithoutLock(const TableDef& table, qint64 id) const
{
    if (Holds(table, id)) return;
    throw RunTimeError{BrokenConnection,
                       u"The connection to the server of '%1' was broken, and the lock of this record with "
                       "it. Nothing was saved."_s.arg(m_name)};
}

void PostgresStore::Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values)
{
    RefuseWithoutLock(table, old.id);
    SqlStore::Replace(table, old, values);
}

void PostgresStore::Erase(const TableDef& table, const Row& old)
{
    RefuseWithoutLock(table, old.id);
    SqlStore::Erase(table, old);
}

void PostgresStore::TryLock(const TableDef& table, qint64 id)
{
    // Under the lock the latest state must be read.
    m_connection.StopReading();
    m_connection.Connect(); // so that the table's number belongs to this session
    SqlStore::TryLock(table, id);
}

bool PostgresStore::Take(const RecordName& record)
{
    return advisorylocks::Call(m_connection, "pg_try_advisory_lock"_L1, record);
}

void PostgresStore::GiveBack(const RecordName& record)
{
    try {
        advisorylocks::Call(m_connection, "pg_advisory_unlock"_L1, record);
    } catch (const RunTimeError&) {
        // If the session is over, its lock is too. A lock that stays for another reason would shut others out.
        m_connection.Break();
    }
}

void PostgresStore::BeginWrite()
{
    SqlStore::BeginWrite();
    if (m_planner == Planner::Existing) return;
    auto rollback = qScopeGuard([this] { m_connection.Rollback(); });
    m_connection.NoteTransaction(m_connection.AskOne(u"SELECT pg_current_xact_id()::text"_s).toString());
    postgresschema::Create(m_connection, m_schema);
    m_planner = Planner::Existing;
    Welcome();
    rollback.dismiss();
}

void PostgresStore::KeepHistory(const KeptTexts& texts)
{
    postgreshistory::Begin(m_connection, m_schema, m_text, texts);
}

std::optional<std::vector<PastText>> PostgresStore::PastTexts(const QString& key)
{
    return postgreshistory::Of(m_connection, m_text, key);
}

void PostgresStore::BackUp(const QString&)
{
    throw RunTimeError{NotSupported, u"A planner on a server is copied by the server's own means."_s};
}

void PostgresStore::Close()
{
    m_openMode.Leave();
    m_changes.Stop();
    m_connection.Break();
}

void PostgresStore::DropPlanner()
{
    for (const QString& table : TableNames())
        m_connection.Ask("DROP TABLE "_L1 + m_text.Qualified(table));
    postgresschema::DropMark(m_connection, m_schema);
}
