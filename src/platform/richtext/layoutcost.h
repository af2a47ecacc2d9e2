// Keeps the cost of laying a note out in step with its length, whatever its shape.
#pragma once

#include <QtGlobal>

class QTextDocument;
class QTextEdit;

// Each line looks through all the rest of a word that does not fit into it, so the cost of a long word is its square;
// and each of the runs of one format is shaped by itself. While the box holds too much of either, it sets its text
// without kerning, and long words are broken anywhere. Other notes are laid out as ever. To be called once for a box.
void BoundLayoutCost(QTextEdit& box);

// A change of many steps, such as an undo, has each step look at all lines of its paragraph. So there are none in long
// paragraphs while this lives; afterwards they are laid out again. Nobody may ask for a place on the screen meanwhile.
class WithoutLines
{
public:
    explicit WithoutLines(QTextDocument& document);
    ~WithoutLines();
    Q_DISABLE_COPY_MOVE(WithoutLines)

private:
    QTextDocument& m_document;
};
