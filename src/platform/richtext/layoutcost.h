// Keeps the time to lay a note out proportional to its length.
#pragma once

#include <QtGlobal>

class QTextDocument;
class QTextEdit;

// The layout cost of a word grows with the square of its length, since each line examines the whole rest of the word.
// Runs of a format are shaped one by one. While a box holds too much of either, its text is set without kerning, and
// long words break anywhere. Call it once per box.
void BoundLayoutCost(QTextEdit& box);

// Each step of a large change, such as an undo, examines all lines of its paragraph. While this exists, long paragraphs
// have no lines; its destructor lays them out again. Do not ask for screen positions meanwhile.
class WithoutLines
{
public:
    explicit WithoutLines(QTextDocument& document);
    ~WithoutLines();
    Q_DISABLE_COPY_MOVE(WithoutLines)

private:
    QTextDocument& m_document;
};
