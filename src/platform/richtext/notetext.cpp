#include "platform/richtext/notetext.h"

#include "platform/richtext/rtfmachine.h"
#include "platform/richtext/rtfreader.h"

#include <utility>

namespace {
constexpr QStringView Unholdable(u"\0\uFDD0\uFDD1", 3); // in a document

bool IsLineEnd(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

class ShownLines
{
public:
    explicit ShownLines(qsizetype size) { m_text.reserve(size); }

    void Put(QLatin1StringView text) { m_text += text; }
    void Put(QChar one)
    {
        if (IsLineEnd(one))
            m_text += u'\n';
        else if (!Unholdable.contains(one))
            m_text += one;
    }
    void EndParagraph()
    {
        m_text += u'\n';
        m_start = m_text.size();
    }
    bool IsAtStart() const { return m_start == m_text.size(); } // of a paragraph
    QString Take()
    {
        if (m_start > 0 && IsAtStart()) m_text.chop(1); // the last mark begins no other paragraph
        return std::move(m_text);
    }

private:
    QString m_text;
    qsizetype m_start = 0;
};

class Reading final : public RtfSink
{
public:
    explicit Reading(qsizetype size) : m_lines(size) {}

    void Ascii(QLatin1StringView text, QByteArrayView, const RtfCharacter&) override
    {
        PutCells();
        m_lines.Put(text);
    }
    void Text(QStringView text, const RtfCharacter&) override
    {
        PutCells();
        for (const QChar one : text)
            m_lines.Put(one);
    }
    void Picture(const RtfPicture&, const RtfCharacter&) override
    {
        PutCells();
        m_lines.Put(QChar(QChar::ObjectReplacementCharacter));
    }
    void EndParagraph(const RtfParagraph&, const RtfCharacter&) override
    {
        PutCells();
        m_lines.EndParagraph();
    }
    void EndPage(const RtfParagraph& paragraph, const RtfCharacter& mark) override
    {
        if (!m_lines.IsAtStart()) EndParagraph(paragraph, mark);
    }
    void EndCell() override { ++m_cells; }
    void EndRow(const RtfParagraph& paragraph, const RtfCharacter& mark) override
    {
        m_cells = 0;
        EndParagraph(paragraph, mark);
    }
    QString Take() { return m_lines.Take(); }

private:
    void PutCells()
    {
        for (; m_cells > 0; --m_cells)
            m_lines.Put(u'\t');
    }

    ShownLines m_lines;
    int m_cells = 0; // not yet written, since the last of a row is not
};

// A document begins a paragraph at each of these in a plain text.
QString PlainLines(QByteArrayView stored)
{
    QString text = PlainNote(stored).replace(u"\r\n"_s, u"\n"_s);
    for (QChar& one : text)
        if (IsLineEnd(one) || Unholdable.contains(one)) one = u'\n';
    return text;
}
} // namespace

QString ShownText(QByteArrayView stored)
{
    if (!LooksLikeRtf(stored)) return PlainLines(stored);
    RtfTables tables;
    Reading reading(stored.size());
    RtfMachine(stored, tables, reading).Run();
    return reading.Take();
}
