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

// As the search sees a note: blanks that do not break are blanks.
QString Searchable(QString text)
{
    return text.replace(QChar::Nbsp, u' ');
}
} // namespace

EventText::EventText(const QByteArray& rtf, const QTextCharFormat& plain) : m_rtf(rtf), m_plain(plain)
{
    m_note.setUndoRedoEnabled(false);
    Read(rtf, plain, m_event);
    m_fragment = QTextDocumentFragment(&m_event);
    m_text = m_event.toPlainText().remove(QChar::ObjectReplacementCharacter);
    if (m_event.blockCount() == 1) m_paragraph = Searchable(m_event.firstBlock().text());
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

QTextCursor EventText::FindInNote() const
{
    const QTextDocument::FindFlags exactly = QTextDocument::FindWholeWords | QTextDocument::FindCaseSensitively;
    const QTextCursor found = m_note.find(m_paragraph, 0, exactly);
    // Somebody may have taken the event's pictures out of the note.
    const bool hasPictures = m_paragraph.contains(QChar::ObjectReplacementCharacter);
    return found.isNull() && hasPictures ? m_note.find(Searchable(m_text), 0, exactly) : found;
}

std::optional<QByteArray> EventText::TakenOutOf(const QByteArray& note)
{
    if (m_text.isEmpty() || m_paragraph.isEmpty()) return {};
    ReadNote(note);
    QTextCursor found = FindInNote();
    if (found.isNull()) return {};
    found.removeSelectedText();
    return WriteRtf(m_note);
}
