// The sixteen named text colours, in the order of the lists.
#pragma once

#include <QLatin1StringView>

#include <algorithm>
#include <array>
#include <cstdint>

struct NamedColor
{
    QLatin1StringView name; // "Fuschia" is the list's spelling: choices are compared by name
    std::uint32_t value;    // blue, green, red from high to low
};

inline constexpr std::array<NamedColor, 16> NamedColors = {{{"Black"_L1, 0x000000},
                                                            {"Maroon"_L1, 0x000080},
                                                            {"Green"_L1, 0x008000},
                                                            {"Olive"_L1, 0x008080},
                                                            {"Navy"_L1, 0x800000},
                                                            {"Purple"_L1, 0x800080},
                                                            {"Teal"_L1, 0x808000},
                                                            {"Gray"_L1, 0x808080},
                                                            {"Silver"_L1, 0xC0C0C0},
                                                            {"Red"_L1, 0x0000FF},
                                                            {"Lime"_L1, 0x00FF00},
                                                            {"Yellow"_L1, 0x00FFFF},
                                                            {"Blue"_L1, 0xFF0000},
                                                            {"Fuschia"_L1, 0xFF00FF},
                                                            {"Aqua"_L1, 0xFFFF00},
                                                            {"White"_L1, 0xFFFFFF}}};

// The index of the colour, or -1.
constexpr int PlaceOfColor(std::uint32_t value)
{
    const auto found = std::ranges::find(NamedColors, value, &NamedColor::value);
    return found == NamedColors.end() ? -1 : static_cast<int>(found - NamedColors.begin());
}
