// Two routines for pictures of older versions. Nothing calls them at present; they stand ready for those who still have
// such files.
#pragma once

#include <QRect>
#include <QRgb>

class QImage;

// Gives every picture of the rich text beside the program ("pictures.orl" in the application directory) the header of
// an icon: 846 hundredths of a millimetre, shown at 479 twips. Ends quietly at an error.
void subFixPictures();

// Draws a part of the source, leaving out the pixels of one colour. What lies outside either image is left out too.
void subTransparentBlt(QImage& destination, const QImage& source, const QRect& part, int destX, int destY,
                       QRgb transparent);
