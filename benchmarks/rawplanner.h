// A planner file by the bare database library: the least that reading and writing notes can cost.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

class RawPlanner
{
public:
    enum class Locking
    {
        Exclusive,
        Shared
    };
    // With the journal and sync that the program uses.
    explicit RawPlanner(const QString& path, Locking locking = Locking::Exclusive);
    ~RawPlanner();
    RawPlanner(const RawPlanner&) = delete;
    RawPlanner& operator=(const RawPlanner&) = delete;

    std::vector<QByteArray> Read(const QStringList& keys);
    // The key of the first note behind this key, the smallest first, whose text is LIKE that; empty for none.
    QString FindLike(const QByteArray& like, const QString& behind = {});
    void Write(const QStringList& keys, const std::vector<QByteArray>& notes); // in one transaction
    void AddEvent(); // the record of a recurring event, in a transaction of its own
    // As Write, but each day is looked up first, and one without a record gets one.
    void Put(const QStringList& keys, const std::vector<QByteArray>& notes);
    bool HasAlarm(const QString& date, const QString& time); // by a look at each alarm of the date

private:
    sqlite3_stmt* Prepare(const char* text);
    void Execute(const char* text);
    bool Finds(const QByteArray& date);
    void Run(sqlite3_stmt* statement, const QByteArray& date, const QByteArray& note);

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_find = nullptr;
    sqlite3_stmt* m_replace = nullptr;
    sqlite3_stmt* m_insert = nullptr;
    sqlite3_stmt* m_alarms = nullptr;
    sqlite3_stmt* m_like = nullptr;
};
