#include "editing/dayview.h"

#include "editing/zoomboxform.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "notes/heldday.h"
#include "notes/journal.h"
#include "notes/qmtdb.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/msgbox.h"
#include "platform/richtext/undooffer.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/viewmode.h"
#include "state/workgroupstate.h"

#include <QFile>

#include <utility>

namespace {
constexpr QLatin1StringView ZoomLiteral(" in MainForm, subZoomView");

// A copy for a person whose program was killed while the window was open. The cell gets its text from memory, since a
// full disk may refuse the file and a second Orrelin writes the same one.
QString ScratchFile()
{
    return folders::ApplicationDirectory() + u"/dayview.rtf"_s;
}
} // namespace

// The current cell, else the caret's, else the selected day's, else the first shown day.
int DayView::CellToOpen() const
{
    if (m_cells.Shows(g_iCurrentPanel)) return g_iCurrentPanel;
    if (const int entered = m_cells.CellWithCaret(); m_cells.Shows(entered)) return entered;
    const CellRange range = CellsOf(m_viewMode.GetViewMode());
    const int selected = m_cells.CellOfDay(range, g_iDay);
    if (m_cells.Shows(selected)) return selected;
    for (const int cell : range)
        if (m_cells.Shows(cell) && m_cells.DayOf(cell) != 0) return cell;
    return 0;
}

void DayView::subZoomView()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    if (m_form) return;
    const ErrorTail tail(ZoomLiteral);
    g_iCurrentPanel = static_cast<std::int16_t>(CellToOpen());
    if (g_iCurrentPanel == 0) return; // no cell is shown
    const QString key = m_cells.KeyOf(g_iCurrentPanel);
    m_day = {g_iCurrentPanel, key, m_heldDay.Holds(key)};
    if (!MayOpen()) return;
    m_sidebar.picDay->ShowElement(1);
    tail([&] { Show(); });
    m_sidebar.picDay->ShowElement(0);
    m_journal.Follow();
    tail([&] { QFile::remove(ScratchFile()); });
    // The caret goes to the day that was open, so that the next command acts on it. If the idle timer has unlocked the
    // day, the focus stays where it is.
    if (ShowsDay() && (!m_taken || m_heldDay.Holds(m_day.key))) m_cells.tbDay(m_day.cell).setFocus();
}

bool DayView::MayOpen()
{
    const int held = MarkedCell(m_day.cell);
    if (g_bDBShared && held != 0 && m_heldDay.IsHeld()) {
        // Another day is locked by hand: opening this one would drop its lock and its unsaved text.
        g_iCurrentPanel = static_cast<std::int16_t>(held);
        m_heldDay.KeepInPlace(held);
        return false;
    }
    // A lock by hand also reads the record into the cell; here the window opens on what the cell shows.
    if (g_bDBShared) return m_heldDay.Take(m_day.key);
    if (!m_cells.tbDay(m_day.cell).Locked()) return true;
    // The day's note has not been read, so a change could not be stored.
    MsgBox(u"This day cannot be opened, since its note could not be read."_s, msgbox::Exclamation,
           messages::HelpWizard);
    return false;
}

void DayView::Show()
{
    const ErrorTail tail(ZoomLiteral);
    RichTextBox& box = m_cells.tbDay(m_day.cell);
    box.CommitPreedit();
    m_text = box.TextRTF();
    m_base = m_day.wasLocked ? m_heldDay.LockedText() : m_text;
    m_isEmpty = box.IsEmpty();
    m_taken = false;
    tail([&] { box.SaveFile(ScratchFile()); });
    ZoomBoxForm form(m_cells.Client()->window(), Heading(), m_text, ZoomBoxForm::StoredPlace(m_cells.lblDayOfWeek(1)),
                     m_fontCommand);
    QObject::connect(&form, &ZoomBoxForm::SignOfLife, &form, [] { g_lUnlockTicks = 0; });
    QObject::connect(&form.tbZoom(), &RichTextBox::Change, &form, [this] { m_journal.Touch(); });
    const bool accepted = Exec(form);
    if (m_taken) return;
    FollowResult(form, accepted);
    if (!form.bCancel) tail([&] { TakeOver(); });
    if (g_bDBShared) tail([&] { Unlock(form.bCancel); });
    const bool isDropped = !accepted && !form.bCancel && form.tbZoom().Modified();
    if (isDropped) tail([&] { OfferDropped(form.tbZoom()); });
}

bool DayView::Exec(ZoomBoxForm& form)
{
    m_form = &form;
    m_heldDay.SetInWindow(true);
    const bool accepted = form.exec() == QDialog::Accepted;
    m_heldDay.SetInWindow(false);
    m_form = nullptr;
    return accepted;
}

// Esc is easily pressed by mistake, so the dropped text becomes a step of the cell's undo.
void DayView::OfferDropped(const RichTextBox& dropped)
{
    if (!ShowsDay()) return;
    RichTextBox& box = m_cells.tbDay(m_day.cell);
    OfferByUndo(box, *dropped.document());
    m_tellsDropped = true;
    m_foot.Say(box.Locked() ? u"What you typed was dropped. Lock the day, then Ctrl+Z."_s
                            : u"What you typed was dropped. Ctrl+Z brings it back."_s);
}

void DayView::EndNotice()
{
    if (std::exchange(m_tellsDropped, false)) m_foot.ShowMonth();
}

void DayView::FollowFocus(int cell)
{
    if (cell != m_day.cell) EndNotice();
}

// Esc keeps the idle timer and the stored place; Cancel keeps the place and stops the timer.
void DayView::FollowResult(const ZoomBoxForm& form, bool accepted)
{
    const ErrorTail tail(ZoomLiteral);
    const bool staysLocked = form.bCancel && m_day.wasLocked;
    if ((accepted || form.bCancel) && !staysLocked) m_network.tmUnLock->SetEnabled(false);
    if (!accepted) return;
    if (form.tbZoom().Modified()) {
        TakeTextOf(form);
        tail([&] { form.tbZoom().SaveFile(ScratchFile()); });
    }
    form.StorePlace();
}

void DayView::TakeTextOf(const ZoomBoxForm& form)
{
    m_text = form.tbZoom().TextRTF();
    m_isEmpty = form.tbZoom().IsEmpty();
    if (!g_bDBShared && ShowsDay()) Mark(m_day.cell, true);
}

bool DayView::ShowsDay() const
{
    return m_cells.Shows(m_day.cell) && m_cells.KeyOf(m_day.cell) == m_day.key;
}

// The window opened on what the screen showed. If others have changed the day since, both texts stay.
void DayView::JoinWithTheirs()
{
    const QByteArray& stored = m_heldDay.LockedText();
    if (m_text == m_base) {
        m_text = stored;
        return;
    }
    const QByteArray joined = UnsavedNote{m_isEmpty ? QByteArray() : m_text, m_base, {}}.Over(stored);
    if (!joined.isEmpty()) m_text = joined;
}

void DayView::TakeOver()
{
    if (g_bDBShared) JoinWithTheirs();
    if (!ShowsDay()) {
        // The calendar has turned meanwhile.
        if (!g_bDBShared) m_notes.PutNote(m_day.key, {m_isEmpty ? QByteArray() : m_text, {}, {}});
        return;
    }
    RichTextBox& box = m_cells.tbDay(m_day.cell);
    if (box.TextRTF() == m_text) return; // keeps the caret and the undo stack
    box.SetTextRTF(m_text);
}

// Cancel leaves a day that was already locked as it was: locked, with the text of its cell.
void DayView::Unlock(bool cancelled)
{
    if (cancelled) {
        if (!m_day.wasLocked) m_heldDay.GiveUp();
        return;
    }
    if (const auto failure = m_heldDay.Store(m_text)) return KeepLocked(*failure);
    if (!ShowsDay()) return;
    m_cells.tbDay(m_day.cell).SetLocked(true);
    m_cells.tbDay(m_day.cell).MarkSaved(m_text);
}

// The text stays in its cell under the lock until the next unlock tries again. If the cell shows another day by now, or
// at the exit, the text waits among the unsaved notes.
void DayView::KeepLocked(const RunTimeError& error)
{
    LogError(error, ZoomLiteral);
    if (m_isExiting || !ShowsDay()) {
        m_heldDay.PutAside(m_text);
    } else {
        m_heldDay.HandTo(m_day.cell);
    }
    if (!m_isExiting) MsgBox(error.Description, msgbox::Exclamation, messages::HelpWizard);
}

void DayView::AddTyped(UnsavedNotes& typed) const
{
    if (!m_form || m_taken || !m_form->tbZoom().Modified()) return;
    const RichTextBox& box = m_form->tbZoom();
    typed.Keep(g_sNotesFile, m_day.key,
               {box.IsEmpty() && !g_bDBShared ? QByteArray() : box.TextRTF(),
                g_bDBShared ? m_base : m_notes.HeldText(m_day.key),
                {}});
}

void DayView::TakeText()
{
    if (!m_form) return;
    const ErrorTail tail(ZoomLiteral);
    m_form->tbZoom().CommitPreedit();
    TakeTextOf(*m_form);
    tail([&] { m_form->tbZoom().SaveFile(ScratchFile()); });
    tail([&] { TakeOver(); });
    // The idle timer then unlocks the shown day.
    if (g_bDBShared && ShowsDay()) m_heldDay.HandTo(m_day.cell);
    if (g_bDBShared && !ShowsDay()) Unlock(false);
    m_taken = true;
}

void DayView::TakeTextAtExit()
{
    if (!m_form) return;
    m_isExiting = true;
    TakeText();
    if (g_bDBShared && ShowsDay()) ErrorTail{ZoomLiteral}([&] { Unlock(false); });
}

void DayView::TakeTextAndClose()
{
    if (!m_form) return;
    TakeText();
    m_heldDay.SetInWindow(false);
    m_form->done(QDialog::Rejected);
}

QString DayView::Heading() const
{
    const QString month = u"Zoom View/Edit For "_s + fnMonthName(g_iMonth);
    const int day = m_cells.DayOf(m_day.cell);
    if (day == 0) return month + u" Memo"_s;
    return month + u' ' + TrimmedStr(day) + u", "_s + TrimmedStr(g_iYear);
}

void DayView::panelDay_DblClick(int Index)
{
    g_iCurrentPanel = static_cast<std::int16_t>(Index);
    subZoomView();
}
