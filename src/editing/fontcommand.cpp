#include "editing/fontcommand.h"

#include "editing/textstyles.h"
#include "platform/runtime/errortail.h"

const FontChoice& FontCommand::Ask(QWidget* owner, const RichTextBox& box, const ErrorTail& tail)
{
    Fill(box, tail);
    tail([&] { ChooseFont(owner, m_dialog, fontdialog::ScreenFontsAndEffects); });
    return m_dialog;
}

void FontCommand::Fill(const RichTextBox& box, const ErrorTail& tail)
{
    m_dialog.name = box.SelFontName().value_or(QString());
    m_dialog.size = box.SelFontSize().value_or(0);
    for (const TextStyle& style : TextStyles)
        m_dialog.*style.ofDialog = (box.*style.read)().value_or(false);
    m_dialog.colorIsChosen = false;
    // The underline decides about the colour. If it is mixed the dialog starts in black; if only the colour is mixed
    // the dialog keeps the colour of its last use.
    tail([&] {
        if (!box.SelUnderline()) {
            m_dialog.color = 0;
            return;
        }
        const std::optional<std::uint32_t> color = box.SelColor();
        if (!color) throw RunTimeError{errors::InvalidUseOfNull, u"Invalid use of Null"_s};
        m_dialog.color = *color;
    });
}

QString NameOr(const FontChoice& choice)
{
    return choice.name.isEmpty() ? u"Arial"_s : choice.name;
}

void ApplyToSelection(RichTextBox& box, const FontChoice& choice, const ErrorTail& tail)
{
    const UndoStep oneStep(box);
    tail([&] { box.SetSelFontName(NameOr(choice)); });
    tail([&] { box.SetSelFontSize(choice.size); });
    if (choice.colorIsChosen) tail([&] { box.SetSelColor(choice.color); });
    for (const TextStyle& style : TextStyles)
        tail([&] { Set(box, style, choice.*style.ofDialog); });
}
