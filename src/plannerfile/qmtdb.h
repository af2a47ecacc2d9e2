// Moves notes between the shown cells and "QMT Table". The boxes are the only working copy: saving takes out of them
// what was changed and empties them, reading fills them.
#pragma once

#include "calendar/calendarstate.h"
#include "plannerfile/unsavednotes.h"

#include <bitset>

struct BottomPanel;
class Cells;
struct NetworkControls;
class ViewMode;

class QMTDB
{
public:
    QMTDB(Cells& cells, const BottomPanel& bottom, const NetworkControls& network, const ViewMode& viewMode)
        : m_cells(cells), m_bottom(bottom), m_network(network), m_viewMode(viewMode)
    {
    }

    // Fills the shown cells from the open planner and sets the month's title. A cell whose day has no record keeps
    // what it shows.
    void subSeekQMTDatabase();
    // The shown cells, as the read of the view and the opening fill them. A cell whose record cannot be read is logged
    // under the literal and takes no text.
    void ReadCells(QLatin1StringView literal);

    // Writes the marked and changed cells of a personal planner and empties the shown ones.
    void subUpdateQMTDatabase();
    void subUpdateQMTRecord(int iCell);
    bool HasChanges() const; // of the shown cells, that a save would write

    // Empties the shown cells and their marks without saving, and takes no text until the next read.
    void DropCells();

    const UnsavedNotes& Unsaved() const { return m_unsaved; }

private:
    void ReadNote(int cell);
    bool NeedsSaving(int cell) const;
    void TakeNote(int cell);
    void EmptyCell(int cell);
    void WriteUnsaved();

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const NetworkControls& m_network;
    const ViewMode& m_viewMode;
    UnsavedNotes m_unsaved;
    // Cells that show what the file holds for their day. No other cell is ever written: an empty one would take its
    // day's record with it.
    std::bitset<CellCount + 1> m_read;
};
