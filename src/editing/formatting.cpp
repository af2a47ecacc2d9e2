#include "editing/formatting.h"

#include "editing/fontcommand.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/menus.h"
#include "notes/heldday.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/postkey.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"

bool Formatting::fnCanFormatCell()
{
    if (!g_bDBShared || !m_heldDay.LooksFree()) return true;
    if (RefusesWithoutPlanner()) return false;
    MsgBox(u"Please lock the desired day before attempting to apply font attributes to current cell"_s,
           msgbox::Information, messages::HelpWizard);
    return false;
}

RichTextBox& Formatting::CurrentBox()
{
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    return m_cells.tbDay(g_iCurrentPanel);
}

void Formatting::ToggleStyle(const TextStyle& style)
{
    if (!fnCanFormatCell()) return;
    const std::optional<bool> before = Toggle(CurrentBox(), style);
    ToolbarButton& button = m_bar.tbTop->Buttons(QString::fromLatin1(style.key));
    // A mixed selection becomes uniform, but its button stays grey until the selection changes.
    button.SetMixedState(!before);
    if (before) button.SetValue(*before ? 0 : 1);
}

void Formatting::mnuColorSizeFonts_Click()
{
    if (!fnCanFormatCell()) return;
    const ErrorTail tail(" in MainForm, mnuColorSizeFonts_Click"_L1);
    RichTextBox& box = CurrentBox();
    const FontChoice& chosen = m_fontCommand.Ask(m_cells.Client()->window(), box, tail);
    const UndoStep oneStep(box);
    // Name and size apply to the whole note, colour and styles to the selection.
    tail([&] { box.SetFontName(NameOr(chosen)); });
    tail([&] { box.SetFontSize(chosen.size); });
    tail([&] { box.SetSelColor(chosen.color); });
    for (const TextStyle& style : TextStyles) {
        Set(box, style, chosen.*style.ofDialog);
        ToolbarButton& button = m_bar.tbTop->Buttons(QString::fromLatin1(style.key));
        button.SetValue(chosen.*style.ofDialog ? 1 : 0);
        button.SetMixedState(false);
    }
}

void Formatting::SendKey(int key, Qt::KeyboardModifiers modifiers)
{
    RichTextBox& box = CurrentBox();
    box.setFocus();
    PostKey(box, key, modifiers);
}

void Formatting::mnuCut_Click()
{
    if (fnCanFormatCell()) SendKey(Qt::Key_Delete, Qt::ShiftModifier);
}

void Formatting::mnuCopy_Click()
{
    SendKey(Qt::Key_Insert, Qt::ControlModifier);
}

void Formatting::mnuPaste_Click()
{
    if (fnCanFormatCell()) SendKey(Qt::Key_Insert, Qt::ShiftModifier);
}

void Formatting::mnuUndo_Click()
{
    if (fnCanFormatCell()) SendKey(Qt::Key_Z, Qt::ControlModifier);
}

void Formatting::mnuRedo_Click()
{
    if (fnCanFormatCell()) SendKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
}

void Formatting::mnuSelectAll_Click()
{
    RichTextBox& box = CurrentBox(); // its own key is another command's here
    box.setFocus();
    box.selectAll();
}

void Formatting::ShowWhatCanBeUndone(Menus& menus) const
{
    const int cell = m_cells.CellWithCaret();
    const RichTextBox* box = cell == 0 ? nullptr : &m_cells.tbDay(cell);
    menus("mnuUndo"_L1).SetEnabled(box && box->CanUndo());
    menus("mnuRedo"_L1).SetEnabled(box && box->CanRedo());
    menus("mnuSelectAll"_L1).SetEnabled(box && !box->IsEmpty());
}

void Formatting::ShowWhetherOnLink(Menus& menus)
{
    const int cell = m_cells.CellWithCaret();
    m_linkOfMenu = cell == 0 ? QString() : m_cells.tbDay(cell).LinkOfMenu();
    for (const auto entry : {"mnuRMouseHyphen3"_L1, "mnuOpenLinkR"_L1})
        menus(entry).SetVisible(!m_linkOfMenu.isEmpty());
}

void Formatting::orlcmbFontname_Change()
{
    CurrentBox().SetSelFontName(m_bar.orlcmbFontname->Text());
}

void Formatting::orlcmbFontsize_Change()
{
    CurrentBox().SetSelFontSize(Val(m_bar.orlcmbFontsize->Text()));
}

void Formatting::orlcmbFontcolor_Change()
{
    const QString name = m_bar.orlcmbFontcolor->Text().trimmed().toUpper();
    if (!name.isEmpty()) CurrentBox().SetSelColor(fnColorInHex(name));
}

void Formatting::subInitAllComboBox()
{
    const ErrorTail tail(" in MainForm, subInitAllComboBox"_L1);
    tail([&] { m_bar.orlcmbFontcolor->FillColors(); });
    tail([&] { m_bar.orlcmbFontsize->FillFontSizes(); });
    tail([&] { m_bar.orlcmbFontname->FillFontNames(); });
    for (ORLCombo* combo : {m_bar.orlcmbFontcolor, m_bar.orlcmbFontsize, m_bar.orlcmbFontname})
        combo->show();
}
