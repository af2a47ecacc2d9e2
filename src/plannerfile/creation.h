// Makes a new planner: asks for its name, builds the file, opens it and shows the empty calendar in it.
#pragma once

#include <QStringList>

#include <optional>

struct BottomPanel;
class CommonDialog;
class LockedDay;
class NetworkMode;
class Opening;
class QMTDB;
class Cells;

class Creation
{
public:
    Creation(Cells& cells, const BottomPanel& bottom, CommonDialog& dialog, QMTDB& notes, NetworkMode& networkMode,
             Opening& opening)
        : m_cells(cells), m_bottom(bottom), m_dialog(dialog), m_notes(notes), m_networkMode(networkMode),
          m_opening(opening)
    {
    }

    void SetLockedDay(LockedDay& lockedDay) { m_lockedDay = &lockedDay; }

    // Does not write the cells of the planner before, which are kept for the exit, nor enter the recent list: a planner
    // is recent once it was opened.
    void subNewPlanner();

private:
    struct Names
    {
        QString path, title; // g_sDBPath, g_sDBTitle
    };

    bool MayUseName();
    bool MayReplace(const Names& names);
    std::optional<QString> BuildFile(); // why it could not be made; nothing if it was
    void MakeTables(const QString& file);
    void ReadAgain(const Names& former);
    bool AskHowToOpen(); // false: the program ends
    void OpenAndTell();
    void OpenNewFile();

    Cells& m_cells;
    const BottomPanel& m_bottom;
    CommonDialog& m_dialog;
    QMTDB& m_notes;
    NetworkMode& m_networkMode;
    Opening& m_opening;
    LockedDay* m_lockedDay = nullptr;
    QStringList m_replaced; // the files that the new one takes the place of
};
