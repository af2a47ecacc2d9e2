// How an empty note looks when typing begins.
#pragma once

#include <QLatin1StringView>

class RichTextBox;

enum class DefaultStyles
{
    AsSet,
    None
};

// Gives the box the font, colour and, if wanted, styles of the settings whenever it is empty. A value that no font can
// have is logged under the literal and skipped.
void GiveDefaultFont(RichTextBox& box, DefaultStyles styles, QLatin1StringView literal);
