// The error discipline: a failing step is counted, written to the log and passed over, and the steps after it still
// run. The person at the screen sees nothing of it; what deserves a message raises one itself.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QLatin1StringView>

#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

extern bool g_bErrorTrap;        // whether tails catch at all; set by start-up, never cleared
extern std::int16_t g_iErrCount; // errors of this run, 0 at start-up; written by LogError alone
extern int g_iErrFile;           // descriptor of the open log, -1 when there is none

// Opens the log for output, which empties it, and sets the counter to 0. Error 75 if it cannot be written.
void OpenErrorLog(const QString& path);
void CloseErrorLog();

// Counts the error and writes " 3:text in Module, Routine". The literal brings its own leading blank.
void LogError(const RunTimeError& error, QLatin1StringView literal);

// One for each routine, made with the routine's literal. Each call runs one step: true if the step came to its end,
// false if an error was logged and passed over. A routine that leaves at the first error asks for the result.
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

// An action as the toolkit may call it back, from a signal, a timer or an event override: an error that no tail has
// caught is logged under the literal and ends here, since it may not travel through the toolkit. It takes what a signal
// brings, or nothing.
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
