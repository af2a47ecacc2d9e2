// How an empty note looks when typing begins.
#pragma once

#include <QLatin1StringView>

class RichTextBox;

enum class DefaultStyles
{
    AsSet,
    None
};

// Gives the box, for as long as it is empty and whenever it becomes so, the font and colour of the settings as they are
// now, and their four styles or none. A value that no font can have is logged under the literal and left out.
void GiveDefaultFont(RichTextBox& box, DefaultStyles styles, QLatin1StringView literal);
