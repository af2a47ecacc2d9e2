// Moves the open planner of a workgroup from its file to a server, and saves one that is there to a file again.
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

    QString Address() const; // of the open planner; empty while it lies in its file
    // Ask, do it, and say how it went. The planner is open afterwards as it was, in its new place or its old one.
    void MoveToServer(const QString& address);
    void SaveToFile();

private:
    CommonDialog& m_dialog;
    Opening& m_opening;
    LockedDay& m_lockedDay;
};
