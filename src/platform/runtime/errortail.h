// The error discipline: a failing step is counted, logged and skipped, and the later steps still run. The person sees
// nothing unless the routine shows a message.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QLatin1StringView>

#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

extern bool g_bErrorTrap;        // tails catch errors; set by start-up, never cleared
extern std::int16_t g_iErrCount; // errors of this run; written by LogError only
extern int g_iErrFile;           // descriptor of the log, -1 if none is open

// Empties the log and sets the counter to 0. Raises errors::PathFileAccess if the log cannot be written.
void OpenErrorLog(const QString& path);
void CloseErrorLog();

// Counts the error and writes " 3:text in Module, Routine". The literal includes its leading blank.
void LogError(const RunTimeError& error, QLatin1StringView literal);

// A routine makes one with its literal and passes each step to it. True: the step ended. False: an error was logged. A
// routine that must stop at the first error checks the result.
class ErrorTail
{
public:
    explicit ErrorTail(QLatin1StringView literal, std::initializer_list<int> silentNumbers = {})
        : m_literal(literal), m_silentNumbers(silentNumbers)
    {
    }

    template <typename Step>
    bool operator()(Step&& step) const
    {
        if (!g_bErrorTrap) {
            std::forward<Step>(step)();
            return true;
        }
        try {
            std::forward<Step>(step)();
            return true;
        } catch (const RunTimeError& error) {
            Log(error);
            return false;
        }
    }

private:
    void Log(const RunTimeError& error) const;

    QLatin1StringView m_literal;
    std::vector<int> m_silentNumbers;
};

// Wraps an action that the toolkit calls (signal, timer, event override). An exception must not pass through the
// toolkit, so an error is logged under the literal and ends here. The action takes the signal's arguments or none.
template <typename Action>
[[nodiscard]] auto Guarded(QLatin1StringView literal, Action action)
{
    return [literal, action = std::move(action)](auto&&... arguments) {
        try {
            if constexpr (std::is_invocable_v<const Action&, decltype(arguments)...>)
                action(std::forward<decltype(arguments)>(arguments)...);
            else
                action();
        } catch (const RunTimeError& error) {
            LogError(error, literal);
        }
    };
}
