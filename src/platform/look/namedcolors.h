// The sixteen colours that text can be given by name, in the order of the lists that offer them.
#pragma once

#include <QLatin1StringView>

#include <algorithm>
#include <array>
#include <cstdint>

struct NamedColor
{
    QLatin1StringView name; // "Fuschia" is part of the lists: the choice is told by its name
    std::uint32_t value;    // blue, green, red from high to low
};

inline constexpr std::array<NamedColor, 16> NamedColors = {{{QLatin1StringView("Black"), 0x000000},
                                                            {QLatin1StringView("Maroon"), 0x000080},
                                                            {QLatin1StringView("Green"), 0x008000},
                                                            {QLatin1StringView("Olive"), 0x008080},
                                                            {QLatin1StringView("Navy"), 0x800000},
                                                            {QLatin1StringView("Purple"), 0x800080},
                                                            {QLatin1StringView("Teal"), 0x808000},
                                                            {QLatin1StringView("Gray"), 0x808080},
                                                            {QLatin1StringView("Silver"), 0xC0C0C0},
                                                            {QLatin1StringView("Red"), 0x0000FF},
                                                            {QLatin1StringView("Lime"), 0x00FF00},
                                                            {QLatin1StringView("Yellow"), 0x00FFFF},
                                                            {QLatin1StringView("Blue"), 0xFF0000},
                                                            {QLatin1StringView("Fuschia"), 0xFF00FF},
                                                            {QLatin1StringView("Aqua"), 0xFFFF00},
                                                            {QLatin1StringView("White"), 0xFFFFFF}}};

// The place of a colour in the list, -1 for any other colour.
constexpr int PlaceOfColor(std::uint32_t value)
{
    const auto found = std::ranges::find(NamedColors, value, &NamedColor::value);
    return found == NamedColors.end() ? -1 : static_cast<int>(found - NamedColors.begin());
}
