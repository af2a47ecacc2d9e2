// A planner on a server by the bare client library: the least that reading and writing notes there can cost.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class RawServer
{
public:
    // address as the planner's link has it, with the planner's name.
    explicit RawServer(const QString& address);
    ~RawServer();

    std::size_t Read(const QStringList& keys);                     // in one query; how many there are
    void LockAndWrite(const QString& key, const QByteArray& note); // takes an advisory lock, updates, lets go

private:
    struct Session;
    std::unique_ptr<Session> m_session;
};
