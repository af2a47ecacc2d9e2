// The last save: writes all changes and never drops a note silently.
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

    // Asks about notes that cannot be written (full disk, locked file) if mayAsk; each can then go to a file of its
    // own. Otherwise the journal keeps them for the next opening of their planner, or, if it fails, files do.
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
    bool m_isEnded = false; // the process ends, even while a question is still open
};
