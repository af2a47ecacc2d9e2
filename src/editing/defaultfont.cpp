#include "editing/defaultfont.h"

#include "calendar/modshow.h"
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

bool IsBlankNote(const RichTextBox& box)
{
    return box.Text().remove(u' ').isEmpty();
}

void GiveDefaultFont(RichTextBox& box, DefaultStyles styles, QLatin1StringView literal)
{
    const auto isSet = [styles](const IntSetting& setting) {
        return styles == DefaultStyles::AsSet && Read(setting) == 1;
    };
    const ErrorTail tail(literal);
    tail([&] { box.SetFontName(Read(settings::DefaultFontName)); });
    tail([&] { box.SetFontSize(Read(settings::DefaultFontSize)); });
    box.SetFontBold(isSet(settings::DefaultBold));
    box.SetFontItalic(isSet(settings::DefaultItalic));
    box.SetFontUnderline(isSet(settings::DefaultUnderline));
    box.SetFontStrikethrough(isSet(settings::DefaultStrikeThrough));
    box.SetSelColor(fnColorInHex(Read(settings::DefaultFontColor).toUpper()));
}
