#include "platform/engine/postgres/postgresschema.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/postgrestext.h"
#include "platform/engine/postgres/postgresvalues.h"
#include "platform/engine/storedform.h"

#include <QRegularExpression>

namespace {
// The tables of the schema $1.
constexpr const char* FromTables = " FROM pg_class AS c JOIN pg_namespace AS n ON n.oid = c.relnamespace "
                                   "WHERE n.nspname = $1::text AND c.relkind = 'r'";

std::string Text(quint32 number)
{
    return std::to_string(number);
}
} // namespace

const QString PostgresSchema::FormatTable = u"planner format"_s;

pqxx::result PostgresSchema::AskOf(const std::string& statement) const
{
    return m_connection.Ask(statement, {m_schema.toStdString()});
}

std::optional<PostgresSchema::Mark> PostgresSchema::FindMark() const
{
    const std::string name = FormatTable.toStdString();
    const pqxx::result table = AskOf(std::string("SELECT c.oid") + FromTables + " AND c.relname = '" + name + '\'');
    if (table.empty()) return {};
    const QString qualified = QuotedName(m_schema) + u'.' + QuotedName(FormatTable);
    const pqxx::result mark =
        m_connection.Ask("SELECT version::integer, id::text FROM " + qualified.toStdString() + " LIMIT 2");
    if (mark.size() != 1 || mark[0][0].is_null()) return {};
    const QString id = TextOf(mark[0][1]);
    // It goes into statements.
    static const QRegularExpression form(u"^[0-9a-f-]{36}$"_s);
    if (!form.match(id).hasMatch()) return {};
    return Mark{static_cast<int>(NumberOf(mark[0][0])), id, static_cast<quint32>(NumberOf(table[0][0]))};
}

void PostgresSchema::Create()
{
    if (FindMark())
        throw RunTimeError{engineerrors::FileExists, u"The server's database has a planner of this name already."_s};
    if (m_connection.AskOne("SHOW server_encoding") != u"UTF8")
        throw RunTimeError{engineerrors::NotSupported, u"The server's database must have the encoding UTF8."_s};
    const std::string schema = QuotedName(m_schema).toStdString();
    if (AskOf("SELECT 1 FROM pg_namespace WHERE nspname = $1::text").empty())
        m_connection.Ask("CREATE SCHEMA " + schema);
    const std::string table = schema + '.' + QuotedName(FormatTable).toStdString();
    m_connection.Ask("CREATE TABLE " + table + " (version integer NOT NULL, id text NOT NULL)");
    m_connection.Ask("INSERT INTO " + table + " SELECT " + std::to_string(Version) + ", gen_random_uuid()::text");
}

void PostgresSchema::Drop()
{
    const std::string schema = QuotedName(m_schema).toStdString();
    for (const QString& table : TableNames() + QStringList(FormatTable))
        m_connection.Ask("DROP TABLE " + schema + '.' + QuotedName(table).toStdString());
}

QStringList PostgresSchema::TableNames() const
{
    QStringList names;
    for (const auto& row : AskOf(std::string("SELECT c.relname") + FromTables + " ORDER BY c.oid")) {
        const QString name = TextOf(row[0]);
        if (name != FormatTable) names += name;
    }
    return names;
}

std::optional<PostgresSchema::Table> PostgresSchema::Find(const QString& table) const
{
    const pqxx::result found =
        m_connection.Ask(std::string("SELECT c.oid, c.relname") + FromTables +
                             " AND lower(c.relname) = lower($2::text) ORDER BY c.relname = $2::text DESC LIMIT 1",
                         {m_schema.toStdString(), table.toStdString()});
    if (found.empty() || TextOf(found[0][1]) == FormatTable) return {};
    return Table{static_cast<quint32>(NumberOf(found[0][0])), TextOf(found[0][1])};
}

TableDef PostgresSchema::Definition(const Table& table) const
{
    TableDef definition = {table.name, {}, {}};
    for (const auto& row : m_connection.Ask("SELECT attname, format_type(atttypid, atttypmod) FROM pg_attribute "
                                            "WHERE attrelid = $1::oid AND attnum > 0 AND NOT attisdropped "
                                            "ORDER BY attnum",
                                            {Text(table.number)})) {
        const QString name = TextOf(row[0]);
        if (name == storedform::IdColumn) continue;
        const auto field = FieldOf(name, TextOf(row[1]));
        if (!field)
            throw RunTimeError{engineerrors::NotADatabase,
                               u"The table '%1' has a column '%2' of a type that no planner has: %3."_s.arg(
                                   table.name, name, TextOf(row[1]))};
        definition.Fields.push_back(*field);
    }
    for (const auto& row :
         m_connection.Ask("SELECT own.relname, i.indisunique, part.attname, i.indoption[0] & 1 FROM pg_index AS i "
                          "JOIN pg_class AS own ON own.oid = i.indexrelid "
                          "JOIN pg_attribute AS part ON part.attrelid = i.indrelid AND part.attnum = i.indkey[0] "
                          "WHERE i.indrelid = $1::oid AND NOT i.indisprimary ORDER BY own.oid",
                          {Text(table.number)})) {
        const QString sign = NumberOf(row[3]) != 0 ? u"-"_s : QString();
        definition.Indexes.push_back({TextOf(row[0]), sign + TextOf(row[2]), IsTrue(row[1])});
    }
    return definition;
}
