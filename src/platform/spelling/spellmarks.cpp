#include "platform/spelling/spellmarks.h"

#include "platform/richtext/richtextbox.h"
#include "platform/spelling/speller.h"

#include <QDeadlineTimer>
#include <QTextBlock>

#include <algorithm>

namespace {
constexpr int Slice = 5; // ms

TextSpan Moved(const TextSpan& span, int by)
{
    return {span.start + by, span.end + by};
}

bool Touches(const TextSpan& word, int position)
{
    return word.start <= position && position <= word.end;
}

// The words that reach into the place or touch it.
auto Touching(std::vector<TextSpan>& words, const TextSpan& place)
{
    const auto first = std::ranges::lower_bound(words, place.start, {}, &TextSpan::end);
    const auto last =
        std::upper_bound(first, words.end(), place.end, [](int end, const TextSpan& word) { return end < word.start; });
    return std::ranges::subrange(first, last);
}
} // namespace

SpellMarks::SpellMarks(RichTextBox& box, Speller& speller) : QObject(&box), m_box(box), m_speller(speller)
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &SpellMarks::CheckSlice);
    connect(box.document(), &QTextDocument::contentsChange, this, &SpellMarks::FollowChange);
    connect(&box, &QTextEdit::cursorPositionChanged, this, &SpellMarks::FollowCaret);
    connect(&box, &RichTextBox::Painted, this, &SpellMarks::Paint);
    CheckAll();
}

SpellMarks* SpellMarks::Of(const RichTextBox& box)
{
    return box.findChild<SpellMarks*>(QString(), Qt::FindDirectChildrenOnly);
}

void SpellMarks::CheckAll()
{
    const QRect shown = m_box.viewport()->rect();
    m_unchecked = {{At(shown.topLeft()), At(shown.bottomRight())}, {0, m_box.document()->characterCount()}};
    m_next.start();
}

void SpellMarks::Clear()
{
    m_box.viewport()->update();
    delete this;
}

QString SpellMarks::TextOf(const TextSpan& word) const
{
    const QTextBlock block = m_box.document()->findBlock(word.start);
    return block.text().mid(word.start - block.position(), word.end - word.start);
}

void SpellMarks::FollowChange(int position, int removed, int added)
{
    const int end = position + removed;
    const auto move = [&](int& place) {
        if (place > position) place = place < end ? position : place + added - removed;
    };
    const auto changed = Touching(m_words, {position, end});
    for (auto later = m_words.erase(changed.begin(), changed.end()); later != m_words.end(); ++later) {
        move(later->start);
        move(later->end);
    }
    for (TextSpan& span : m_unchecked) {
        move(span.start);
        move(span.end);
    }
    m_unchecked.push_front({position, position + added});
    m_typedAt = position + added;
    m_next.start();
}

// The caret's moves may come while the text has no lines, so no place on the screen is asked for.
void SpellMarks::FollowCaret()
{
    const int caret = m_box.textCursor().position();
    if (m_typedAt < 0 || caret == m_typedAt) return;
    const auto typed = Touching(m_words, {m_typedAt, m_typedAt});
    if (std::ranges::any_of(typed, [caret](const TextSpan& word) { return Touches(word, caret); })) return;
    m_typedAt = -1;
    if (!typed.empty()) m_box.viewport()->update();
}

// Not the word that is being typed.
bool SpellMarks::IsShown(const TextSpan& word) const
{
    const bool isTyped = word.start < m_typedAt && m_typedAt <= word.end; // not if a blank before it was typed
    return !isTyped || !Touches(word, m_box.textCursor().position());
}

void SpellMarks::CheckSlice()
{
    if (m_speller.IsExpecting()) return; // no word is marked before all languages are there
    const QDeadlineTimer end(Slice);
    while (!m_unchecked.empty() && !end.hasExpired()) {
        TextSpan& rest = m_unchecked.front();
        const QTextBlock block = m_box.document()->findBlock(rest.start);
        if (block.isValid() && rest.start <= rest.end)
            CheckParagraph(block, rest, end);
        else
            m_unchecked.pop_front();
    }
    if (!m_unchecked.empty()) m_next.start();
}

void SpellMarks::CheckNow(const QPoint& point)
{
    if (m_speller.IsExpecting() && !HasLetterAt(point)) return; // a menu need not wait for dictionaries
    if (m_speller.IsExpecting()) CheckAll();
    while (m_speller.IsExpecting())
        m_speller.LoadNext();
    const int position = At(point);
    TextSpan place{position, position};
    CheckParagraph(m_box.document()->findBlock(position), place, QDeadlineTimer(QDeadlineTimer::Forever));
}

void SpellMarks::CheckParagraph(const QTextBlock& block, TextSpan& rest, const QDeadlineTimer& end)
{
    const QString text = block.text();
    const int position = block.position();
    int at = StartBetweenBlanks(text, rest.start - position);
    bool isChanged = false;
    do {
        const TextSpan next = NextBetweenBlanks(text, at);
        if (next.start < next.end) isChanged |= Put(UnknownIn(text, next, position), Moved(next, position));
        at = next.end + 1; // behind a blank, or in the next paragraph
    } while (at <= text.size() && position + at <= rest.end && !end.hasExpired());
    rest.start = position + at;
    if (isChanged) Repaint(block);
}

std::vector<TextSpan> SpellMarks::UnknownIn(QStringView text, const TextSpan& part, int position)
{
    std::vector<TextSpan> unknown;
    for (const TextSpan& word : WordsIn(text.sliced(part.start, part.end - part.start))) {
        const TextSpan inText = Moved(word, part.start);
        const QString plain = PlainWord(text.sliced(inText.start, word.end - word.start));
        const bool hasDot = inText.end < text.size() && text[inText.end] == u'.'; // it may be an abbreviation
        if (!m_speller.IsKnown(plain) && !(hasDot && m_speller.IsKnown(plain + u'.')))
            unknown.push_back(Moved(inText, position));
    }
    return unknown;
}

// Replaces what was known of this place. True: the change is to be seen.
bool SpellMarks::Put(const std::vector<TextSpan>& words, const TextSpan& place)
{
    const auto before = Touching(m_words, place);
    if (std::ranges::equal(before, words)) return false;
    const auto isShown = [this](const TextSpan& word) { return IsShown(word); };
    const bool isSeen = std::ranges::any_of(before, isShown) || std::ranges::any_of(words, isShown);
    m_words.insert(m_words.erase(before.begin(), before.end()), words.begin(), words.end());
    return isSeen;
}
