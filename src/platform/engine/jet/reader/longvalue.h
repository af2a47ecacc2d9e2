// Reads a memo. Only a short one lies in its row.
#pragma once

#include <glib.h> // first, since mdbtools.h would include it as C
#include <mdbtools.h>
#include <optional>
#include <string>
#include <string_view>

// The place of a row in the library's offset; the other bits are flags.
inline constexpr int OffsetBits = 0x1FFF;

// None if the memo is incomplete. The library's own routine would cut it, or follow its pages for ever.
std::optional<std::string> ReadLongValue(MdbHandle& file, std::string_view inRow);
