// A picture that does not fit into its line goes to the next one; the toolkit has made the line before as high as the
// picture by then. Knows only QtGui.
#pragma once

class QTextBlock;

// Takes that height away again: moves the text of such lines up, and what follows in the paragraph. Doing it twice does
// no more than once; the next layout of the paragraph brings the gaps back. A paragraph far longer than a note is left.
void CloseGapsAbovePictures(const QTextBlock& block);
