// A colour as one number, blue, green, red from high to low, which is how settings and controls hold it. Knows only
// QtGui.
#pragma once

#include <QColor>

#include <cstdint>

inline QColor ColorOfValue(std::uint32_t value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

inline std::uint32_t ValueOfColor(const QColor& color)
{
    return std::uint32_t(color.blue()) << 16 | std::uint32_t(color.green()) << 8 | std::uint32_t(color.red());
}
