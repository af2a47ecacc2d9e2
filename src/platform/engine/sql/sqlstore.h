// The Store over an SQL database: the common part of planners in files and on servers.
#pragma once

#include "platform/engine/likepattern.h"
#include "platform/engine/sql/sqlcatalog.h"
#include "platform/engine/sql/sqlconnection.h"
#include "platform/engine/sql/sqltext.h"

#include <QHash>

#include <map>
#include <tuple>

class SqlStore : public Store
{
public:
    QStringList TableNames() override;
    TableDef Definition(const QString& table) override;
    void CreateTable(const TableDef& table) override;

    std::optional<Row> Find(const TableDef& table, const Index& index, From from, const Place& place,
                            const QString& likeField, const QString& likePattern) override;
    std::optional<Row> Fetch(const TableDef& table, qint64 id) override;
    std::vector<Row> Page(const TableDef& table, qint64 afterId, int rows) override;

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
    // Runs a statement that writes one row, within its write, and returns the row of its answer. DataChanged if it
    // finds none. before and after: the row's old and new values.
    virtual SqlRow WriteRow(const QString& statement, const SqlValues& values, const TableDef& table,
                            const Values& before, const Values& after);

    // The database's locks between sessions. This class tracks its own locks and takes none twice.
    virtual bool Take(const RecordName& record) = 0;        // false if another session has it
    virtual void GiveBack(const RecordName& record) = 0;    // raises nothing
    virtual QString HolderOf(const RecordName& record) = 0; // as sessionname::Person
    const Locks& Held() const { return m_held; }

    void ForgetSession(); // forgets the catalogue and the locks
    static Row RowOf(const SqlRow& found, const TableDef& table);
    const LikePattern& PatternOf(const QString& text); // keeps the last, since a search for the next hit repeats it

    const SqlText m_text;
    const QString m_schema;

private:
    // A text to search for in a field. Nothing if there is no field.
    struct Sought
    {
        QString field;
        QString text;
    };

    // What a statement depends on: its table with the number of fields, its index and searched field, and a number for
    // the rest.
    using Shape = std::tuple<QString, std::size_t, QString, QString, qint64>;

    SqlCatalog Catalog();
    SqlCatalog::Table TableOf(const QString& name); // NoTable
    std::vector<Row> Look(const TableDef& table, const Index& index, From from, const Place& place,
                          const Sought& sought, int limit);
    template <typename Make>
    const QString& Kept(const TableDef& table, qint64 number, Make&& make, const QString& index = {},
                        const QString& soughtField = {});
    std::vector<Row> Rows(const QString& statement, const SqlValues& values, const TableDef& table,
                          SqlConnection::Patience patience = SqlConnection::Patience::Usual);
    std::vector<Row> LookOnce(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                              const Place& place, const Sought& sought, int limit);
    std::optional<Row> FindLike(const TableDef& table, const Index& index, From from, Place place,
                                const QString& likeField, const QString& likePattern);
    SqlRow Written(const QString& statement, const SqlValues& values, const TableDef& table, const Values& before,
                   const Values& after);

    std::map<Shape, QString> m_statements; // making one takes longer than running it
    QHash<QString, qint64> m_numbers;      // in the catalogue, for tables with locked records
    Locks m_held;
    std::optional<LikePattern> m_pattern;
};
