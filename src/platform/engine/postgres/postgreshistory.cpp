#include "platform/engine/postgres/postgreshistory.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sessionname.h"

#include <QDateTime>

namespace {
constexpr int TextsKept = 10; // of each key

// The columns have types of a planner, so that an older program, which takes this for one of its tables, can read it.
const QString TableStatement = u"CREATE TABLE %1 (\"record id\" integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY, "
                               "\"key\" character varying(255) COLLATE \"C\", \"text\" bytea, "
                               "\"replaced\" timestamp(3) without time zone, "
                               "\"by\" character varying(63) COLLATE \"C\")"_s;
const QString IndexStatement = u"CREATE INDEX \"planner history key\" ON %1 (\"key\", \"record id\")"_s;

// Runs with the rights of the table's owner: who may write a record need not be allowed to change its history. A
// history that cannot be written must not stop a save.
const QString FunctionStatement =
    u"CREATE FUNCTION %2() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS "
    "$history$BEGIN "
    "IF TG_OP = 'UPDATE' AND OLD.%5 IS NOT DISTINCT FROM NEW.%5 THEN RETURN NULL; END IF; "
    "IF coalesce(btrim(OLD.%5, ' '), '') = '' THEN RETURN NULL; END IF; "
    "BEGIN "
    "INSERT INTO %1 (\"key\", \"text\", \"replaced\", \"by\") VALUES (OLD.%4, OLD.%5, "
    "clock_timestamp() AT TIME ZONE 'UTC', current_setting('application_name')); "
    "DELETE FROM %1 WHERE \"key\" = OLD.%4 AND \"record id\" <= (SELECT \"record id\" FROM %1 WHERE \"key\" = OLD.%4 "
    "ORDER BY \"record id\" DESC OFFSET %6 LIMIT 1); "
    "EXCEPTION WHEN OTHERS THEN NULL; END; "
    "RETURN NULL; END$history$"_s;
const QString RevokeStatement = u"REVOKE EXECUTE ON FUNCTION %2() FROM PUBLIC"_s; // no other table may fill the history
const QString TriggerStatement =
    u"CREATE TRIGGER \"keep history\" AFTER UPDATE OR DELETE ON %3 FOR EACH ROW EXECUTE FUNCTION %2()"_s;

// Whoever may read the records may read their history.
const QString GrantStatement =
    u"DO $grant$DECLARE reader oid; BEGIN FOR reader IN SELECT DISTINCT grantee FROM pg_catalog.pg_class, "
    "pg_catalog.aclexplode(relacl) WHERE oid = '%7'::regclass AND privilege_type = 'SELECT' LOOP "
    "EXECUTE 'GRANT SELECT ON %1 TO ' || CASE reader WHEN 0 THEN 'PUBLIC' ELSE reader::regrole::text END; "
    "END LOOP; END$grant$"_s;

bool MayBegin(SqlConnection& connection, const QString& schema, const QString& table)
{
    return !connection
                .Ask(u"SELECT 1 FROM pg_class AS c JOIN pg_namespace AS n ON n.oid = c.relnamespace "
                     "WHERE n.nspname = $1 AND c.relname = $2 AND pg_has_role(c.relowner, 'USAGE') "
                     "AND has_schema_privilege(n.oid, 'CREATE') AND NOT EXISTS (SELECT 1 FROM pg_class AS own "
                     "WHERE own.relnamespace = n.oid AND own.relname = 'planner history')"_s,
                     {schema, table})
                .empty();
}

PastText PastTextOf(const SqlRow& row)
{
    const QDateTime replaced = QDateTime::fromString(row.Text(0) + u'Z', Qt::ISODateWithMs);
    return {replaced.toLocalTime(), sessionname::PersonOf(row.Text(1)), row[2].toByteArray()};
}
} // namespace

namespace postgreshistory {
void Begin(SqlConnection& connection, const QString& schema, const SqlText& text, const KeptTexts& texts)
{
    if (!MayBegin(connection, schema, texts.table)) return;
    const QString records = text.Qualified(texts.table);
    connection.Write([&] {
        for (const QString& statement :
             {TableStatement, IndexStatement, FunctionStatement, RevokeStatement, TriggerStatement, GrantStatement})
            connection.Ask(QString(statement)
                               .replace("%1"_L1, text.Qualified(u"planner history"_s))
                               .replace("%2"_L1, text.Qualified(u"keep history"_s))
                               .replace("%3"_L1, records)
                               .replace("%4"_L1, SqlText::Quoted(texts.key))
                               .replace("%5"_L1, SqlText::Quoted(texts.text))
                               .replace("%6"_L1, QString::number(TextsKept))
                               .replace("%7"_L1, QString(records).replace(u'\'', "''"_L1)));
    });
}

std::optional<std::vector<PastText>> Of(SqlConnection& connection, const SqlText& text, const QString& key)
{
    std::vector<PastText> texts;
    try {
        for (const SqlRow& row :
             connection.Ask("SELECT \"replaced\", \"by\", \"text\" FROM "_L1 + text.Qualified(u"planner history"_s) +
                                " WHERE \"key\" = $1 ORDER BY \"record id\" DESC"_L1,
                            {key}))
            texts.push_back(PastTextOf(row));
    } catch (const RunTimeError& error) {
        if (error.Number == engineerrors::NoTable) return {};
        throw;
    }
    return texts;
}
} // namespace postgreshistory
