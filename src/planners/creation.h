// Creates a planner: asks for its name, builds the file, opens it and shows its empty calendar.
#pragma once

#include <QStringList>

#include <optional>

class CommonDialog;
class Foot;
class LockedDay;
class Opening;
class QMTDB;
class Cells;

class Creation
{
public:
    Creation(Cells& cells, Foot& foot, CommonDialog& dialog, QMTDB& notes, Opening& opening, LockedDay& lockedDay)
        : m_cells(cells), m_foot(foot), m_dialog(dialog), m_notes(notes), m_opening(opening), m_lockedDay(lockedDay)
    {
    }

    // Keeps the former planner's cells for the exit without writing them. The new planner enters the recent list only
    // when it is opened later.
    void subNewPlanner();

private:
    struct Names
    {
        QString path, title; // g_sDBPath, g_sDBTitle
    };

    std::optional<QStringList> TakeName(); // the files to be replaced; empty if the person refuses
    std::optional<QString> BuildFile(const QStringList& replaced); // why it failed; empty on success
    void MakeTables(const QString& file);
    void ReadAgain(const Names& former);
    void OpenAndTell();
    void OpenNewFile();

    Cells& m_cells;
    Foot& m_foot;
    CommonDialog& m_dialog;
    QMTDB& m_notes;
    Opening& m_opening;
    LockedDay& m_lockedDay;
};
