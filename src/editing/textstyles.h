// The four styles that commands toggle in a selection. Cells, day view, font dialog and toolbar use this table.
#pragma once

#include "platform/controls/fontdialog.h"
#include "platform/richtext/richtextbox.h"

#include <array>

struct TextStyle
{
    const char* key;     // of its button in the toolbar
    const char* command; // its entry in the right-button menus
    std::optional<bool> (RichTextBox::*read)() const;
    void (RichTextBox::*write)(bool);
    bool FontChoice::*ofDialog;
};

inline constexpr TextStyle Bold = {"bold", "mnuBold", &RichTextBox::SelBold, &RichTextBox::SetSelBold,
                                   &FontChoice::bold};
inline constexpr TextStyle Italic = {"italic", "mnuItalic", &RichTextBox::SelItalic, &RichTextBox::SetSelItalic,
                                     &FontChoice::italic};
inline constexpr TextStyle Underline = {"underline", "mnuUnderline", &RichTextBox::SelUnderline,
                                        &RichTextBox::SetSelUnderline, &FontChoice::underline};
inline constexpr TextStyle StrikeThru = {"strikethru", "mnuStrikeThru", &RichTextBox::SelStrikeThru,
                                         &RichTextBox::SetSelStrikeThru, &FontChoice::strikeThru};

inline constexpr std::array<TextStyle, 4> TextStyles = {Bold, Italic, Underline, StrikeThru};

inline void Set(RichTextBox& box, const TextStyle& style, bool on)
{
    (box.*style.write)(on);
}

// Turns the style on if it was off or mixed, else off. Returns the old state, empty for mixed.
inline std::optional<bool> Toggle(RichTextBox& box, const TextStyle& style)
{
    const std::optional<bool> before = (box.*style.read)();
    Set(box, style, !before.value_or(false));
    return before;
}
