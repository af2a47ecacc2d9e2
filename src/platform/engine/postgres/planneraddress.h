// The address of a planner on a server, as a connection URI. Anybody may have written the file that it comes from. So
// it holds only where the planner is and how the connection is protected, and never a password.
#pragma once

#include <QMap>
#include <QString>

#include <string>

class PlannerAddress
{
public:
    // postgresql://USER@HOST:PORT/DATABASE?sslmode=...&sslrootcert=...&planner=... and nothing more. Missing parts have
    // the client library's defaults; the planner's default is "planner". NotADatabase; the text says what is wrong.
    explicit PlannerAddress(const QString& uri);

    QString Uri() const;
    QString Server() const; // host and port
    QString Planner() const;
    QString Schema() const;         // the planner's schema in the database
    std::string Connection() const; // for the client library

private:
    void Take(const QString& name, const QString& value);

    QMap<QString, QString> m_values; // by the client library's parameter names
};
