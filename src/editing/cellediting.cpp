#include "editing/cellediting.h"

#include "editing/corrections.h"
#include "editing/defaultfont.h"
#include "editing/formatting.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/menus.h"
#include "notes/heldday.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/msgbox.h"
#include "platform/look/namedcolors.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/viewmode.h"
#include "state/workgroupstate.h"

#include <QApplication>
#include <QMenu>
#include <QScopeGuard>

#include <cmath>
#include <utility>

namespace {
void Follow(ToolbarButton& button, const std::optional<bool>& format)
{
    button.SetMixedState(!format);
    if (format) button.SetValue(*format ? 1 : 0);
}

// -1 if no entry has this text.
int IndexOf(const ORLCombo& combo, const QString& text)
{
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i).trimmed() == text) return i;
    }
    return -1;
}

void Choose(ORLCombo& combo, int index)
{
    if (index >= 0) combo.SetListIndex(index);
}
} // namespace

CellEditing::CellEditing(Cells& cells, const FormatBar& bar, const HeldDay& heldDay, Menus& menus,
                         const ViewMode& viewMode, Formatting& formatting)
    : QObject(&cells), m_cells(cells), m_bar(bar), m_heldDay(heldDay), m_menus(menus), m_viewMode(viewMode),
      m_formatting(formatting)
{
    Wire();
}

void CellEditing::Wire()
{
    const auto on = [this](auto signal, QLatin1StringView literal, auto handler) {
        connect(&m_cells, signal, this, Guarded(literal, handler));
    };
    const QLatin1StringView click(" in MainForm, tbDay_Click");
    on(&Cells::GotFocus, " in MainForm, tbDay_GotFocus"_L1, [this](int i) { tbDay_GotFocus(i); });
    on(&Cells::Click, click, [this](int i) { tbDay_Click(i); });
    on(&Cells::PanelClick, click, [this](int i) { panelDay_Click(i); });
    on(&Cells::Change, " in MainForm, tbDay_Change"_L1, [this](int) { tbDay_Change(); });
    on(&Cells::SelChange, " in MainForm, errTbDaySelChange"_L1, [this](int i) { tbDay_SelChange(i); });
    on(&Cells::TookBack, " in MainForm, errTbDaySelChange"_L1, [this](int i) {
        FollowButtons(m_cells.tbDay(i));
        ShowFormAtCaret(i);
    });
    on(&Cells::KeyPress, " in MainForm, tbDay_KeyPress"_L1, [this](int i, int& key) { tbDay_KeyPress(i, key); });
    on(&Cells::MouseDown, " in MainForm, tbDay_MouseDown"_L1,
       [this](int i, int button, const QPoint& at) { tbDay_MouseDown(i, button, at); });
    // Dropping and pasting with the mouse pass the same check as the paste command.
    on(&Cells::PasteRequested, " in MainForm, mnuPaste_Click"_L1,
       [this](int, bool& allowed) { allowed = m_formatting.fnCanFormatCell(); });
}

bool CellEditing::IsHeldElsewhere(int Index) const
{
    return g_iCurrentPanel != 0 && MarkedCell(Index) != 0;
}

void CellEditing::RefuseMove()
{
    const int held = m_cells.CellToStayIn();
    m_cells.tbDay(held).setFocus();
    if (std::exchange(m_isRefusing, true)) return;
    // Queued: a message box that opens during a focus change would let the mouse press reach the refused cell.
    QMetaObject::invokeMethod(this, Guarded(" in MainForm, tbDay_GotFocus"_L1, [this, held] { TellRefusal(held); }),
                              Qt::QueuedConnection);
}

// Moves the focus back, then opens the menu that a right click asked for.
void CellEditing::TellRefusal(int held)
{
    const auto isOver = qScopeGuard([this] {
        m_isRefusing = false;
        m_menuAfterwards.reset();
    });
    m_heldDay.KeepInPlace(held, u" is locked(Edit Mode), please unlock first."_s);
    if (m_menuAfterwards) m_menus.mnuRightMouse().popup(*m_menuAfterwards);
}

void CellEditing::tbDay_GotFocus(int Index)
{
    const ErrorTail tail(" in MainForm, tbDay_GotFocus"_L1);
    if (g_bDBShared && IsHeldElsewhere(Index)) {
        tail([&] { RefuseMove(); });
        return;
    }
    g_iCurrentPanel = static_cast<std::int16_t>(Index);
    m_cells.RememberEntry(Index);
    // Without a planner the note has no place to be stored.
    if (!g_bDBShared && HasPlanner() && Index >= 1) Mark(Index, true);
    tail([&] { GiveDefaultFont(m_cells.tbDay(Index), DefaultStyles::AsSet, " in MainForm, tbDay_GotFocus"_L1); });
    // Queued, since a click places the caret after the focus.
    QMetaObject::invokeMethod(this,
                              Guarded(" in MainForm, tbDay_GotFocus"_L1, [this, Index] { ShowFormAtCaret(Index); }),
                              Qt::QueuedConnection);
}

void CellEditing::ShowFormAtCaret(int Index)
{
    if (m_cells.CellWithCaret() != Index) return;
    const RichTextBox& box = m_cells.tbDay(Index);
    if (box.SelLength() > 0) return; // tbDay_SelChange has shown its form
    if (const auto name = box.SelFontName()) m_bar.orlcmbFontname->ShowTextOrEntry(*name);
    if (const auto size = box.SelFontSize())
        m_bar.orlcmbFontsize->ShowTextOrEntry(TrimmedStr(static_cast<qint64>(std::nearbyint(*size))));
    const int color = PlaceOfColor(box.SelColor().value_or(0));
    m_bar.orlcmbFontcolor->SetListIndex(color >= 0 ? color : ORLCombo::BlankColor);
}

void CellEditing::EnterIfNoneIsCurrent(int Index)
{
    if (!m_cells.Shows(g_iCurrentPanel)) tbDay_GotFocus(Index);
}

void CellEditing::tbDay_Click(int Index)
{
    const ErrorTail tail(" in MainForm, tbDay_Click"_L1);
    tail([&] {
        const int day = m_cells.DayOf(Index);
        if (m_viewMode.GetViewMode() == ViewMode::Month && day != 0) g_iDay = static_cast<std::int16_t>(day);
    });
}

// The caption and the margin belong to the cell: what is typed next must not go into another day. A locked day keeps
// the caret without a message, since a double click opens the day view.
void CellEditing::panelDay_Click(int Index)
{
    if (!g_bDBShared || !IsHeldElsewhere(Index)) {
        m_cells.tbDay(Index).setFocus();
        EnterIfNoneIsCurrent(Index);
    }
    tbDay_Click(Index);
}

void CellEditing::tbDay_Change()
{
    g_lUnlockTicks = 0;
}

void CellEditing::tbDay_KeyPress(int Index, int& KeyAscii)
{
    g_lUnlockTicks = 0;
    EnterIfNoneIsCurrent(Index);
    if (!g_bDBShared) return;
    // No save would store it, though the box may still be unlocked from an earlier lock.
    if (IsHeldElsewhere(Index)) KeyAscii = 0;
    if (!m_heldDay.LooksFree()) return;
    KeyAscii = 0;
    // While an alarm window passes keys on, a message box would cover it.
    if (QApplication::activeModalWidget() || RefusesWithoutPlanner()) return;
    MsgBox(u"Please lock current day in order to edit a shared database. Alternatively, locking "
           "mechanism is automatic if you zoom in to 'Day View' by double-clicking on the 'Date' of "
           "the cell, or use shortcut key Ctrl-D"_s,
           msgbox::Exclamation, messages::HelpWizard);
}

void CellEditing::tbDay_MouseDown(int Index, int Button, const QPoint& globalPosition)
{
    EnterIfNoneIsCurrent(Index);
    if (Button != RichTextBox::RightButton) return;
    if (g_bDBShared && IsHeldElsewhere(Index)) {
        // An inactive window gets no focus event that could refuse this press.
        RefuseMove();
        m_menuAfterwards = globalPosition;
        return;
    }
    m_cells.tbDay(Index).setFocus();
    OfferCorrections(m_menus.mnuRightMouse(), m_cells.tbDay(Index), globalPosition);
    m_menus.mnuRightMouse().popup(globalPosition);
}

void CellEditing::tbDay_SelChange(int Index)
{
    const RichTextBox& box = m_cells.tbDay(Index);
    // Without a selection the bar stays as it is, so that typing does not pay for this.
    if (box.SelLength() < 1) return;
    FollowButtons(box);
    FollowCombos(box);
}

void CellEditing::FollowButtons(const RichTextBox& box)
{
    const ErrorTail tail(" in MainForm, errTbDaySelChange"_L1);
    const Toolbar& bar = *m_bar.tbTop;
    for (const TextStyle& style : TextStyles)
        tail([&] { Follow(bar.Buttons(QString::fromLatin1(style.key)), (box.*style.read)()); });
}

void CellEditing::FollowCombos(const RichTextBox& box)
{
    const ErrorTail tail(" in MainForm, errTbDaySelChange"_L1);
    tail([&] {
        const auto name = box.SelFontName();
        if (!name) return;
        Choose(*m_bar.orlcmbFontname, IndexOf(*m_bar.orlcmbFontname, *name));
    });
    tail([&] {
        const auto size = box.SelFontSize();
        if (!size) return;
        const QString text = TrimmedStr(static_cast<qint64>(std::nearbyint(*size)));
        Choose(*m_bar.orlcmbFontsize, IndexOf(*m_bar.orlcmbFontsize, text));
    });
    tail([&] {
        const auto color = box.SelColor();
        Choose(*m_bar.orlcmbFontcolor, color ? PlaceOfColor(*color) : ORLCombo::BlankColor);
    });
}
