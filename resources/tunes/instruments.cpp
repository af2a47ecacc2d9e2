#include "instruments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// The partials of struck bars and bells do not lie on whole numbers; their places make the sound known.
static const QList<Instrument>& Instruments()
{
    static const QList<Instrument> instruments = {
        {"chime"_L1, 8, {{1, 1, 0.9}, {2, 0.22, 0.5}, {3.01, 0.16, 0.3}, {5.4, 0.05, 0.1}}},
        {"bell"_L1,
         14,
         {{0.5, 0.35, 1.6},
          {1, 1, 1.1},
          {1.19, 0.4, 0.8},
          {1.5, 0.2, 0.6},
          {2, 0.55, 0.6},
          {2.67, 0.2, 0.35},
          {4.1, 0.12, 0.15}}},
        {"marimba"_L1, 12, {{0.998, 0.5, 0.3}, {1.002, 0.5, 0.3}, {3.93, 0.22, 0.07}, {9.2, 0.06, 0.02}}},
        {"musicbox"_L1, 10, {{1, 1, 0.55}, {2, 0.3, 0.35}, {3, 0.1, 0.25}, {6.27, 0.12, 0.06}}},
        {"piano"_L1, 0, {}},
        {"vibraphone"_L1, 11, {}},
        {"bass"_L1, 32, {}},
        {"pizzicato"_L1, 45, {}},
        {"harp"_L1, 46, {}},
        {"strings"_L1, 48, {}},
        {"trumpet"_L1, 56, {}},
        {"horn"_L1, 60, {}},
        {"flute"_L1, 73, {}},
        {"recorder"_L1, 74, {}},
    };
    return instruments;
}

const Instrument* FindInstrument(QStringView name)
{
    const auto found = std::ranges::find_if(Instruments(), [&](const Instrument& one) { return one.Name == name; });
    return found == Instruments().cend() ? nullptr : &*found;
}
