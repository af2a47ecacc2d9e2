// How an empty note looks when typing begins.
#pragma once

#include <QLatin1StringView>

class RichTextBox;

bool IsBlankNote(const RichTextBox& box); // nothing but blanks; tabs and empty lines are text that somebody formatted

enum class DefaultStyles
{
    AsSet,
    None
};

// Gives the box the font and colour of the settings as they are now, and their four styles or none. A value that no
// font can have is logged under the literal and left out.
void GiveDefaultFont(RichTextBox& box, DefaultStyles styles, QLatin1StringView literal);
