// A part of a dialog: a heading, and its controls flush below. To keyboard and screen reader it is a group box, but it
// draws no frame: space and a heading group the controls as well, and remain quiet when parts contain parts. It also
// gives the layout of its controls their gaps.
#pragma once

#include <QGroupBox>

inline constexpr int Rhythm = 8; // pixels; the gaps and margins of dialogs are its multiples

class DialogPart : public QGroupBox
{
public:
    enum class Kind
    {
        Whole, // all parts of a dialog, under its own larger heading
        Usual,
        Line // a part of one line, with the heading at its beginning
    };

    explicit DialogPart(const QString& heading, Kind kind = Kind::Usual);

    Kind kind() const { return m_kind; }

private:
    const Kind m_kind;
};
