// The system's calls by which files change stand between this program and the system: the nth of them can fail, or be
// the last thing that the program ever does. Linked into a test program, its libraries included, instead of the C
// library's.
#pragma once

#include <string>

namespace faultycalls {
enum class Fault
{
    None,
    Kill,            // before the call
    PowerCut,        // likewise, and what was not synced is gone
    PowerCutOnBytes, // likewise, but all names are as they were last
    DiskFull,        // this one time
    BadDisk,         // an I/O error, this one time
    FullFromHere,    // half of what this call writes has room yet
    BadFromHere
};

inline bool Ends(Fault fault)
{
    return fault == Fault::Kill || fault == Fault::PowerCut || fault == Fault::PowerCutOnBytes;
}

void Watch(const std::string& folder); // what a power cut takes counts from here; see powercut.h
void Arm(Fault fault, int at);         // the count of calls begins
int Disarm();                          // how many calls there were since; no more faults
} // namespace faultycalls
