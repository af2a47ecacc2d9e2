// Compact and Repair: the engine's upkeep of a planner file that is chosen, whichever one is open.
#pragma once

#include <QLatin1StringView>

#include <functional>

class CommonDialog;

class Maintenance
{
public:
    explicit Maintenance(CommonDialog& dialog) : m_dialog(dialog) {}

    void mnuCompact_Click();
    void mnuRepair_Click();

private:
    bool ChooseFile(const char* filter);
    // Shows and logs an error of the work; text is what stands before the error's own.
    static void Run(QLatin1StringView literal, const char* text, const std::function<void()>& work,
                    const QString& afterError = {});

    CommonDialog& m_dialog;
};
