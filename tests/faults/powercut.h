// What a power cut would leave of a program's files: what was written and not synced is gone, and so are names that
// were made, moved or removed in a folder that was not synced since. Each change is kept with the way back from it
// until a sync makes it last.
#pragma once

#include <sys/types.h>

#include <string>

namespace powercut {
void Watch(const std::string& folder); // from now on; a folder `cut` in it keeps what loses its name

// Before the change is made. A truncation is one of all that is behind.
void Write(int file, off_t at, size_t size);
void Truncate(int file, off_t size);
void Truncate(const char* path);
std::string Keep(const char* path); // what is to lose this name, under another one; empty if there is none

// After it.
void Made(const char* path);
void Moved(const char* from, const char* to, const std::string& kept);
void Removed(const char* path, const std::string& kept);
void Synced(int file); // or folder

void Lose(int file); // what could not be synced is gone: later syncs do not know of it

// The bytes alone, as on a file system that writes names at once, or the names too.
void Cut(bool names);
} // namespace powercut
