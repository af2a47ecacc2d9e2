// The files behind a SqliteStore as wholes: opened, made, deleted, made compact and put into each other's place.
#pragma once

#include "platform/engine/tabledef.h"

#include <functional>
#include <memory>

class Store;

// Paths as a caller has them; symbolic links are followed, so that all who open one planner share one file of locks.
// Errors as the functions of DBEngine that use them.
namespace sqlitefile {
std::shared_ptr<Store> Open(const QString& path, bool exclusive);
std::shared_ptr<Store> Create(const QString& path);
// Makes `path` a new planner file of what is written into it, in one transaction; where that fails, there is no `path`.
void CreateFilled(const QString& path, const std::function<void(Store&)>& write);
void Delete(const QString& path);
QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>& expected);
QString Replace(const QString& scratch, const QString& target);
// Copies a planner that nobody has open into an existing file, and looks at all of the copy. NotADatabase, DiskFull,
// InputOutput.
void CopyWhole(const QString& planner, const QString& to);
std::shared_ptr<void> Claim(const QString& path); // nobody can open it while the result lives
std::shared_ptr<void>
ClaimPlanner(const QString& path); // NotADatabase too: no file of locks comes to what is no planner
} // namespace sqlitefile
