// Whether HTML from anywhere can be read in good time. Knows only QtCore.
#pragma once

#include <QStringView>

// Not too long, the data of its images aside, nor too deep, nor with more images and items of lists than a reader
// takes, whose time grows with the square of each.
bool IsWithinBounds(QStringView html);
