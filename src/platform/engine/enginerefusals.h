// Errors that several parts of the engine raise, each with its text. A name is the planner's as messages show it.
#pragma once

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

namespace engineerrors {
struct KnownError
{
    int number;
    const char16_t* text; // ErrorOf's arguments replace %1 and %2
};

inline constexpr KnownError NoObject = {errors::ObjectNotSet, u"Object variable not set"};
inline constexpr KnownError ObjectClosed = {Closed, u"Object is closed."};
inline constexpr KnownError RecordChanged = {
    DataChanged, u"Data has changed; operation stopped. Another user has saved this record."};
inline constexpr KnownError LockedBy = {RecordLocked, u"Could not update; currently locked by %1."}; // the holder
inline constexpr KnownError InUseBy = {InUse, u"Could not use '%1'; file already in use by %2."};    // name and holder
inline constexpr KnownError NewerPlanner = {NotADatabase,
                                            u"'%1' was written by a newer Orrelin. Please update this one to open it."};
inline constexpr KnownError DamagedPlanner = {NotADatabase,
                                              u"The planner '%1' is damaged. Repair may be able to mend it."};
inline constexpr KnownError NoPlanner = {NotADatabase, u"'%1' is not a planner."};

template <typename... Texts>
RunTimeError ErrorOf(const KnownError& error, const Texts&... texts)
{
    const QString text = QString::fromUtf16(error.text);
    if constexpr (sizeof...(texts) == 0)
        return {error.number, text};
    else
        return {error.number, text.arg(texts...)};
}
} // namespace engineerrors
