#include "notes/heldday.h"

#include "hall/bars.h"
#include "hall/cells.h"
#include "notes/qmtdb.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/moddate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/workgroupstate.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace {
constexpr auto LockLiteral = " in MainForm, picLock_Click"_L1;
constexpr auto ZoomLiteral = " in MainForm, subZoomView"_L1;

void RefreshCache()
{
    ErrorTail{LockLiteral}([] { DBEngine::Idle(DBEngine::dbRefreshCache); });
}
} // namespace

void HeldDay::subLockDay()
{
    const int held = Cell();
    if (held == 0) m_record.Close();
    if (held == 0 && RefusesWithoutPlanner()) return;
    // If the cells were only read again, the caret still says which day is meant.
    if (!m_cells.Shows(g_iCurrentPanel) && m_cells.CaretHasItsDay()) m_cells.EnterAgain();
    if (held == 0 && !m_cells.Shows(g_iCurrentPanel)) return AskForCell();
    if (LooksFree()) {
        Lock(held != 0 ? held : g_iCurrentPanel);
    } else {
        Unlock();
    }
}

bool HeldDay::LooksFree() const
{
    return m_network.picLock->Visible(0);
}

int HeldDay::Cell() const
{
    const int cell = MarkedCell();
    return cell != 0 && m_cells.Shows(cell) && Holds(m_cells.KeyOf(cell)) ? cell : 0;
}

void HeldDay::AskForCell() const
{
    m_network.picLock->ShowElement(0);
    MsgBox(u"Please select a daily cell to lock"_s);
    LeaveCell();
}

void HeldDay::LeaveCell() const
{
    if (m_sidebar.tabSidebar->isVisible()) m_cells.LeaveFor(*m_sidebar.tabSidebar);
}

bool HeldDay::Take(const QString& key)
{
    return Take(key, ZoomLiteral, nullptr);
}

// After a failed commit the record is still held, and the cell keeps its text, which is the one to store.
bool HeldDay::Take(const QString& key, QLatin1StringView literal, RichTextBox* shown)
{
    m_network.picLock->ShowElement(1); // first: a failure puts it back
    try {
        const bool isNewHere = !Holds(key);
        if (m_record.Seek(key, literal) && isNewHere && shown) {
            const QByteArray rtf = m_notes.NoteOver(key, m_record.Text());
            if (!shown->Holds(rtf)) shown->SetTextRTF(rtf); // else keep the caret and the undo stack
        }
        const Hourglass hourglass;
        m_record.Edit();
    } catch (const RunTimeError& error) {
        // Without the lock typing would be lost, so any error refuses it.
        if (!IsRefusal(error.Number)) LogError(error, literal);
        m_network.picLock->ShowElement(0);
        MsgBox(error.Description);
        return false;
    }
    StartUnlockTimer();
    return true;
}

// The delay is read here, since a planner that was just created has not read it.
void HeldDay::StartUnlockTimer() const
{
    if (Read(settings::AutoUnLock) == 0) return;
    bGeneralUnlockEnable = true;
    g_lUnlockDelay = DelaySeconds(Read(settings::UnlockDelay));
    m_network.tmUnLock->SetEnabled(true);
}

void HeldDay::Lock(int cell)
{
    if (!Take(m_cells.KeyOf(cell), LockLiteral, &m_cells.tbDay(cell))) return;
    ShowHeld(cell);
    RefreshCache();
}

void HeldDay::ShowHeld(int cell)
{
    m_network.picLock->ShowElement(1);
    m_cells.tbDay(cell).SetLocked(false);
    Mark(cell, true);
    Q_EMIT m_cells.StateChanged(cell);
}

// The box stays editable: the lock picture makes key presses refused until the next read locks the box.
void HeldDay::ShowFree()
{
    m_network.picLock->ShowElement(0);
    m_cells.Unmark();
}

void HeldDay::HandTo(int cell)
{
    ShowHeld(cell);
    m_cells.tbDay(cell).SetModified(true); // or the text would not count as typed
    g_iCurrentPanel = static_cast<std::int16_t>(cell);
}

bool HeldDay::Commit()
{
    if (m_isInWindow) return Cell() == 0;
    return !m_record.IsHeld() || Unlock();
}

bool HeldDay::Unlock()
{
    // The timers run on behind the message of a failed unlock.
    if (m_isUnlocking) return false;
    const QScopedValueRollback unlocking(m_isUnlocking, true);
    const int cell = Cell();
    m_network.picLock->ShowElement(0);
    if (cell != 0 && !StoreCell(cell)) return false;
    LetGo();
    LeaveCell();
    RefreshCache();
    return true;
}

void HeldDay::LetGo()
{
    m_record.Close();
    ShowFree();
    g_lUnlockTicks = 0;
    m_network.tmUnLock->SetEnabled(false);
}

bool HeldDay::StoreCell(int cell)
{
    m_cells.tbDay(cell).CommitPreedit();
    const auto failure = Store(m_cells.tbDay(cell).TextRTF());
    if (!failure) return true;
    if (m_record.IsBroken() && failure->Number == engineerrors::DataChanged) return StoreOverOthers(cell, *failure);
    if (!IsRefusal(failure->Number)) {
        KeepLocked(*failure);
    } else {
        m_network.picLock->ShowElement(0);
        MsgBox(failure->Description);
    }
    return false;
}

std::optional<RunTimeError> HeldDay::Store(const QByteArray& rtf)
{
    const auto isOver = qScopeGuard([this] { m_storing.reset(); });
    if (rtf != LockedText()) m_storing = rtf;
    const int cell = Cell();
    try {
        m_record.Commit(rtf);
    } catch (const RunTimeError& error) {
        return error;
    }
    m_storing.reset();
    if (cell != 0) m_cells.tbDay(cell).MarkSaved(rtf);
    ShowFree();
    m_notes.ForgetDay(m_record.Key());
    return {};
}

// After a full disk or a broken connection the day stays locked with its text, to be tried again.
void HeldDay::KeepLocked(const RunTimeError& error) const
{
    LogError(error, LockLiteral);
    m_network.picLock->ShowElement(1);
    MsgBox(error.Description, msgbox::Exclamation, messages::HelpWizard,
           u"What you typed is still in its day. Unlock the day again to save it."_s);
}

// The lock was lost with the connection, and somebody else has stored the day since.
bool HeldDay::StoreOverOthers(int cell, const RunTimeError& error)
{
    m_network.picLock->ShowElement(1);
    const int answer = MsgBox(error.Description + u"\n\nYes puts your text in the place of theirs. No shows theirs, "
                                                  "and yours is gone. Cancel leaves yours on the screen and nothing "
                                                  "decided."_s,
                              msgbox::YesNoCancel + msgbox::Question + msgbox::DefaultButton3, messages::HelpWizard);
    if (answer == msgbox::Cancel) return false;
    try {
        const QByteArray theirs = m_record.TakeTheirs();
        if (answer == msgbox::Yes) return StoreCell(cell);
        m_cells.tbDay(cell).SetTextRTF(theirs);
        m_record.Close();
        m_notes.ForgetDay(m_record.Key());
        return true;
    } catch (const RunTimeError& failure) {
        KeepLocked(failure);
        return false;
    }
}

void HeldDay::PutAside(const QByteArray& rtf)
{
    m_notes.PutNote(m_record.Key(), {rtf, LockedText(), {}});
    LetGo();
}

void HeldDay::GiveUp()
{
    m_record.GiveUp();
    ShowFree();
}

void HeldDay::LeaveBehind()
{
    const int cell = Cell();
    if (cell == 0) return;
    m_cells.tbDay(cell).CommitPreedit();
    UnsavedNotes typed = m_notes.Unsaved();
    AddTyped(typed);
    const auto note = typed.Find(g_sNotesFile, m_record.Key());
    // Before the record is released, since a server may delay that.
    if (note && m_cells.tbDay(cell).Modified()) m_notes.LeaveBehind(m_record.Key(), *note);
    LetGo();
}

void HeldDay::AddTyped(UnsavedNotes& typed) const
{
    const int cell = Cell();
    const bool isTyped = cell != 0 && m_cells.tbDay(cell).Modified();
    if (!m_storing && !isTyped) return;
    typed.Keep(g_sNotesFile, m_record.Key(),
               {m_storing ? *m_storing : m_cells.tbDay(cell).TextRTF(), LockedText(), {}});
}

void HeldDay::KeepInPlace(int cell, const QString& isLocked) const
{
    RichTextBox& box = m_cells.tbDay(cell);
    MsgBox(fnFormatDateKey(m_cells.KeyOf(cell)) + isLocked, msgbox::Exclamation, messages::HelpWizard);
    box.setFocus();
}
