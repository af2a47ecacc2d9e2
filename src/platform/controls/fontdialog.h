// The toolkit's font dialog with a choice of colour.
#pragma once

#include <QString>

#include <cstdint>

class QWidget;

struct FontChoice
{
    QString name;
    double size = 0; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThru = false;
    std::uint32_t color = 0;    // blue, green, red from high to low
    bool colorIsChosen = false; // chosen in the dialog
};

// The fonts that are offered.
namespace fontdialog {
inline constexpr int ScreenFontsAndEffects = 0x101;
inline constexpr int TrueTypeOnly = 0x40000; // scalable fonts only
} // namespace fontdialog

// Shows the choice and changes it on OK. False: cancelled, unchanged. Values that the user has not touched stay as
// given, although the dialog shows a substitute for a missing font.
bool ChooseFont(QWidget* owner, FontChoice& choice, int flags);
