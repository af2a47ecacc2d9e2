// Waves under the unknown words of a box, as long as it has the caret and takes text. They lie over the painted note:
// the document knows nothing of them, so no copy, undo step, print or input method does.
#pragma once

#include "platform/spelling/words.h"

#include <QTimer>

#include <deque>
#include <optional>

class QDeadlineTimer;
class QPainter;
class QTextBlock;
class QTextLine;
class RichTextBox;
class Speller;

class SpellMarks : public QObject
{
    Q_OBJECT

public:
    // Belongs to the box. Checks the text in slices between events: first what is shown, later what changes. As long as
    // the speller expects dictionaries, nothing is checked.
    SpellMarks(RichTextBox& box, Speller& speller);
    static SpellMarks* Of(const RichTextBox& box); // null if it has none
    void CheckAll();                               // again; the words that count as known have changed
    void Clear();                                  // deletes this

    const std::vector<TextSpan>& Unknown() const { return m_words; } // as far as it is checked; in order
    bool IsChecking() const { return !m_unchecked.empty(); }
    Speller& Words() const { return m_speller; }
    // The unknown word at this place of the screen, also if it is just being typed. It is checked now, and expected
    // dictionaries are loaded for any word there.
    std::optional<TextSpan> WordAt(const QPoint& globalPosition);
    QString TextOf(const TextSpan& word) const;

private:
    void FollowChange(int position, int removed, int added);
    void FollowCaret();
    void CheckSlice();
    void CheckNow(const QPoint& point);
    void CheckParagraph(const QTextBlock& block, TextSpan& rest, const QDeadlineTimer& end);
    std::vector<TextSpan> UnknownIn(QStringView text, const TextSpan& part, int position);
    bool Put(const std::vector<TextSpan>& words, const TextSpan& place);
    bool IsShown(const TextSpan& word) const;
    int At(const QPoint& point) const;
    bool HasLetterAt(const QPoint& point) const;
    void Paint(const QRect& part) const;
    void PaintParagraph(QPainter& painter, const QTextBlock& block, const QRectF& part) const;
    void PaintLine(QPainter& painter, const QTextBlock& block, const QTextLine& line) const;
    QRectF PlaceOf(const QTextBlock& block) const;
    void Repaint(const QTextBlock& block) const;

    RichTextBox& m_box;
    Speller& m_speller;
    QTimer m_next;
    std::vector<TextSpan> m_words;    // the unknown ones
    std::deque<TextSpan> m_unchecked; // the next one first
    int m_typedAt = -1;               // the end of the last change; -1 once the caret has left its word
};
