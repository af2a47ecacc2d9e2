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

private:
    sqlite3_stmt* Prepare(const char* text);
    void Execute(const char* text);

    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_find = nullptr;
    sqlite3_stmt* m_replace = nullptr;
    sqlite3_stmt* m_like = nullptr;
};
