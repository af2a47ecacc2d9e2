// A memo, which lies in its row only if it is short.
#pragma once

#include <glib.h> // first here, since the next would read it as C
#include <mdbtools.h>
#include <optional>
#include <string>
#include <string_view>

// Of what the library tells as the place of a row on its page; the others are marks.
inline constexpr int OffsetBits = 0x1FFF;

// Nothing if its whole length is not there. The library's own way cuts it, or follows its pages for ever.
std::optional<std::string> ReadLongValue(MdbHandle& file, std::string_view inRow);
