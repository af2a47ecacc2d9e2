// The font dialog for the selection of a note. It keeps its values from one use to the next.
#pragma once

#include "platform/controls/fontdialog.h"

class ErrorTail;
class RichTextBox;

class FontCommand
{
public:
    // Fills the dialog from the selection and shows it. A mixed value starts empty: no name, size 0, no style. If the
    // dialog is cancelled, these values are returned.
    const FontChoice& Ask(QWidget* owner, const RichTextBox& box, const ErrorTail& tail);

private:
    void Fill(const RichTextBox& box, const ErrorTail& tail);

    FontChoice m_dialog;
};

// The chosen name, or Arial: notes always have a font name.
QString NameOr(const FontChoice& choice);

// Applies font, styles and, if one was chosen, colour to the selection, as one undo step.
void ApplyToSelection(RichTextBox& box, const FontChoice& choice, const ErrorTail& tail);
