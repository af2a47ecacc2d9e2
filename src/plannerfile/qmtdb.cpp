#include "plannerfile/qmtdb.h"

#include "calendar/bottompanel.h"
#include "calendar/calendarstate.h"
#include "calendar/cells.h"
#include "calendar/modshow.h"
#include "calendar/redraw.h"
#include "calendar/viewmode.h"
#include "plannerfile/alarmmarks.h"
#include "plannerfile/plannerstate.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/visible.h"
#include "platform/desktop/mousepointer.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "workgroup/networkcontrols.h"

namespace {
constexpr QLatin1StringView UpdateTail(" in QMTDB.BAS, subUpdateQMTRecord");

const QString Equal = QStringLiteral("=");
const QString DateField = QStringLiteral("qmtDate");
const QString TextField = QStringLiteral("qmtText");

// Stores one day's text in the open planner; an empty one leaves no record. A zero-length text is never stored: an
// emptied day goes by way of one blank, and its record is deleted.
void StoreNote(const QString& key, const QByteArray& rtf)
{
    g_rsQMT.Seek(Equal, key);
    if (g_rsQMT.NoMatch()) {
        g_rsQMT.AddNew();
    } else {
        g_rsQMT.Edit();
    }
    g_rsQMT.SetField(DateField, key);
    g_rsQMT.SetField(TextField, rtf.isEmpty() ? QByteArray(" ") : rtf);
    g_rsQMT.Update();
    if (!rtf.isEmpty()) return;
    g_rsQMT.Seek(Equal, key);
    g_rsQMT.Delete();
}
} // namespace

void QMTDB::ReadNote(int cell)
{
    RichTextBox& box = m_cells.tbDay(cell);
    box.SetLocked(true);
    SetVisible(box, true);
    // After a failed open the tables are still the planner's before, and what is typed would have no place.
    if (g_sDBPath.isEmpty()) throw RunTimeError{errors::ObjectNotSet, QStringLiteral("Object variable not set")};
    const QString key = CellKey(m_cells.panelDay(cell).Caption());
    if (const auto unsaved = m_unsaved.Find(g_sNotesFile, key)) {
        box.SetTextRTF(*unsaved);
        box.SetModified(true);
    } else {
        g_rsQMT.Seek(Equal, key);
        if (!g_rsQMT.NoMatch()) box.SetTextRTF(g_rsQMT.Fields(TextField).toByteArray());
    }
    m_read.set(static_cast<std::size_t>(cell));
    box.SetLocked(g_bDBShared);
}

void QMTDB::ReadCells(QLatin1StringView literal)
{
    const ErrorTail tail(literal);
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    const ReadTransaction reading(g_dbPlanner);
    for (int cell = range.first; cell <= range.last; ++cell) {
        tail([&] { ReadNote(cell); });
        tail([&] { subShowAlarmIcon(m_cells, CellKey(m_cells.panelDay(cell).Caption()), cell); });
    }
}

void QMTDB::subSeekQMTDatabase()
{
    const QLatin1StringView literal(" in QMTDB.BAS, subSeekQMTDatabase");
    // The daily mode has no cell of its own to fill.
    if (m_viewMode.GetViewMode() != ViewMode::Day) ReadCells(literal);
    ErrorTail{literal}([] { DBEngine::Idle(DBEngine::dbFreeLocks); });
    g_iCurrentPanel = 0;
    m_bottom.panelBottom->SetCaption(MonthTitle());
    SetMousePointer(mousepointer::Default);
}

bool QMTDB::NeedsSaving(int cell) const
{
    const RichTextBox& box = m_cells.tbDay(cell);
    if (!m_read.test(static_cast<std::size_t>(cell))) return false;
    return box.Modified() || (cell > 0 && g_aiLockState.at(static_cast<std::size_t>(cell - 1)) == 1);
}

bool QMTDB::HasChanges() const
{
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    for (int cell = range.first; cell <= range.last; ++cell) {
        if (m_cells.tbDay.Exists(cell) && NeedsSaving(cell)) return true;
    }
    return false;
}

void QMTDB::TakeNote(int cell)
{
    RichTextBox& box = m_cells.tbDay(cell);
    box.CommitPreedit();
    if (!NeedsSaving(cell)) return;
    const QString key = CellKey(m_cells.panelDay(cell).Caption());
    m_unsaved.Keep(g_sNotesFile, key, box.Text().isEmpty() ? QByteArray() : box.TextRTF());
    if (m_network.picLock->Visible(1)) {
        m_network.picLock->SetVisible(0, true);
        m_network.picLock->SetVisible(1, false);
    }
    box.SetModified(false);
    if (cell > 0) g_aiLockState.at(static_cast<std::size_t>(cell - 1)) = 0;
}

void QMTDB::WriteUnsaved()
{
    const auto notes = m_unsaved.NotesOf(g_sNotesFile);
    if (notes.isEmpty()) return;
    const ErrorTail tail(UpdateTail, {0, errors::ResumeWithoutError, engineerrors::CouldNotSave});
    tail([&] {
        QStringList written;
        // One commit for all: the cost of a save is the wait for the disk.
        WriteTransaction writing(g_dbPlanner);
        for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
            if (tail([&] { StoreNote(note.key(), note.value()); })) written.append(note.key());
        }
        writing.Commit();
        for (const QString& key : written)
            m_unsaved.Forget(g_sNotesFile, key);
    });
}

void QMTDB::subUpdateQMTRecord(int iCell)
{
    // A workgroup's day is written by its lock alone.
    if (g_sDBPath.isEmpty() || g_bDBShared) return;
    TakeNote(iCell);
    WriteUnsaved();
}

void QMTDB::subUpdateQMTDatabase()
{
    const ErrorTail tail(UpdateTail);
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    const bool saves = !g_sDBPath.isEmpty() && !g_bDBShared;
    for (int cell = range.first; cell <= range.last; ++cell) {
        tail([&] {
            if (saves) TakeNote(cell);
            EmptyCell(cell);
        });
    }
    if (saves) WriteUnsaved();
}

void QMTDB::EmptyCell(int cell)
{
    m_cells.tbDay(cell).SetTextRTF({});
    m_read.reset(static_cast<std::size_t>(cell));
}

void QMTDB::DropCells()
{
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    for (int cell = range.first; cell <= range.last; ++cell) {
        if (!m_cells.tbDay.Exists(cell)) continue;
        EmptyCell(cell);
        m_cells.tbDay(cell).SetLocked(true);
    }
    g_aiLockState = {};
}
