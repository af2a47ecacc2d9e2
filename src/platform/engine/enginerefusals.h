// Errors that more than one part of the engine raises, with their one text each. A name is the planner's as messages
// show it.
#pragma once

#include "platform/runtime/runtimeerror.h"

namespace engineerrors {
[[noreturn]] void RaiseDataChanged();                                     // 3197
[[noreturn]] void RaiseNoUpdatePending();                                 // 3020
[[noreturn]] void RaiseRecordLocked(const QString& holder);               // 3260
[[noreturn]] void RaiseInUse(const QString& name, const QString& holder); // 3045
[[noreturn]] void RaiseSaveUnderWay(const QString& name);                 // 3186
[[noreturn]] void RaiseNewer(const QString& name);                        // 3343
[[noreturn]] void RaiseNoTable(const QString& table);                     // 3011
RunTimeError DamagedError(const QString& name);                           // 3343
[[noreturn]] void RaiseTableExists(const QString& table);                 // 3010
[[noreturn]] void RaiseFileExists(const QString& path);                   // 3204
[[noreturn]] void RaiseClosed();                                          // 3420
} // namespace engineerrors
