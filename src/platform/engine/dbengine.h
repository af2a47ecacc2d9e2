// Making, opening and keeping databases. Paths are real ones (platform/desktop/filesystem.h finds them).
#pragma once

#include "platform/engine/database.h"

#include <functional>

namespace DBEngine {
inline constexpr int dbFreeLocks = 1;
inline constexpr int dbRefreshCache = 8;

// Makes an empty database and opens it, not exclusively. 3204 if the file exists, 3044 or 3043 if it cannot be made.
Database CreateDatabase(const QString& path, const QString& locale);

// 3024 no such file, 3343 not a database of this program (or damaged at its head), 3051 may not be written, 3045 the
// open modes exclude each other: the text names user and machine where they are known. Exclusive and shared opens
// exclude each other at once between processes; two shared ones do not. Within one process a second open changes the
// mode to its own, so that a planner can be opened again another way while its first objects still live. 3050 the file
// system keeps no locks. The file, and what this process has open of it, is left as it was when an open fails.
Database OpenDatabase(const QString& path, bool exclusive = false);

// Deletes a database with its journal, if nobody, this program included, has it open (3045). 3024, 3051, 3043.
void DeleteDatabase(const QString& path);

// dbFreeLocks and dbRefreshCache: lets the engine see what others have committed. Never touches a pending edit.
void Idle(int action);

// Put around every store that is opened from now on; a test's store fails at a chosen call. Null takes it away.
using StoreWrapper = std::function<std::shared_ptr<Store>(std::shared_ptr<Store>)>;
void SetStoreWrapperForTests(StoreWrapper wrapper);
} // namespace DBEngine
