// The last save: writes what has changed, and never lets a note go in silence.
#pragma once

class Cells;
class Journal;
class LockedDay;
class QMTDB;

class ExitSave
{
public:
    ExitSave(Cells& cells, QMTDB& notes, Journal& journal, LockedDay& lockedDay)
        : m_cells(cells), m_notes(notes), m_journal(journal), m_lockedDay(lockedDay)
    {
    }

    // Notes that cannot be written, because the disk is full or another program holds the file, are asked about if
    // that may be asked, and if the person wishes each goes to a file of its own. Where nobody could be asked the
    // journal keeps them for the next opening of their planner; files do where it cannot.
    void SaveBeforeExit(bool mayAsk);

private:
    bool AnyCellChanged();
    bool AskToRetry();
    void AskForUnsaved();
    void KeepForNextTime();
    bool KeepAsFiles(bool mayAsk);

    Cells& m_cells;
    QMTDB& m_notes;
    Journal& m_journal;
    LockedDay& m_lockedDay;
    bool m_isEnded = false; // the process is, perhaps behind a question that can no longer be answered
};
