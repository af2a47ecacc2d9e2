// A planner on a server by the bare client library: the least that reading and writing notes can cost there.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class RawServer
{
public:
    // address is the planner's link, including the planner's name.
    explicit RawServer(const QString& address);
    ~RawServer();

    std::size_t Read(const QStringList& keys);                     // one query; returns the number found
    std::size_t ReadAll();                                         // one query; returns the number of notes
    void LockAndWrite(const QString& key, const QByteArray& note); // takes an advisory lock, updates, unlocks

private:
    struct Session;
    std::unique_ptr<Session> m_session;
};
