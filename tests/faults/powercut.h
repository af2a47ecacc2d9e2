// Simulates a power cut. It loses unsynced bytes, and names made, moved or removed in a folder that was not synced
// since. Each change is recorded with its undo until a sync.
#pragma once

#include <sys/types.h>

#include <string>

namespace powercut {
void Watch(const std::string& folder); // from now on; files that lose their name are kept in its folder `cut`

// Before the change. A truncation changes all bytes behind its point.
void Write(int file, off_t at, size_t size);
void Truncate(int file, off_t size);
void Truncate(const char* path);
std::string Keep(const char* path); // links the file that loses this name under another name, which it returns; empty
                                    // if there is no file

// After the change.
void Made(const char* path);
void Moved(const char* from, const char* to, const std::string& kept);
void Removed(const char* path, const std::string& kept);
void Synced(int file); // a file or a folder

void Lose(int file); // forgets what could not be synced: later syncs do not save it

// Loses the bytes only, as on a file system that writes names at once, or the names too.
void Cut(bool names);
} // namespace powercut
