// Converts HTML to the rich text of a note and back, for the clipboard. Knows only QtGui.
#pragma once

#include "platform/richtext/notepicture.h"

#include <QByteArray>
#include <QFont>
#include <QString>

class QTextCharFormat;

struct HtmlNote
{
    QByteArray rtf;          // empty if there is nothing or the HTML is too large
    bool isPictures = false; // only pictures and blanks
};

// Formats that the HTML leaves open come from initial. Lists and tables become text: items are indented by their level,
// cells are placed at tab stops. Loads nothing but local image files.
HtmlNote ReadHtml(const QString& html, const QTextCharFormat& initial, const PictureFit& fit);

QString WriteHtml(const QByteArray& rtf, const QFont& font); // pictures are embedded
