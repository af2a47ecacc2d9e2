// Lays a note out for its box on paper. Knows only QtGui and the notes' pictures.
#pragma once

class QPaintDevice;
class QSizeF;
class QTextDocument;

// Lays the note out at the device's resolution in a box of this size, in dots, and shortens it to the lines that fit
// whole: "…" stands where more follows. Pictures that are larger than the box are made smaller. A first line that is
// higher than the box stays; what sticks out is for the painter to clip.
void FitNote(QTextDocument& note, const QSizeF& box, QPaintDevice& device);
