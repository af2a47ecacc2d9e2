// Runs a step and returns the number of its error.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <functional>

// 0 if the step raised none. Puts the error's text into the second argument.
inline int ErrorOf(const std::function<void()>& step, QString* text = nullptr)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        if (text) *text = error.Description;
        return error.Number;
    }
    return 0;
}
