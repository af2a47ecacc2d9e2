// Moves a workgroup's open planner from its file to a server, and saves it from a server to a file.
#pragma once

#include <QString>

class CommonDialog;
class LockedDay;
class Opening;

class ServerMove
{
public:
    ServerMove(CommonDialog& dialog, Opening& opening, LockedDay& lockedDay)
        : m_dialog(dialog), m_opening(opening), m_lockedDay(lockedDay)
    {
    }

    QString Address() const; // of the open planner's server; empty for a planner in a file
    // Both ask, act and report. Afterwards the planner is open in its new place, or on failure in its old one.
    void MoveToServer(const QString& address);
    void SaveToFile();

private:
    CommonDialog& m_dialog;
    Opening& m_opening;
    LockedDay& m_lockedDay;
};
