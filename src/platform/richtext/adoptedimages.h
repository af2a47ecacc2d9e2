// Images that came with HTML made pictures of the note, so that the note holds all that it shows. Nothing is fetched
// from another machine. Knows only QtGui.
#pragma once

struct PictureFit;
class QTextDocument;

// Makes pictures of notes from the images between two positions that are not yet, such as those of HTML. They come from
// data: URLs and from files of this machine; of others there remains what is said in their place. Returns the position
// where the range ends now.
int AdoptImages(QTextDocument& document, int begin, int end, const PictureFit& fit);
