// An open database.
#pragma once

#include "platform/engine/recordset.h"

struct OpenStore
{
    std::shared_ptr<Store> store; // null when closed
    int opening = ++g_openings;   // of this process

    static inline int g_openings = 0;
};

class Database : public Handle<OpenStore>
{
public:
    Database() = default;
    explicit Database(std::shared_ptr<Store> store) : Handle(std::make_shared<OpenStore>(std::move(store))) {}

    Recordset OpenTable(const QString& name);     // NoTable
    Recordset CreateDynaset(const QString& name); // ordered by the primary key; for Find
    // Makes the table with its fields in this order, and its indexes.
    void Append(const TableDef& table) { Live().store->CreateTable(table); }
    QStringList TableNames() const { return Live().store->TableNames(); }
    QString ServerAddress() const; // of a planner on a server; empty for a file or a closed database
    // Calls step with the values of these fields, for each row of the table in order of insertion. Within a
    // ReadTransaction all rows are of one state. Tells longwork how far it is, so it may raise Cancelled. NoTable,
    // ItemNotFound.
    void Walk(const QString& table, const QStringList& fields,
              const std::function<void(const QVariantList& values)>& step) const;
    // Another number after each commit, by whomever, that this session can know of. Cheap: on a server no request.
    // Busy.
    std::pair<int, qint64> Revision() const { return {Live().opening, Live().store->Revision()}; }
    // Copies the present state of this planner into a new planner file `path` and compares it row by row. Others may go
    // on using this planner. FileExists, DiskFull, InputOutput: then `path` is not made.
    void SaveToFile(const QString& path);
    // Copies a planner file that is open, page by page; `path` is replaced as a whole. CouldNotSave, DiskFull,
    // InputOutput: then `path` is unchanged. NotSupported on a server.
    void BackUp(const QString& path) { Live().store->BackUp(path); }
    // From now on a server keeps the last ten texts of each record that are replaced or deleted, by whichever program.
    // Does nothing for a file, or if the role may not. Raises nothing.
    void KeepHistory(const KeptTexts& texts);
    // The kept texts of a record, the newest first. Empty if the planner has no history. BrokenConnection,
    // ReadOnlyFile.
    std::optional<std::vector<PastText>> PastTexts(const QString& key) const { return Live().store->PastTexts(key); }
    // Calls back after each commit of another user, from the event loop, never inside a call of the engine. Planners in
    // files never call back. Ends with Close; null removes the callback.
    void OnChange(ChangeListener listener) { Live().store->OnChange(std::move(listener)); }
    // Closes the file once its last recordset is gone too. Later calls raise Closed.
    void Close();

private:
    friend class ReadTransaction;
    friend class TableWalk;
    friend class WriteTransaction;
};

// During its life all look-ups see one state of the file and lock it only once. Does nothing for a database without an
// object. If it cannot begin, it raises nothing, and each look-up stands alone. An update inside is durable when it
// returns. It ends the common state; later look-ups stand alone.
class ReadTransaction
{
public:
    explicit ReadTransaction(const Database& database);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

    // The recordset is about to Seek these keys in its current index. A store on a server reads them all in one round
    // trip and answers the Seeks from that while this lives. Raises nothing; optional.
    void Expect(const Recordset& records, const QVariantList& keys) const;

private:
    std::shared_ptr<Store> m_store;
};

// All updates during its life become durable together at Commit. A single failed update leaves the others. If the store
// gives up (full disk), all further updates and Commit raise its error. One at a time: a second one on the same
// database raises CouldNotSave.
class WriteTransaction
{
public:
    explicit WriteTransaction(const Database& database); // CouldNotSave if another writer does not finish in time
    ~WriteTransaction();                                 // without Commit nothing is written
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;
    void Commit(); // CouldNotSave, DiskFull, InputOutput: then nothing is written

private:
    std::shared_ptr<Store> m_store;
};
