// Opens, makes, deletes, compacts and replaces the files of SqliteStores.
#pragma once

#include "platform/engine/tabledef.h"

#include <functional>
#include <memory>

class Store;

// Symbolic links in paths are followed, so that all opens of one planner share one lock file. Errors as the functions
// of DBEngine that call these.
namespace sqlitefile {
std::shared_ptr<Store> Open(const QString& path, bool exclusive);
std::shared_ptr<Store> OpenResting(const QString& path); // nobody writes into it; only look-ups
std::shared_ptr<Store> Create(const QString& path);
// Makes a new planner file with what is written into it, in one transaction. If that fails, `path` is not made.
void CreateFilled(const QString& path, const std::function<void(Store&)>& write);
void Delete(const QString& path);
QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>& expected);
QString Replace(const QString& scratch, const QString& target);
// Copies a planner that nobody has open into an existing file and checks the whole copy. NotADatabase, DiskFull,
// InputOutput.
void CopyWhole(const QString& planner, const QString& to);
// Copies a planner with its journal into a new file, though others may have it open, even exclusively. InUse if they
// write into it all the time.
void CopyAsItStands(const QString& planner, const QString& to);
std::shared_ptr<void> Claim(const QString& path); // nobody can open it while the result lives
std::shared_ptr<void>
ClaimPlanner(const QString& path); // also NotADatabase: a file that is no planner gets no lock file
} // namespace sqlitefile
