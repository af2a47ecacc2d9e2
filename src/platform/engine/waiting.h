// The engine goes to drives and servers, and any of them may keep the program waiting, for ever if it is killed then.
#pragma once

#include <functional>

namespace waiting {
// What is to be done before each such step; it must be quick where there is nothing to do, and not use the engine. Null
// takes it away.
void SetBefore(std::function<void()> step);

// To be called before such a step. Raises nothing.
void Before();
} // namespace waiting
