// HTML to the rich text of a note and back, for the clipboard. Knows only QtGui.
#pragma once

#include "platform/richtext/notepicture.h"

#include <QByteArray>
#include <QFont>
#include <QString>

class QTextCharFormat;

struct HtmlNote
{
    QByteArray rtf;          // empty where there is nothing, or more than can be read in good time
    bool isPictures = false; // nothing but pictures and blanks
};

// All formats spelt out over the initial one. Lists and tables become text: items are indented by their level, cells
// stand at tab stops. Nothing is loaded from elsewhere but image files of this machine.
HtmlNote ReadHtml(const QString& html, const QTextCharFormat& initial, const PictureFit& fit);

QString WriteHtml(const QByteArray& rtf, const QFont& font); // pictures embedded
