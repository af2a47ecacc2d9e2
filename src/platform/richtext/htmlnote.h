// HTML to the rich text of a note and back, for the clipboard. Knows only QtGui.
#pragma once

#include "platform/richtext/notepicture.h"

#include <QByteArray>
#include <QFont>
#include <QString>

struct HtmlNote
{
    QByteArray rtf;          // empty where there is nothing, or more than can be read in good time
    bool isPictures = false; // nothing but pictures and blanks
};

// All formats spelt out over the font. Lists and tables become text, as in rich text that is read. Nothing is loaded
// from elsewhere but image files of this machine.
HtmlNote ReadHtml(const QString& html, const QFont& font, const PictureFit& fit);

QString WriteHtml(const QByteArray& rtf, const QFont& font); // pictures embedded
