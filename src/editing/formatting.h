// The format and clipboard commands of the current cell. Menus and toolbar run the same routines.
#pragma once

#include "editing/textstyles.h"

class Cells;
class FontCommand;
struct FormatBar;
class HeldDay;
class Menus;

class Formatting
{
public:
    Formatting(Cells& cells, const FormatBar& bar, const HeldDay& heldDay, FontCommand& fontCommand)
        : m_cells(cells), m_bar(bar), m_heldDay(heldDay), m_fontCommand(fontCommand)
    {
    }

    // False after a message, if this is a workgroup's planner and the day is not locked.
    bool fnCanFormatCell();

    void mnuBold_Click() { ToggleStyle(Bold); }
    void mnuItalic_Click() { ToggleStyle(Italic); }
    void mnuUnderline_Click() { ToggleStyle(Underline); }
    void mnuStrikeThru_Click() { ToggleStyle(StrikeThru); }
    void mnuColorSizeFonts_Click(); // the font dialog; Cancel applies its initial values
    void mnuLeftJustify_Click() { CurrentBox().SetSelAlignment(0); }
    void mnuCenterJustify_Click() { CurrentBox().SetSelAlignment(2); }
    void mnuRightJustify_Click() { CurrentBox().SetSelAlignment(1); }
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();
    void mnuUndo_Click();
    void mnuRedo_Click();
    void mnuSelectAll_Click();
    void ShowWhatCanBeUndone(Menus& menus) const; // in the cell with the caret
    void ShowWhetherOnLink(Menus& menus);         // likewise; at the opening of its menu
    void mnuOpenLinkR_Click() { CurrentBox().OpenLink(m_linkOfMenu); }

    // The combos act on the current cell unchecked; pressing one still shows the message of fnCanFormatCell.
    void orlcmbFontname_Change();
    void orlcmbFontsize_Change();
    void orlcmbFontcolor_Change(); // the blank entry changes nothing

    void subInitAllComboBox(); // fills and shows the combos

private:
    void ToggleStyle(const TextStyle& style);
    RichTextBox& CurrentBox();
    void SendKey(int key, Qt::KeyboardModifiers modifiers);

    Cells& m_cells;
    const FormatBar& m_bar;
    const HeldDay& m_heldDay;
    FontCommand& m_fontCommand;
    QString m_linkOfMenu; // empty if the menu was opened beside one
};
