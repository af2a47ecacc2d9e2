#include "workgroup/daylock.h"

#include "calendar/calendarstate.h"
#include "calendar/dayviewport.h"
#include "calendar/modshow.h"
#include "hall/cells.h"
#include "hall/networkcontrols.h"
#include "hall/sidebar.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "plannerfile/refusals.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/dbengine.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "workgroup/dayrecord.h"
#include "workgroup/networkmode.h"
#include "workgroup/refresh.h"
#include "workgroup/workgroupstate.h"

#include <QScopedValueRollback>

namespace {
constexpr QLatin1StringView LockLiteral(" in MainForm, picLock_Click");

// The caret leaves the cell.
void FocusSidebar(Cells& cells, const Sidebar& sidebar)
{
    if (sidebar.tabSidebar->isVisible()) cells.LeaveFor(*sidebar.tabSidebar);
}
} // namespace

void DayLock::subLockDay()
{
    if (HeldCell() == 0) m_record.Close();
    if (!m_record.IsHeld() && RefusesWithoutPlanner()) return;
    // Other days are chosen anew; where the cells were only read again the caret tells which is meant.
    if (!m_cells.Shows(g_iCurrentPanel) && m_cells.CaretHasItsDay()) m_cells.EnterAgain();
    if (!m_record.IsHeld() && !m_cells.Shows(g_iCurrentPanel)) return AskForCell();
    if (m_network.picLock->Visible(0)) {
        Lock();
    } else {
        Unlock();
    }
}

// The cell in which somebody types under the lock: marked, and showing the day whose record is held. Where an opening
// has taken the day from its cell there is none, and no other cell's text may go into the record.
int DayLock::HeldCell() const
{
    for (int cell = 1; cell <= CellCount; ++cell) {
        const bool isTypedInto = IsMarked(cell) && m_cells.Shows(cell);
        if (isTypedInto && m_record.Holds(CellKey(m_cells.panelDay(cell).Caption()))) return cell;
    }
    return 0;
}

void DayLock::AskForCell()
{
    m_network.picLock->ShowElement(0);
    MsgBox(u"Please select a daily cell to lock"_s);
    FocusSidebar(m_cells, m_sidebar);
}

void DayLock::ShowFree(const QString& reason)
{
    SetMousePointer(mousepointer::Default);
    m_network.picLock->ShowElement(0);
    MsgBox(reason);
}

// A cell whose last commit did not get through still holds its record and keeps its text: that is what is to be stored.
bool DayLock::Take(int cell)
{
    RichTextBox& box = m_cells.tbDay(cell);
    const QString key = CellKey(m_cells.panelDay(cell).Caption());
    try {
        const bool isNewHere = !m_record.Holds(key);
        if (m_record.Seek(key, LockLiteral) && isNewHere) {
            const QByteArray rtf = m_notes.NoteOver(key, m_record.Text());
            if (!box.Holds(rtf)) box.SetTextRTF(rtf); // else the caret and what can be undone stay
        }
        SetMousePointer(mousepointer::Hourglass);
        m_record.Edit();
        SetMousePointer(mousepointer::Default);
        return true;
    } catch (const RunTimeError& error) {
        // Typing without the lock would be lost, so there is none, whatever the reason.
        if (!IsRefusal(error.Number)) LogError(error, LockLiteral);
        ShowFree(error.Description);
        return false;
    }
}

void DayLock::Lock()
{
    // The picture changes first: a failure puts it back.
    m_network.picLock->ShowElement(1);
    const int cell = m_record.IsHeld() ? HeldCell() : g_iCurrentPanel;
    if (!Take(cell)) return;
    const ErrorTail tail(LockLiteral);
    m_cells.tbDay(cell).SetLocked(false);
    Mark(cell, true);
    Q_EMIT m_cells.StateChanged(cell);
    StartUnlockTimer(m_network);
    tail([] { DBEngine::Idle(DBEngine::dbRefreshCache); });
}

bool DayLock::Store(RichTextBox& box)
{
    const QByteArray rtf = box.TextRTF();
    try {
        m_record.Commit(rtf);
        box.MarkSaved(rtf);
        return true;
    } catch (const RunTimeError& error) {
        if (m_record.IsBroken() && error.Number == engineerrors::DataChanged) return StoreOverOthers(box, error);
        if (IsRefusal(error.Number)) {
            ShowFree(error.Description);
        } else {
            KeepLocked(error);
        }
        return false;
    }
}

// A full disk, a broken line: the day stays locked and its text where it is, to be tried again.
void DayLock::KeepLocked(const RunTimeError& error)
{
    LogError(error, LockLiteral);
    m_network.picLock->ShowElement(1);
    MsgBox(error.Description, msgbox::Exclamation, messages::HelpWizard,
           u"What you typed is still in its day. Unlock the day again to save it."_s);
}

// The lock was lost with the connection, and somebody else has used the time.
bool DayLock::StoreOverOthers(RichTextBox& box, const RunTimeError& error)
{
    m_network.picLock->ShowElement(1);
    const int answer = MsgBox(error.Description + u"\n\nYes puts your text in the place of theirs. No "
                                                  "shows theirs, and yours is gone. Cancel leaves yours "
                                                  "on the screen and nothing decided."_s,
                              msgbox::YesNoCancel + msgbox::Question + msgbox::DefaultButton3, messages::HelpWizard);
    if (answer == msgbox::Cancel) return false;
    try {
        const QByteArray theirs = m_record.TakeTheirs();
        if (answer == msgbox::Yes) return Store(box);
        box.SetTextRTF(theirs);
        m_record.Close();
        return true;
    } catch (const RunTimeError& failure) {
        KeepLocked(failure);
        return false;
    }
}

bool DayLock::Unlock()
{
    // The timers go on behind the message of an unlock that failed.
    if (m_isUnlocking) return false;
    const QScopedValueRollback unlocking(m_isUnlocking, true);
    const ErrorTail tail(LockLiteral);
    const int cell = HeldCell();
    m_network.picLock->ShowElement(0);
    if (cell != 0 && !StoreCell(cell)) return false;
    if (cell == 0) m_record.Close();
    ShowUnlocked(cell);
    FocusSidebar(m_cells, m_sidebar);
    tail([] { DBEngine::Idle(DBEngine::dbRefreshCache); });
    return true;
}

void DayLock::ShowUnlocked(int cell)
{
    ClearMarks();
    if (cell != 0) Q_EMIT m_cells.StateChanged(cell);
    g_lUnlockTicks = 0;
    m_network.tmUnLock->SetEnabled(false);
}

bool DayLock::StoreCell(int cell)
{
    m_cells.tbDay(cell).CommitPreedit();
    if (!Store(m_cells.tbDay(cell))) return false;
    m_notes.ForgetDay(CellKey(m_cells.panelDay(cell).Caption()));
    m_network.picLock->ShowElement(0);
    return true;
}

// What the day view holds is its own affair: it knows its day whatever the calendar turns to. What was typed into a
// cell before it was opened would be lost by a turn.
bool DayLock::Commit()
{
    if (m_dayView.IsOpen()) return HeldCell() == 0;
    return !m_record.IsHeld() || Unlock();
}

void DayLock::LeaveBehind()
{
    const int cell = g_bDBShared ? HeldCell() : 0;
    if (cell == 0) return;
    m_cells.tbDay(cell).CommitPreedit();
    UnsavedNotes typed = m_notes.Unsaved();
    AddTyped(typed);
    const QString key = CellKey(m_cells.panelDay(cell).Caption());
    const auto note = typed.Find(g_sNotesFile, key);
    // Before the record goes, for a server may keep that waiting.
    if (note && m_cells.tbDay(cell).Modified()) m_notes.LeaveBehind(key, *note);
    m_record.Close();
    m_network.picLock->ShowElement(0);
    ShowUnlocked(cell);
}

void DayLock::AddTyped(UnsavedNotes& typed) const
{
    const int cell = g_bDBShared ? HeldCell() : 0;
    if (cell == 0 || !m_cells.tbDay(cell).Modified()) return;
    typed.Keep(g_sNotesFile, CellKey(m_cells.panelDay(cell).Caption()),
               {m_cells.tbDay(cell).TextRTF(), m_record.LockedText(), {}});
}

void DayLock::tmUnLock_Timer()
{
    if (++g_lUnlockTicks < g_lUnlockDelay) return;
    if (m_dayView.IsOpen()) {
        m_dayView.TakeText();
        m_dayView.Close();
    }
    g_lUnlockTicks = 0;
    if (m_record.IsHeld() && !Unlock()) return; // tried again after another while
    m_network.tmUnLock->SetEnabled(false);
    m_refresh.subRefreshCells();
}
