// A planner on a server: the Store behind a link. Each open of the planner is one session of the server. If the
// connection breaks, its locks end, and no record is written without its lock.
#pragma once

#include "platform/engine/postgres/advisorylocks.h"
#include "platform/engine/postgres/postgreschanges.h"
#include "platform/engine/sql/sqlstore.h"

#include <map>

class PostgresStore final : public SqlStore
{
public:
    enum class Planner
    {
        Existing,
        New // BeginWrite makes it; all or nothing
    };

    // The name is the link's, for messages. Errors as DBEngine::OpenDatabase, and BrokenConnection.
    PostgresStore(const PlannerAddress& address, const QString& name, bool exclusive,
                  Planner planner = Planner::Existing);
    ~PostgresStore() override;

    QString Address() const override { return m_address; }
    void CreateTable(const TableDef& table) override;
    std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                            const QString& likeField, const QString& likePattern) override;
    void InsertAll(const TableDef& table, const std::vector<Row>& rows) override;
    void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) override;
    void Erase(const TableDef& table, const Row& old) override;
    void TryLock(const TableDef& table, qint64 id) override;
    void Expect(const TableDef& table, const Index& index, const QVariantList& keys) override;
    void BeginWrite() override;
    void KeepHistory(const KeptTexts& texts) override;
    std::optional<std::vector<PastText>> PastTexts(const QString& key) override;
    qint64 Revision() override { return m_revision; }
    void BackUp(const QString& path) override;
    void Refresh() override { m_connection.Listen(); }
    void OnChange(ChangeListener listener) override { m_changes.SetListener(std::move(listener)); }
    void Close() override;

    void DropPlanner(); // with all its tables, within the current write

protected:
    SqlConnection& Connection() override { return m_connection; }
    bool Take(const RecordName& record) override;
    void GiveBack(const RecordName& record) override;
    QString HolderOf(const RecordName& record) override { return advisorylocks::HolderOf(m_connection, record); }
    SqlRow WriteRow(const QString& statement, const SqlValues& values, const TableDef& table, const Values& before,
                    const Values& after) override;

private:
    // Rows of one table and index that Expect has fetched, by key. Valid only within the same read.
    struct ExpectedRows
    {
        int reading = 0;
        QHash<QString, std::optional<Row>> byKey;
    };

    void Welcome();
    void Forget();
    void RefuseWithoutLock(const TableDef& table, qint64 id) const;

    const QString m_name;
    const QString m_address;
    PostgresConnection m_connection;
    Planner m_planner;
    QString m_id, m_channel; // of the planner; empty before the first session
    qint64 m_revision = 0;
    OpenMode m_openMode;
    PostgresChanges m_changes;
    std::map<std::pair<QString, QString>, ExpectedRows> m_expected;
};
