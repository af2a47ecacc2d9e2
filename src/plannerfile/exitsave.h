// The last save: writes what has changed, never lets a note go in silence, and closes the planner.
#pragma once

class Cells;
class DayRecord;
class QMTDB;

class ExitSave
{
public:
    ExitSave(Cells& cells, QMTDB& notes, DayRecord& record) : m_cells(cells), m_notes(notes), m_record(record) {}

    // Notes that cannot be written, because the disk is full or another program holds the file, are asked about if
    // that may be asked; otherwise, and if the person wishes, each goes to a file of its own.
    void SaveBeforeExit(bool mayAsk);
    void ClosePlanner(); // a lock ends with it, and what was typed under it is lost

private:
    bool AnyCellChanged();
    bool AskToRetry();
    bool KeepAsFiles(bool mayAsk);

    Cells& m_cells;
    QMTDB& m_notes;
    DayRecord& m_record;
};
