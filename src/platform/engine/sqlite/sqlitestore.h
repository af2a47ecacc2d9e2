// A planner in a file of its own, kept by SQLite: the Store behind most planners.
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
        Claimed, // by the caller, for himself alone: to be read, without locks of its own
        Empty    // just made: an empty planner is written into it
    };

    // The path is the real one of an existing file. Errors as DBEngine::OpenDatabase.
    SqliteStore(const QString& path, bool exclusive, File file);

    QString Address() const override { return {}; }
    void Expect(const TableDef&, const Index&, const QVariantList&) override {} // nothing is far away
    void BackUp(const QString& path) override;
    void Refresh() override {}                // every look-up reads the file as it is
    void OnChange(ChangeListener) override {} // nobody tells a file's readers
    void Close() override;

protected:
    SqlConnection& Connection() override { return *m_connection; }
    bool Take(const RecordName& record) override;
    void GiveBack(const RecordName& record) override;
    QString HolderOf(const RecordName& record) override { return ::HolderOf(m_session->Locks(), record); }

private:
    const QString m_path;
    std::optional<OpenFile> m_openFile; // before the connection: the mode is given back when the file is closed
    std::optional<Session> m_session;
    std::optional<SqliteConnection> m_connection;
};
