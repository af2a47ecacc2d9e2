// Turns HTML images into pictures of a note and back. Nothing is fetched from other machines. Knows only QtGui.
#pragma once

#include "platform/richtext/pastebounds.h"

#include <QByteArray>

struct PictureFit;
class QTextDocument;
class QUrl;

// Replaces the images in the range, such as those of HTML, by pictures of the note. Reads data: URLs and local files;
// other images are replaced by their alternative text. Returns the new end of the range.
int AdoptImages(QTextDocument& document, int begin, int end, const PictureFit& fit);

// Names the pictures by data: URLs for toHtml(). Pictures that cannot be shown are removed, so use it on a copy.
void EmbedPictures(QTextDocument& document);

// The bytes of a local file, at most "most" of them. Empty if it is too large for an image.
QByteArray DataOfFile(const QUrl& url, qint64 most = MostImageFileBytes);
