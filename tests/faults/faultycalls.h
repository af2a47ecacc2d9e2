// Wrappers around the system calls that change files. The nth call can fail, or be the last one of the program. Test
// programs link them instead of the C library's, for their libraries too.
#pragma once

#include <string>
#include <vector>

namespace faultycalls {
enum class Fault
{
    None,
    Kill,            // before the call
    PowerCut,        // before the call; unsynced changes are lost
    PowerCutOnBytes, // before the call; unsynced bytes are lost, but names are not
    DiskFull,        // this call only
    BadDisk,         // an I/O error, this call only
    FullFromHere,    // writes half of this call's bytes
    BadFromHere
};

inline bool Ends(Fault fault)
{
    return fault == Fault::Kill || fault == Fault::PowerCut || fault == Fault::PowerCutOnBytes;
}

void Watch(const std::string& folder); // a power cut loses changes from here on; see powercut.h
void Arm(Fault fault, int at);         // starts counting calls
int Disarm();                          // returns the number of calls and ends the faults
const std::vector<int>& Syncs();       // the numbers of those that synced a file or a folder
} // namespace faultycalls
