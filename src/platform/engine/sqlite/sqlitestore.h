// A planner in a file, kept by SQLite: the Store behind most planners.
#pragma once

#include "platform/engine/sql/sqlstore.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/sessiontable.h"
#include "platform/engine/sqlite/sqliteconnection.h"

class SqliteStore final : public SqlStore
{
public:
    enum class File
    {
        Planner,
        Claimed, // claimed by the caller; read without locks of its own
        Resting, // nobody writes into it; nothing is written, in it or beside it
        Empty    // just made; gets an empty planner
    };

    // Takes the real path of an existing file. Errors as DBEngine::OpenDatabase.
    SqliteStore(const QString& path, bool exclusive, File file);

    QString Address() const override { return {}; }
    void Expect(const TableDef&, const Index&, const QVariantList&) override {} // look-ups in a file are fast
    qint64 Revision() override;
    void BackUp(const QString& path) override;
    void Refresh() override {}                // every look-up reads the file
    void OnChange(ChangeListener) override {} // a file gets no notifications
    void Close() override;

protected:
    SqlConnection& Connection() override { return *m_connection; }
    bool Take(const RecordName& record) override;
    void GiveBack(const RecordName& record) override;
    QString HolderOf(const RecordName& record) override { return ::HolderOf(m_session->Locks(), record); }

private:
    static void Matches(sqlite3_context* context, int count, sqlite3_value** arguments);

    const QString m_path;
    std::optional<OpenFile> m_openFile; // before the connection, so that the mode is released after the file is closed
    std::optional<Session> m_session;
    std::optional<SqliteConnection> m_connection;
};
