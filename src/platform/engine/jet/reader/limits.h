// Restricts the rights of the reader. Its library was not written for malicious files.
#pragma once

#include <cstddef>

// Limits processor time and memory, forbids writing files, and ends the process with its parent.
bool LimitResources(std::size_t fileSize);

// After this the process can use memory and the open pipe only: no file, no connection, no other process.
bool GiveUpTheSystem();
