// Taking a planner from a file to a server and back: all rows of all tables, or nothing. Meaning and errors as in
// DBEngine.
#pragma once

#include <QString>

namespace moving {
void ToServer(const QString& path, const QString& uri);
void ToFile(const QString& link, const QString& path);
QString AddressOf(const QString& path); // DBEngine::ServerAddress
} // namespace moving
