// The palette of calendar paper. Painting on paper uses these colours or those of the settings, never the desktop's
// theme. Knows only QtGui.
#pragma once

#include <QColor>
#include <QPalette>

namespace paper {
inline constexpr QColor Paper{0xfd, 0xfc, 0xf9};
inline constexpr QColor MemoPaper{0xf6, 0xf3, 0xec};
inline constexpr QColor Today{0xff, 0xf3, 0xf1};
inline constexpr QColor Band{0xef, 0xeb, 0xe2};
inline constexpr QColor LightBand{0xf8, 0xf6, 0xf1}; // toolbar
inline constexpr QColor Hairline{0xd8, 0xd3, 0xc7};
inline constexpr QColor Ink{0x22, 0x25, 0x2a};
inline constexpr QColor SoftInk{0x6b, 0x6f, 0x76};
inline constexpr QColor TodayFrame{0xd0, 0x5a, 0x55};
inline constexpr QColor LockFrame{0x3c, 0x8c, 0x55};
inline constexpr QColor UnknownWord{0xd0, 0x2b, 0x20}; // the wave under it
inline constexpr QColor Accent{0x2f, 0x6d, 0xb5};
inline constexpr QColor AccentTint{0xe3, 0xec, 0xf7};
inline constexpr QColor PaleSelection{0xdc, 0xe5, 0xf0}; // readable under black
inline constexpr QColor MixedGround{0xe4, 0xe2, 0xdd};   // button of a mixed format
inline constexpr QColor MixedDots{0xb4, 0xb3, 0xaf};
inline constexpr QColor ScrollHandle{0x22, 0x25, 0x2a, 0x48}; // translucent ink
inline constexpr QColor ActiveScrollHandle{0x22, 0x25, 0x2a, 0x90};

// The palette for standard fields on paper.
inline QPalette OnPaper(QPalette palette)
{
    palette.setColor(QPalette::Base, Paper);
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::PlaceholderText, SoftInk);
    palette.setColor(QPalette::Mid, Hairline);
    return palette;
}

// The palette for standard buttons. Styles derive body and edges from the first two colours.
inline QPalette ButtonOnPaper()
{
    QPalette palette(LightBand, Paper);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, SoftInk);
    palette.setColor(QPalette::Highlight, Accent);
    return palette;
}

inline constexpr int CaptionBand = 20; // pixels of a cell above its note
inline constexpr int Margin = 7;       // from a cell's edge to its caption and note
} // namespace paper
