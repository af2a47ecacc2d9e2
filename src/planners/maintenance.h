// Compact and Repair of a planner file. If the file is open in this program, it is closed for the work, if the person
// agrees, and opened again.
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
    // Works on the file. Returns what the success message adds.
    using Work = std::function<QString(const QString& file)>;
    struct Command
    {
        const char* name; // as in menu and message
        const char* filter;
        QLatin1StringView literal;
        const char* failed; // precedes the error's text
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
