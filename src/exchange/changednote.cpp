#include "exchange/changednote.h"

#include "platform/richtext/notejoin.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocumentFragment>

#include <algorithm>

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
QList<QImage> PicturesOf(const QTextDocument& note)
{
    QList<QImage> pictures;
    QTextCursor cursor = note.find(QString(QChar::ObjectReplacementCharacter));
    for (; !cursor.isNull(); cursor = note.find(QString(QChar::ObjectReplacementCharacter), cursor))
        if (const auto picture = OnlyPicture(cursor)) pictures += picture->image;
    return pictures;
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

bool ChangedNote::Finds(const QString& lines, const QByteArray& rtf)
{
    if (m_isEmpty) return false;
    const QString counting = WhatCounts(lines);
    if (!counting.isEmpty()) return TakeFrom(m_free, counting);
    ReadRtf(rtf, m_addition);
    const QList<QImage> here = PicturesOf(m_note), theirs = PicturesOf(m_addition);
    return std::ranges::all_of(theirs, [&here](const QImage& picture) { return here.contains(picture); });
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
