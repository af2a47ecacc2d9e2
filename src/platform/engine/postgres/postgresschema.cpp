#include "platform/engine/postgres/postgresschema.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sql/sqltext.h"

#include <QRegularExpression>

namespace {
QString FormatTable(const QString& schema)
{
    return SqlText::Quoted(schema) + u".\"planner format\""_s;
}
} // namespace

namespace postgresschema {
std::optional<Mark> FindMark(SqlConnection& connection, const QString& schema)
{
    const SqlRows table =
        connection.Ask(u"SELECT c.oid FROM pg_class AS c JOIN pg_namespace AS n ON n.oid = c.relnamespace "
                       "WHERE n.nspname = $1 AND c.relkind = 'r' AND c.relname = 'planner format'"_s,
                       {schema});
    if (table.empty()) return {};
    const SqlRows mark =
        connection.Ask("SELECT version::integer, id::text FROM "_L1 + FormatTable(schema) + " LIMIT 2"_L1);
    if (mark.size() != 1 || mark[0][0].isNull()) return {};
    const QString id = mark[0].Text(1);
    // It goes into statements.
    static const QRegularExpression form(u"^[0-9a-f-]{36}$"_s);
    if (!form.match(id).hasMatch()) return {};
    return Mark{static_cast<int>(mark[0].Number(0)), id, table[0].Number(0)};
}

void Create(SqlConnection& connection, const QString& schema)
{
    if (FindMark(connection, schema))
        throw RunTimeError{engineerrors::FileExists, u"The server's database has a planner of this name already."_s};
    if (connection.AskOne(u"SHOW server_encoding"_s).toString() != u"UTF8")
        throw RunTimeError{engineerrors::NotSupported, u"The server's database must have the encoding UTF8."_s};
    if (connection.Ask(u"SELECT 1 FROM pg_namespace WHERE nspname = $1"_s, {schema}).empty())
        connection.Ask("CREATE SCHEMA "_L1 + SqlText::Quoted(schema));
    connection.Ask("CREATE TABLE "_L1 + FormatTable(schema) + " (version integer NOT NULL, id text NOT NULL)"_L1);
    connection.Ask("INSERT INTO "_L1 + FormatTable(schema) + u" SELECT %1, gen_random_uuid()::text"_s.arg(Version));
}

void DropMark(SqlConnection& connection, const QString& schema)
{
    connection.Ask("DROP TABLE "_L1 + FormatTable(schema));
}
} // namespace postgresschema
