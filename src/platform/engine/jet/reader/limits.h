// What the reader may use and do. The library under it was not written for files that mean harm.
#pragma once

#include <cstddef>

// Time of the processor, memory, no file written, and the end of the process with that of its parent.
bool LimitResources(std::size_t fileSize);

// From here on nothing but memory and the open pipe: no file, no connection, no other process.
bool GiveUpTheSystem();
