// The platform's font dialog with a choice of colour beside it.
#pragma once

#include <QString>

#include <cstdint>

class QWidget;

struct FontChoice
{
    QString name;
    int size; // points
    bool bold;
    bool italic;
    std::uint32_t color; // blue, green, red from high to low
};

// Shows the choice as it stands and changes it if the person confirms; false leaves it as it was. What nobody touched
// comes back as it was given, for the dialog shows a substitute in place of a font that is not installed. Offers
// scalable fonts only.
bool ChooseFont(QWidget* owner, FontChoice& choice);
