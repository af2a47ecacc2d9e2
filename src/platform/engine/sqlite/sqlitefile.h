// The files behind a SqliteStore: finding what they are, making and deleting them.
#pragma once

#include <QString>

#include <memory>

class Store;

// Paths as a caller has them; symbolic links are followed, so that all who open one planner share one file of locks.
// Errors as the functions of DBEngine that use them.
namespace sqlitefile {
std::shared_ptr<Store> Open(const QString& path, bool exclusive);
std::shared_ptr<Store> Create(const QString& path);
void Delete(const QString& path);
std::shared_ptr<void> Claim(const QString& path); // nobody can open it while the result lives
} // namespace sqlitefile
