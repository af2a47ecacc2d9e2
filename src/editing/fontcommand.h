// The font dialog over the selection of a note. Like every common dialog it keeps its values from one use to the next.
#pragma once

#include "platform/controls/fontdialog.h"

class ErrorTail;
class RichTextBox;

class FontCommand
{
public:
    // Fills the dialog from the selection and shows it. Where the selection is mixed it begins with nothing: no name,
    // size 0, no style. A cancelled dialog gives back what it was filled with.
    const FontChoice& Ask(QWidget* owner, const RichTextBox& box, const ErrorTail& tail);

private:
    void Fill(const RichTextBox& box, const ErrorTail& tail);

    FontChoice m_dialog;
};

// The name that is applied: notes always have one.
QString NameOr(const FontChoice& choice);

// Font, styles and, where one was chosen, colour on the selection, as one step that can be taken back.
void ApplyToSelection(RichTextBox& box, const FontChoice& choice, const ErrorTail& tail);
