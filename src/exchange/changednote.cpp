#include "exchange/changednote.h"

#include "platform/richtext/notejoin.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>

namespace {
// From where to where these lines go in the text, with one of their line breaks.
struct Stretch
{
    qsizetype from, to;
};

std::optional<Stretch> Find(const QString& text, const QString& lines)
{
    const QChar end = u'\n';
    const qsizetype at = QString(end + text + end).indexOf(end + lines + end);
    if (at < 0) return {};
    const qsizetype behind = at + lines.size();
    if (behind < text.size()) return Stretch{at, behind + 1};
    return Stretch{std::max<qsizetype>(at - 1, 0), behind};
}

bool TakeFrom(QString& text, const QString& lines)
{
    const auto found = Find(text, lines);
    if (found) text.remove(found->from, found->to - found->from);
    return found.has_value();
}

QString WhatCounts(const QString& text)
{
    QStringList lines;
    for (QString line : text.split(u'\n')) {
        line.remove(QChar::ObjectReplacementCharacter);
        while (!line.isEmpty() && line.back().isSpace())
            line.chop(1);
        if (!line.isEmpty()) lines += line;
    }
    return lines.join(u'\n');
}
} // namespace

QString LinesOfNote(const QByteArray& rtf)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    ReadRtf(rtf, document);
    return document.toPlainText();
}

ChangedNote::ChangedNote(const QByteArray& stored) : m_isEmpty(stored.trimmed().isEmpty())
{
    for (QTextDocument* document : {&m_note, &m_addition})
        document->setUndoRedoEnabled(false);
    if (!m_isEmpty) ReadRtf(stored, m_note);
    m_free = WhatCounts(m_note.toPlainText());
}

bool ChangedNote::Finds(const QString& lines)
{
    if (m_isEmpty) return false;
    const QString counting = WhatCounts(lines);
    return counting.isEmpty() ? Find(m_note.toPlainText(), lines).has_value() : TakeFrom(m_free, counting);
}

void ChangedNote::Add(const QByteArray& rtf)
{
    ReadRtf(rtf, m_isEmpty ? m_note : m_addition);
    if (!m_isEmpty) AppendBelow(m_note, m_addition.firstBlock(), QTextDocumentFragment(&m_addition));
    m_isEmpty = false;
}

bool ChangedNote::TakeOut(const QString& lines)
{
    const auto found = m_isEmpty ? std::nullopt : Find(m_note.toPlainText(), lines);
    if (!found) return false;
    QTextCursor cursor(&m_note); // each character of the text is one of the note
    cursor.setPosition(static_cast<int>(found->from));
    cursor.setPosition(static_cast<int>(found->to), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_isEmpty = m_note.isEmpty();
    TakeFrom(m_free, WhatCounts(lines));
    return true;
}

QByteArray ChangedNote::Rtf() const
{
    return m_isEmpty ? QByteArray() : WriteRtf(m_note);
}
