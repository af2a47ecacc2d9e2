#include "instruments.h"

#include <algorithm>

// The partials of struck bars and bells do not lie on whole numbers; their places make the sound known.
static const QList<Instrument>& Instruments()
{
    static const QList<Instrument> instruments = {
        {QLatin1StringView("chime"), 8, {{1, 1, 0.9}, {2, 0.22, 0.5}, {3.01, 0.16, 0.3}, {5.4, 0.05, 0.1}}},
        {QLatin1StringView("bell"),
         14,
         {{0.5, 0.35, 1.6},
          {1, 1, 1.1},
          {1.19, 0.4, 0.8},
          {1.5, 0.2, 0.6},
          {2, 0.55, 0.6},
          {2.67, 0.2, 0.35},
          {4.1, 0.12, 0.15}}},
        {QLatin1StringView("marimba"),
         12,
         {{0.998, 0.5, 0.3}, {1.002, 0.5, 0.3}, {3.93, 0.22, 0.07}, {9.2, 0.06, 0.02}}},
        {QLatin1StringView("musicbox"), 10, {{1, 1, 0.55}, {2, 0.3, 0.35}, {3, 0.1, 0.25}, {6.27, 0.12, 0.06}}},
        {QLatin1StringView("piano"), 0, {}},
        {QLatin1StringView("vibraphone"), 11, {}},
        {QLatin1StringView("bass"), 32, {}},
        {QLatin1StringView("pizzicato"), 45, {}},
        {QLatin1StringView("harp"), 46, {}},
        {QLatin1StringView("strings"), 48, {}},
        {QLatin1StringView("trumpet"), 56, {}},
        {QLatin1StringView("horn"), 60, {}},
        {QLatin1StringView("flute"), 73, {}},
        {QLatin1StringView("recorder"), 74, {}},
    };
    return instruments;
}

const Instrument* FindInstrument(QStringView name)
{
    const auto found = std::ranges::find_if(Instruments(), [&](const Instrument& one) { return one.Name == name; });
    return found == Instruments().cend() ? nullptr : &*found;
}
