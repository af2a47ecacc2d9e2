// The only exception of the code. Number identifies the error, Description is for the person. This header is the ground
// floor: it includes nothing of ours.
#pragma once

#include <QString>

struct RunTimeError
{
    int Number;
    QString Description;
};

// Errors that several rooms raise or recognise. The engine's are in platform/engine/engineerrors.h.
namespace errors {
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int FileNotFound = 53;
inline constexpr int PathFileAccess = 75;
inline constexpr int ObjectNotSet = 91;
inline constexpr int InvalidUseOfNull = 94;
inline constexpr int NoSuchElement = 340;
inline constexpr int AlreadyLoaded = 360;
inline constexpr int InvalidPropertyValue = 380;
inline constexpr int InvalidPicture = 481;
inline constexpr int DialogCancelled = 32755;

[[noreturn]] inline void RaiseAccess()
{
    throw RunTimeError{PathFileAccess, QStringLiteral("Path/File access error")};
}
} // namespace errors
