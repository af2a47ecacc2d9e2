// The system's calls by which files change stand between this program and the system: the nth of them can fail, or be
// the last thing that the program ever does. Linked into a test program, its libraries included, instead of the C
// library's.
#pragma once

#include <QMetaType>

namespace faultycalls {
enum class Fault
{
    None,
    Kill,     // before the call
    DiskFull, // this one time
    BadDisk,  // an I/O error, this one time
    FullFromHere,
    BadFromHere
};

void Arm(Fault fault, int at); // the count begins anew
int Disarm();                  // how many calls there were since
} // namespace faultycalls
