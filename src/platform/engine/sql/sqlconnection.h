// A connection to a planner by statements of SQL, and its transactions. What lies behind it is a file or a server.
// Whatever fails, no transaction stays open that nobody knows of, and the connection can go on.
#pragma once

#include "platform/engine/sql/sqlrows.h"
#include "platform/runtime/runtimeerror.h"

#include <functional>
#include <optional>

struct SqlDialect;

class SqlConnection
{
public:
    // How long a server may be silent, neither giving nor taking a byte, before the session counts as broken.
    enum class Patience
    {
        Usual,
        Long // where it has much to look at or to write before it answers
    };

    // Name is the planner's, as messages show it.
    SqlConnection(const SqlDialect& dialect, const QString& name) : m_dialect(dialect), m_name(name) {}
    virtual ~SqlConnection() = default;
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    // One statement, with the values for its marks. Errors by the database's own table of meanings.
    SqlRows Ask(const QString& statement, const SqlValues& values = {}, Patience patience = Patience::Usual);
    QVariant AskOne(const QString& statement,
                    const SqlValues& values = {}); // the first value; InputOutput if there is none

    void Write(const std::function<void()>& step);               // within the WriteTransaction, or as one of its own
    int Reading() const { return m_reading ? m_readNumber : 0; } // which read is open, counted from 1

    // As the Store's calls of these names.
    void BeginRead();
    void EndRead();
    void BeginWrite();
    void Commit();
    void Rollback();
    void StopReading(); // what is read next is the latest state

    const SqlDialect& Dialect() const { return m_dialect; }

protected:
    virtual void Prepare() = 0;      // before a statement, unless that ends a transaction
    virtual void PrepareWrite() = 0; // before a write begins
    virtual SqlRows Run(const QString& statement, const SqlValues& values, Patience patience) = 0;
    virtual bool HasTransaction() const = 0; // whether one that was begun is still there
    // For a database where a failing statement spoils the whole write: it goes back to the beginning of the step.
    virtual void BeginStep() {}
    virtual void UndoStep() {}
    virtual void Abandon() {} // a rollback has failed
    // A commit has failed and nothing is open any more. Returns only if the commit has got through all the same.
    virtual void ClearDoubt(const RunTimeError& failure) { throw failure; }

    const SqlDialect& m_dialect;
    const QString m_name;
    bool m_reading = false; // a read transaction is open
    bool m_writing = false;
    bool m_inStep = false;              // of a group of writes: a failure is undone by itself
    std::optional<RunTimeError> m_lost; // why the present write is lost

private:
    void WriteInGroup(const std::function<void()>& step);
    void UndoOrLose(const RunTimeError& failure);

    int m_reads = 0; // nested ones
    int m_readNumber = 0;
};
