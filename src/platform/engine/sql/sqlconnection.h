// A connection to a planner in SQL, and its transactions, for a file or a server. After any failure no unknown
// transaction stays open, and the connection can be used further.
#pragma once

#include "platform/engine/sql/sqlrows.h"
#include "platform/runtime/runtimeerror.h"

#include <functional>
#include <optional>

struct SqlDialect;

class SqlConnection
{
public:
    // How long a server may neither send nor accept a byte before the session counts as broken.
    enum class Patience
    {
        Usual,
        Long // for statements that read or write much before the answer
    };

    // The planner's name for messages.
    SqlConnection(const SqlDialect& dialect, const QString& name) : m_dialect(dialect), m_name(name) {}
    virtual ~SqlConnection() = default;
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    // Runs one statement with its values. Maps errors by the database's own table.
    SqlRows Ask(const QString& statement, const SqlValues& values = {}, Patience patience = Patience::Usual);
    QVariant AskOne(const QString& statement,
                    const SqlValues& values = {}); // the first value; InputOutput if there is none

    void Write(const std::function<void()>& step);               // within the WriteTransaction, or in its own
    int Reading() const { return m_reading ? m_readNumber : 0; } // the number of the open read, counted from 1; else 0

    // As the Store's calls of these names.
    void BeginRead();
    void EndRead();
    void BeginWrite();
    void Commit();
    void Rollback();
    void StopReading(); // the next look-up reads the latest state

    const SqlDialect& Dialect() const { return m_dialect; }

protected:
    virtual void Prepare() = 0;      // before a statement, unless it ends a transaction
    virtual void PrepareWrite() = 0; // before a write begins
    virtual SqlRows Run(const QString& statement, const SqlValues& values, Patience patience) = 0;
    virtual bool HasTransaction() const = 0; // whether the transaction still exists
    // For a database in which a failed statement spoils the whole write: a step can be undone alone.
    virtual void BeginStep() {}
    virtual void UndoStep() {}
    virtual void Abandon() {}     // after a failed rollback
    virtual void ForgetPages() {} // after any rollback: pages in memory may be those of the lost write
    // A commit has failed and no transaction is open. Returns only if the commit has succeeded nevertheless.
    virtual void ClearDoubt(const RunTimeError& failure) { throw failure; }

    bool IsInRead() const { return m_reads > 0; } // also after a failure has ended its transaction

    const SqlDialect& m_dialect;
    const QString m_name;
    bool m_reading = false;
    bool m_writing = false;
    bool m_inStep = false;              // a step of a group of writes; its failure is undone alone
    std::optional<RunTimeError> m_lost; // why the current write is lost

private:
    void WriteInGroup(const std::function<void()>& step);
    void UndoOrLose(const RunTimeError& failure);

    int m_reads = 0; // nested reads
    int m_readNumber = 0;
};
