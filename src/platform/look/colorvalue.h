// Colours as numbers, as settings and controls store them: blue, green, red from high to low. Knows only QtGui.
#pragma once

#include "platform/runtime/language.h"

#include <QColor>

#include <algorithm>
#include <cstdint>

inline QColor ColorOfValue(std::uint32_t value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

inline std::uint32_t ValueOfColor(const QColor& color)
{
    return std::uint32_t(color.blue()) << 16 | std::uint32_t(color.green()) << 8 | std::uint32_t(color.red());
}

// The settings file's form, "&HBBGGRR&". Higher bits are dropped.
inline std::uint32_t ColorOf(const QString& text)
{
    const double color = std::clamp(Val(text), -2147483648.0, 4294967295.0);
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(color)) & 0xFFFFFFu;
}

inline QString ColorText(std::uint32_t color)
{
    return u"&H%1&"_s.arg(QString::number(color, 16).toUpper());
}
