// Taking a planner from a file to a server and back: all rows of all tables, or nothing. Meaning and errors as in
// DBEngine and Database.
#pragma once

#include <QString>

#include <functional>

class Store;

namespace moving {
void ToServer(const QString& path, const QString& uri);
QString LinkedAddress(const QString& path);
void ToFile(Store& from, const QString& path);

// Makes `path` a new planner file of what is written into it, in one transaction; where that fails, there is no `path`.
void NewFile(const QString& path, const std::function<void(Store&)>& write);
} // namespace moving
