// A planner on a server: the Store behind a link. One session of the server is one open of the planner; a break of the
// connection ends its locks, and no record is written whose lock is not held.
#pragma once

#include "platform/engine/postgres/openmodes.h"
#include "platform/engine/postgres/postgreschanges.h"
#include "platform/engine/postgres/postgresschema.h"
#include "platform/engine/postgres/postgrestext.h"
#include "platform/engine/postgres/recordlocks.h"
#include "platform/engine/store.h"

#include <QHash>

#include <map>

class PostgresStore final : public Store
{
public:
    enum class Planner
    {
        Existing,
        New // is made by BeginWrite and what follows it, all or nothing
    };

    // Name is that of the link, as messages show it. Errors as DBEngine::OpenDatabase, and 3151.
    PostgresStore(const PlannerAddress& address, const QString& name, bool exclusive,
                  Planner planner = Planner::Existing);
    ~PostgresStore() override;

    QString Address() const override { return m_address; }
    QStringList TableNames() override;
    TableDef Definition(const QString& table) override;
    void CreateTable(const TableDef& table) override;

    std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                            const QString& likeField, const QString& likePattern) override;
    std::optional<Row> Fetch(const TableDef& table, qint64 id) override;
    std::vector<Row> Page(const TableDef& table, qint64 afterId) override;

    qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) override;
    void InsertAll(const TableDef& table, const std::vector<Row>& rows) override;
    void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) override;
    void Erase(const TableDef& table, const Row& old) override;

    void TryLock(const TableDef& table, qint64 id) override;
    bool Holds(const TableDef& table, qint64 id) const override;
    void Unlock(const TableDef& table, qint64 id) override;

    void BeginRead() override;
    void Expect(const TableDef& table, const Index& index, const QVariantList& keys) override;
    void EndRead() override;
    void BeginWrite() override;
    void Commit() override;
    void Rollback() override;

    void BackUp(const QString& path) override;
    void Refresh() override;
    void OnChange(ChangeListener listener) override;
    void Close() override;

    void DropPlanner(); // with all its tables, in the present write

private:
    // The look-ups that Expect has made ahead: of one table and index each, by key.
    using ExpectedOf = std::pair<QString, QString>;
    using ExpectedRows = QHash<QString, std::optional<Row>>;

    void Welcome();
    void Forget();
    PostgresSchema Schema();
    PostgresSchema::Table TableOf(const QString& name);
    RecordLocks::Name NameOf(const TableDef& table, qint64 id);
    std::vector<Row> Look(const TableDef& table, const Index& index, From from, const Place& place,
                          const QString& runField, const std::string& run, int limit);
    std::optional<Row> FindLike(const TableDef& table, const Index& index, From from, Place place,
                                const QString& likeField, const QString& likePattern);
    const std::optional<Row>* Expected(const TableDef& table, const Index& index, const QVariant& key) const;
    void RefuseWithoutLock(const TableDef& table, qint64 id) const;
    void WriteRow(const std::string& statement, const PostgresConnection::Values& values);
    pqxx::row Written(const std::string& statement, const PostgresConnection::Values& values);

    const QString m_name;
    const QString m_address;
    const QString m_schemaName;
    PostgresConnection m_connection;
    Planner m_planner;
    QString m_id; // of the planner, empty before the first session
    std::optional<PostgresText> m_text;
    RecordLocks m_locks;
    OpenMode m_openMode;
    PostgresChanges m_changes;
    std::map<QString, quint32> m_tableNumbers;
    std::map<ExpectedOf, ExpectedRows> m_expected;
};
