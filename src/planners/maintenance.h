// Compact and Repair: the engine's upkeep of a planner file that is chosen. The one that is open here is closed for it,
// if the person wants that, and open again afterwards.
#pragma once

#include <QString>

#include <functional>

class CommonDialog;
class LockedDay;
class Opening;
class QMTDB;

class Maintenance
{
public:
    Maintenance(CommonDialog& dialog, QMTDB& notes, LockedDay& lockedDay, Opening& opening)
        : m_dialog(dialog), m_notes(notes), m_lockedDay(lockedDay), m_opening(opening)
    {
    }

    void mnuCompact_Click();
    void mnuRepair_Click();

private:
    // The work of a command on a file; what is to be said besides that it is done.
    using Work = std::function<QString(const QString& file)>;
    struct Command
    {
        const char* name; // as the menu and the message have it
        const char* filter;
        QLatin1StringView literal;
        const char* failed; // stands before the error's own text
        const char* done;
        QString (*afterError)(const QString& file);
    };

    void Run(const Command& command, const Work& work);
    bool ChooseFile(const char* filter);
    bool MayClose(const QString& file, const Command& command);

    CommonDialog& m_dialog;
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
    Opening& m_opening;
};
