#include "settings/settings.h"

#include "platform/look/colorvalue.h"
#include "platform/profile/profile.h"
#include "platform/runtime/language.h"

#include <algorithm>

namespace {
constexpr QStringView DefaultFont = u"Arial";
constexpr int FontNameSize = 40;
constexpr int ColorSize = 40;

// Wraps a text of settings.h without copying it.
QString Fixed(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

int ReadInt(QStringView section, QStringView key, int fallback)
{
    return GetPrivateProfileIntA(Fixed(section), Fixed(key), fallback, Fixed(settings::PlannerIni));
}

QString ReadText(QStringView section, QStringView key, QStringView fallback, int size)
{
    return GetPrivateProfileStringA(Fixed(section), Fixed(key), Fixed(fallback), size, Fixed(settings::PlannerIni));
}
} // namespace

int Read(const IntSetting& setting)
{
    return ReadInt(setting.section, setting.key, setting.fallback);
}

QString Read(const TextSetting& setting)
{
    return ReadText(setting.section, setting.key, setting.fallback, setting.size);
}

QString Read(const TextSetting& setting, const QString& computedFallback)
{
    // No Fixed() here: the fallback may be deleted before the result is.
    return GetPrivateProfileStringA(Fixed(setting.section), Fixed(setting.key), computedFallback, setting.size,
                                    Fixed(settings::PlannerIni));
}

void Write(const IntSetting& setting, int value)
{
    WriteText(setting, QString::number(value));
}

void Write(const TextSetting& setting, const QString& value)
{
    WritePrivateProfileStringA(Fixed(setting.section), Fixed(setting.key), value, Fixed(settings::PlannerIni));
}

void WriteText(const IntSetting& setting, const QString& text)
{
    WritePrivateProfileNumber(Fixed(setting.section), Fixed(setting.key), text, Fixed(settings::PlannerIni));
}

std::int32_t DelaySeconds(double minutes)
{
    constexpr double LongestDelay = 30000;
    constexpr int SecondsPerMinute = 60;
    return static_cast<std::int32_t>(std::clamp(minutes, 0.0, LongestDelay)) * SecondsPerMinute;
}

PanelStyle ReadStyle(const StyleDefaults& defaults)
{
    const QStringView section = defaults.section;
    // The file may be edited by hand, so a size that no font can have must not reach the painter.
    constexpr int LargestSize = 400;
    return {ReadText(section, u"FONTNAME", DefaultFont, FontNameSize),
            ReadInt(section, u"FONTBOLD", defaults.bold) != 0,
            std::clamp(ReadInt(section, u"FONTSIZE", defaults.size), 1, LargestSize),
            ReadInt(section, u"FONTITALIC", defaults.italic) != 0,
            ColorOf(ReadText(section, u"FONTCOLOR", defaults.color, ColorSize))};
}

PanelStyle DefaultStyle(const StyleDefaults& defaults)
{
    return {DefaultFont.toString(), defaults.bold != 0, defaults.size, defaults.italic != 0,
            ColorOf(defaults.color.toString())};
}

void WriteStyle(QStringView section, const PanelStyle& style, QStringView yes)
{
    const auto write = [&](QStringView key, const QString& value) {
        WritePrivateProfileStringA(Fixed(section), Fixed(key), value, Fixed(settings::PlannerIni));
    };
    const auto flag = [&](bool set) { return set ? yes.toString() : u"0"_s; };
    write(u"FONTNAME", style.fontName);
    write(u"FONTSIZE", TrimmedStr(style.size));
    write(u"FONTBOLD", flag(style.bold));
    write(u"FONTITALIC", flag(style.italic));
    write(u"FONTCOLOR", ColorText(style.color));
}
