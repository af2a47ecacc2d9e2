// Fits a note into its box on paper. Knows only QtGui and the notes' pictures.
#pragma once

class QPaintDevice;
class QSizeF;
class QTextDocument;

// Lays the note out for the device in a box of this size, in dots, and cuts it after the last line that fits; "…" marks
// the cut. Larger pictures are scaled down. A first line higher than the box stays; the painter must clip it.
void FitNote(QTextDocument& note, const QSizeF& box, QPaintDevice& device);
