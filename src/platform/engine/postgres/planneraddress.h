// Where a planner on a server is, as a connection URI names it. It comes from files that anybody may have written, so
// it says where the planner is and how the way there is guarded, and nothing else; never a password.
#pragma once

#include <QMap>
#include <QString>

#include <string>

class PlannerAddress
{
public:
    // postgresql://USER@HOST:PORT/DATABASE?sslmode=...&sslrootcert=...&planner=... with no more than that. What is left
    // out is the client library's default, and the planner "planner". NotADatabase with a text that says what is wrong.
    explicit PlannerAddress(const QString& uri);

    QString Uri() const;
    QString Server() const; // host and port
    QString Planner() const;
    QString Schema() const;         // the planner's own among those of the database
    std::string Connection() const; // for the client library

private:
    void Take(const QString& name, const QString& value);

    QMap<QString, QString> m_values; // by the client library's names
};
