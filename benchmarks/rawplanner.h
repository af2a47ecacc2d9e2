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
    // Uses the program's journal mode and sync.
    explicit RawPlanner(const QString& path, Locking locking = Locking::Exclusive);
    ~RawPlanner();
    RawPlanner(const RawPlanner&) = delete;
    RawPlanner& operator=(const RawPlanner&) = delete;

    std::vector<QByteArray> Read(const QStringList& keys);
    // The smallest key after behind whose text is LIKE the pattern; empty for none.
    QString FindLike(const QByteArray& like, const QString& behind = {});
    int CountLike(const QByteArray& like); // fetches every text that is LIKE the pattern
    void Write(const QStringList& keys, const std::vector<QByteArray>& notes); // one transaction
    void AddEvent(); // adds a recurring event's record in its own transaction
    // Like Write, but looks each day up first and adds missing records.
    void Put(const QStringList& keys, const std::vector<QByteArray>& notes);
    bool HasAlarm(const QString& date, const QString& time); // reads each alarm of the date
    int CountAlarms();                                       // fetches date and time of all

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
