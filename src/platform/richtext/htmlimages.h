// Images of HTML made pictures of a note, so that the note holds all that it shows, and the other way round. Nothing is
// fetched from another machine. Knows only QtGui.
#pragma once

#include "platform/richtext/pastebounds.h"

#include <QByteArray>

struct PictureFit;
class QTextDocument;
class QUrl;

// Makes pictures of notes from the images between two positions that are not yet, such as those of HTML. They come from
// data: URLs and from files of this machine; of others there remains what is said in their place. Returns the position
// where the range ends now.
int AdoptImages(QTextDocument& document, int begin, int end, const PictureFit& fit);

// Gives the document's pictures data: URLs for names, so that HTML made of it holds them. The document is none to be
// kept; what cannot be shown is taken out of it.
void EmbedPictures(QTextDocument& document);

// What is in a file of this machine, or the first bytes of it, if it is no larger than an image can be; else empty.
QByteArray DataOfFile(const QUrl& url, qint64 most = MostImageFileBytes);
