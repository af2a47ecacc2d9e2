// An open database.
#pragma once

#include "platform/engine/recordset.h"

struct OpenStore
{
    std::shared_ptr<Store> store; // null when closed
};

class Database : public Handle<OpenStore>
{
public:
    Database() = default; // no object
    explicit Database(std::shared_ptr<Store> store) : Handle(std::make_shared<OpenStore>(std::move(store))) {}

    Recordset OpenTable(const QString& name);     // NoTable
    Recordset CreateDynaset(const QString& name); // walks the primary key; for Find
    // Makes the table, its fields in this order, and its indexes.
    void Append(const TableDef& table) { Live().store->CreateTable(table); }
    QStringList TableNames() const { return Live().store->TableNames(); }
    QString ServerAddress() const; // of a planner on a server; empty for one in its file or closed
    // Makes `path` a new planner file with all that this one holds at this moment, compared with it row by row. It
    // stays where it is, and others may go on with it. FileExists, DiskFull, InputOutput: then there is no `path`.
    void SaveToFile(const QString& path);
    // An online copy of a planner in a file, page by page; `path` is replaced as a whole. CouldNotSave, DiskFull,
    // InputOutput: then `path` is as it was. NotSupported for one on a server.
    void BackUp(const QString& path) { Live().store->BackUp(path); }
    // Calls back after each commit of another user, as far as the store hears of them: one on a server does, a file
    // does not. From the event loop, never inside a call of the engine. Ends with Close; null takes it away.
    void OnChange(ChangeListener listener) { Live().store->OnChange(std::move(listener)); }
    // Closes the file when the last recordset of it is gone too; later calls raise Closed.
    void Close();

private:
    friend class ReadTransaction;
    friend class WriteTransaction;
};

// The look-ups made while this lives see one state of the file and take its lock once. Does nothing for no object.
// A failure to begin is not an error: the look-ups then stand alone. An update made inside is on the disk when it
// returns, as anywhere else; it ends the one state, and the look-ups after it stand alone.
class ReadTransaction
{
public:
    explicit ReadTransaction(const Database& database);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

    // The recordset is about to Seek these keys in its present index. A store on a server then reads them all in one
    // journey, and the Seeks made while this lives are answered from that. Never an error, and never needed.
    void Expect(const Recordset& records, const QVariantList& keys) const;

private:
    std::shared_ptr<Store> m_store;
};

// The updates made while this lives become durable together at Commit; a single one that fails leaves the others. Where
// the store itself gave up meanwhile (a full disk), all further updates and Commit raise its error. One at a time: a
// second one of the same database raises CouldNotSave.
class WriteTransaction
{
public:
    explicit WriteTransaction(const Database& database); // CouldNotSave if another writer does not let go in time
    ~WriteTransaction();                                 // without Commit nothing has happened
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;
    void Commit(); // CouldNotSave, DiskFull, InputOutput: then nothing has been written

private:
    std::shared_ptr<Store> m_store;
};
