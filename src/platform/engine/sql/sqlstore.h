// The Store over any database that speaks SQL: what a planner in a file and one on a server have in common.
#pragma once

#include "platform/engine/sql/sqlcatalog.h"
#include "platform/engine/sql/sqlconnection.h"
#include "platform/engine/sql/sqltext.h"

#include <QHash>

class SqlStore : public Store
{
public:
    QStringList TableNames() override;
    TableDef Definition(const QString& table) override;
    void CreateTable(const TableDef& table) override;

    std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                            const QString& likeField, const QString& likePattern) override;
    std::optional<Row> Fetch(const TableDef& table, qint64 id) override;
    std::vector<Row> Page(const TableDef& table, qint64 afterId) override;

    qint64 Insert(const TableDef& table, const std::vector<QVariant>& values) override;
    void Replace(const TableDef& table, const Row& old, const std::vector<QVariant>& values) override;
    void Erase(const TableDef& table, const Row& old) override;

    void TryLock(const TableDef& table, qint64 id) override;
    bool Holds(const TableDef& table, qint64 id) const override;
    void Unlock(const TableDef& table, qint64 id) override;

    void BeginRead() override { Connection().BeginRead(); }
    void EndRead() override { Connection().EndRead(); }
    void BeginWrite() override { Connection().BeginWrite(); }
    void Commit() override { Connection().Commit(); }
    void Rollback() override { Connection().Rollback(); }

protected:
    using Values = std::vector<QVariant>;
    using Locks = std::vector<RecordName>;

    SqlStore(const SqlDialect& dialect, const QString& schema = {}) : m_text(dialect, schema), m_schema(schema) {}

    virtual SqlConnection& Connection() = 0;
    // A statement that writes one row, in its write. Gives the row that it returns; DataChanged if it has found none.
    // Before and after: what the row was and is.
    virtual SqlRow WriteRow(const QString& statement, const SqlValues& values, const TableDef& table,
                            const Values& before, const Values& after);

    // The database's locks between sessions; this one's own are known here. None of them is asked twice for.
    virtual bool Take(const RecordName& record) = 0;        // false if somebody else has it
    virtual void GiveBack(const RecordName& record) = 0;    // raises nothing
    virtual QString HolderOf(const RecordName& record) = 0; // as sessionname::Person
    const Locks& Held() const { return m_held; }

    void ForgetSession(); // what is known of the catalogue, and the locks
    static Row RowOf(const SqlRow& found, const TableDef& table);

    const SqlText m_text;
    const QString m_schema;

private:
    // What rows are searched for: text in a field. Nothing if there is no field.
    struct Sought
    {
        QString field;
        QString text;
    };

    SqlCatalog Catalog();
    SqlCatalog::Table TableOf(const QString& name); // NoTable
    std::vector<Row> Look(const TableDef& table, const Index& index, From from, const Place& place,
                          const Sought& sought, int limit);
    const QString& StatementOf(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                               const QString& soughtField, int limit);
    std::vector<Row> LookOnce(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                              const Place& place, const Sought& sought, int limit);
    std::optional<Row> FindLike(const TableDef& table, const Index& index, From from, Place place,
                                const QString& likeField, const QString& likePattern);
    SqlRow Written(const QString& statement, const SqlValues& values, const TableDef& table, const Values& before,
                   const Values& after);

    QHash<QString, QString> m_finds;  // statements of look-ups: to make one takes longer than to run it
    QHash<QString, qint64> m_numbers; // the catalogue's, of the tables whose records have been locked
    Locks m_held;
};
