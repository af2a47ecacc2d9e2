#include "recurrence/eventtext.h"

#include "platform/richtext/notejoin.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextBlock>
#include <QTextCursor>

namespace {
void Read(const QByteArray& rtf, const QTextCharFormat& plain, QTextDocument& document)
{
    ReadRtf(rtf, document);
    if (LooksLikeRtf(rtf)) return;
    QTextCursor all(&document);
    all.select(QTextCursor::Document);
    all.setCharFormat(plain);
}

// Non-breaking blanks count as blanks.
QString TextOf(const QTextBlock& block)
{
    return block.text().replace(QChar::Nbsp, u' ');
}

// Empty paragraphs at the end are dropped.
QStringList ParagraphsOf(const QTextDocument& document)
{
    QStringList paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        paragraphs += TextOf(block);
    while (!paragraphs.isEmpty() && paragraphs.last().isEmpty())
        paragraphs.removeLast();
    return paragraphs;
}

bool BeginsWith(const QString& text, const QString& words)
{
    return text.startsWith(words) && (text.size() == words.size() || !text[words.size()].isLetterOrNumber());
}

bool EndsWith(const QString& text, const QString& words)
{
    const qsizetype before = text.size() - words.size();
    return text.endsWith(words) && (before == 0 || !text[before - 1].isLetterOrNumber());
}

// The block where the paragraphs end, if they begin at the end of the first block and follow one another; else an
// invalid block.
QTextBlock LastBlockOf(const QStringList& paragraphs, const QTextBlock& first)
{
    if (!EndsWith(TextOf(first), paragraphs.first())) return {};
    QTextBlock block = first.next();
    for (qsizetype i = 1; i + 1 < paragraphs.size(); ++i, block = block.next()) {
        if (TextOf(block) != paragraphs[i]) return {};
    }
    return block.isValid() && BeginsWith(TextOf(block), paragraphs.last()) ? block : QTextBlock();
}
} // namespace

EventText::EventText(const QByteArray& rtf, const QTextCharFormat& plain) : m_rtf(rtf), m_plain(plain)
{
    m_note.setUndoRedoEnabled(false);
    Read(rtf, plain, m_event);
    m_fragment = QTextDocumentFragment(&m_event);
    m_isEmpty = m_event.toPlainText().remove(QChar::ObjectReplacementCharacter).isEmpty();
    m_paragraphs = ParagraphsOf(m_event);
    m_withoutPictures =
        QStringList(m_paragraphs).replaceInStrings(QString(QChar::ObjectReplacementCharacter), QString());
}

void EventText::ReadNote(const QByteArray& note)
{
    Read(note, m_plain, m_note);
}

QByteArray EventText::AppendedTo(const QByteArray& note)
{
    ReadNote(note);
    AppendBelow(m_note, m_event.firstBlock(), m_fragment);
    return WriteRtf(m_note);
}

QTextCursor EventText::Find(const QStringList& paragraphs) const
{
    if (paragraphs.size() == 1)
        return m_note.find(paragraphs.first(), 0, QTextDocument::FindWholeWords | QTextDocument::FindCaseSensitively);
    for (QTextBlock first = m_note.begin(); first.isValid(); first = first.next()) {
        const QTextBlock last = LastBlockOf(paragraphs, first);
        if (!last.isValid()) continue;
        QTextCursor found(first);
        found.movePosition(QTextCursor::EndOfBlock);
        found.setPosition(found.position() - static_cast<int>(paragraphs.first().size()));
        found.setPosition(last.position() + static_cast<int>(paragraphs.last().size()), QTextCursor::KeepAnchor);
        return found;
    }
    return {};
}

QTextCursor EventText::FindInNote() const
{
    const QTextCursor found = Find(m_paragraphs);
    // A person may have deleted the event's pictures.
    return found.isNull() && m_withoutPictures != m_paragraphs ? Find(m_withoutPictures) : found;
}

std::optional<QByteArray> EventText::TakenOutOf(const QByteArray& note)
{
    if (m_withoutPictures.join(QString()).isEmpty()) return {}; // an empty text would match anywhere
    ReadNote(note);
    QTextCursor found = FindInNote();
    if (found.isNull()) return {};
    found.removeSelectedText();
    return WriteRtf(m_note);
}
