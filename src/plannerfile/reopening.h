// Work on the open planner's file that nobody, this program included, may have open meanwhile.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <functional>
#include <optional>

class ExitSave;
class Opening;

// Does it under the hourglass. What ended it, if anything did.
std::optional<RunTimeError> FailureOf(const std::function<void()>& work);

class Reopening
{
public:
    Reopening(ExitSave& exitSave, Opening& opening) : m_exitSave(exitSave), m_opening(opening) {}

    // Closes the planner, whose notes are saved, does the work and opens it again as it was open. What ended the work,
    // if anything did: to be told afterwards, since the timers go on behind a message.
    std::optional<RunTimeError> operator()(const std::function<void()>& work);

private:
    ExitSave& m_exitSave;
    Opening& m_opening;
};
