// The platform's font dialog with a choice of colour beside it.
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
    bool colorIsChosen = false; // by the person in the dialog
};

// Which fonts are offered.
namespace fontdialog {
inline constexpr int ScreenFontsAndEffects = 0x101;
inline constexpr int TrueTypeOnly = 0x40000; // fonts of any size alone
} // namespace fontdialog

// Shows the choice as it stands and changes it if the person confirms; false leaves it as it was. What nobody touched
// comes back as it was given: the dialog shows a substitute in place of a font that is not installed, and some font in
// place of none.
bool ChooseFont(QWidget* owner, FontChoice& choice, int flags);
