// The files behind a SqliteStore: finding what they are, making and deleting them.
#pragma once

#include <QString>

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
std::shared_ptr<void> Claim(const QString& path);        // nobody can open it while the result lives
std::shared_ptr<void> ClaimPlanner(const QString& path); // 3343 too: no file of locks comes to what is no planner
} // namespace sqlitefile
