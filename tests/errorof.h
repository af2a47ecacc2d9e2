// The error that a step raises, by its number.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <functional>

// 0 if there was none; its text goes to the second argument.
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
