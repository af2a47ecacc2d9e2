#include "editing/defaultfont.h"

#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "state/modshow.h"

namespace {
void SetSize(QFont& font, int points)
{
    if (points <= 0) throw RunTimeError{errors::InvalidPropertyValue, u"Invalid property value"_s};
    font.setPointSize(points);
}
} // namespace

void GiveDefaultFont(RichTextBox& box, DefaultStyles styles, QLatin1StringView literal)
{
    const auto isSet = [styles](const IntSetting& setting) {
        return styles == DefaultStyles::AsSet && Read(setting) == 1;
    };
    QFont font = box.Font();
    font.setFamily(Read(settings::DefaultFontName));
    ErrorTail{literal}([&] { SetSize(font, Read(settings::DefaultFontSize)); });
    font.setBold(isSet(settings::DefaultBold));
    font.setItalic(isSet(settings::DefaultItalic));
    font.setUnderline(isSet(settings::DefaultUnderline));
    font.setStrikeOut(isSet(settings::DefaultStrikeThrough));
    box.SetBlankFormat(font, fnColorInHex(Read(settings::DefaultFontColor).toUpper()));
}
