// Whether the screen is locked, so that nobody may read what is written.
#pragma once

#include <functional>

class QObject;

namespace screenlock {
// Asks the desktop's services and calls back from the event loop, unless the context is deleted before. Locked, if a
// service hangs; not locked, if there is none.
void Ask(QObject* context, const std::function<void(bool isLocked)>& answer);

// Calls the slot, without arguments, whenever the screen is locked or unlocked.
void Watch(QObject* receiver, const char* slot);
} // namespace screenlock
