// Makes a new planner: asks for its name, builds the file, opens it and shows the empty calendar in it.
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

    // Does not write the cells of the planner before, which are kept for the exit, nor enter the recent list: a planner
    // is recent once it was opened.
    void subNewPlanner();

private:
    struct Names
    {
        QString path, title; // g_sDBPath, g_sDBTitle
    };

    std::optional<QStringList> TakeName(); // the files that the new one takes the place of; nothing if it may not
    std::optional<QString> BuildFile(const QStringList& replaced); // why it could not be made; nothing if it was
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
