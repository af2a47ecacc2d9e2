// The numbers of the engine's errors. Each is raised with its own text.
#pragma once

namespace engineerrors {
inline constexpr int InvalidArgument = 3001; // a comparison other than "="
inline constexpr int Busy = 3006; // a look-up could not read during another program's commit for the whole wait
inline constexpr int TableExists = 3010;
inline constexpr int NoTable = 3011;
inline constexpr int NoIndex = 3019;         // Seek before an index is set
inline constexpr int NoUpdatePending = 3020; // Update or CancelUpdate without AddNew or Edit
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int DuplicateKey = 3022;
inline constexpr int FileNotFound = 3024;
inline constexpr int DiskFull = 3026;
inline constexpr int InUse = 3045; // another program or user has the file open in a mode that excludes this one
inline constexpr int InputOutput = 3043;
inline constexpr int InvalidPath = 3044;  // the folder does not exist
inline constexpr int NoLocks = 3050;      // the file system has no locks, so nobody could be kept out
inline constexpr int ReadOnlyFile = 3051; // may not be opened for writing
inline constexpr int Cancelled = 3059;    // the person has ended long work (longwork.h)
inline constexpr int UnparsableCriterion = 3077;
inline constexpr int BrokenConnection = 3151;
inline constexpr int FieldTooSmall = 3163;
inline constexpr int RecordDeleted = 3167;
inline constexpr int CouldNotSave = 3186; // a commit did not succeed within the wait
inline constexpr int DataChanged = 3197;
inline constexpr int FileExists = 3204;
inline constexpr int NotSupported = 3251; // this kind of planner cannot do it
inline constexpr int RecordLocked = 3260;
inline constexpr int ItemNotFound = 3265; // no such field or index
inline constexpr int NotADatabase = 3343;
inline constexpr int Closed = 3420;       // an object that has been closed
inline constexpr int TypeMismatch = 3421; // a value that cannot be converted to the field's type
} // namespace engineerrors
