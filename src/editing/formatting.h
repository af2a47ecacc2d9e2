// The commands that change the look of the current cell's note, and the clipboard's. Menu, right-button menu and
// toolbar run the same routines.
#pragma once

#include <QString>

class Cells;
class FontCommand;
struct FormatBar;
struct NetworkControls;
class RichTextBox;
struct TextStyle;

class Formatting
{
public:
    Formatting(Cells& cells, const FormatBar& bar, const NetworkControls& network, FontCommand& fontCommand)
        : m_cells(cells), m_bar(bar), m_network(network), m_fontCommand(fontCommand)
    {
    }

    // In a workgroup's planner a day must be locked first; says so and answers false.
    bool fnCanFormatCell();

    void mnuBold_Click();
    void mnuItalic_Click();
    void mnuUnderline_Click();
    void mnuStrikeThru_Click();
    void mnuColorSizeFonts_Click(); // the font dialog; Cancel applies what it was filled with
    void mnuLeftJustify_Click();
    void mnuCenterJustify_Click();
    void mnuRightJustify_Click();
    void mnuCut_Click();
    void mnuCopy_Click();
    void mnuPaste_Click();

    // The combos act on the current cell without the guard; pressing one shows the guard's message all the same.
    void orlcmbFontname_Change();
    void orlcmbFontsize_Change();
    void orlcmbFontcolor_Change(); // the blank entry changes nothing

    void subInitAllComboBox(); // fills and shows the combos

private:
    void Run(const TextStyle& style, QLatin1StringView literal);
    RichTextBox& CurrentBox();
    void SendKey(int key, Qt::KeyboardModifiers modifiers);
    void Justify(int alignment);

    Cells& m_cells;
    const FormatBar& m_bar;
    const NetworkControls& m_network;
    FontCommand& m_fontCommand;
};
