// Puts what is read from rich text into a document: the runs of a paragraph are gathered and go in together, since its
// format is known at its end only. Knows only QtGui.
#pragma once

#include "platform/richtext/rtfformat.h"

#include <QHash>
#include <QTextCursor>

#include <functional>
#include <vector>

class RtfBuilder
{
public:
    // A whole document takes the format of its first paragraph from the text. An insertion into a paragraph that
    // holds text leaves that one its format. The cursor ends behind the text.
    enum Purpose
    {
        WholeDocument,
        Insertion
    };
    // The tables that characters' formats lead to.
    struct Tables
    {
        std::function<QString(int place)> familyAt;
        std::function<QString(int place)> linkAt;
    };

    RtfBuilder(QTextCursor& cursor, Purpose purpose, Tables tables);

    void Append(QLatin1StringView text, const RtfCharacter& character);
    void Append(QStringView text, const RtfCharacter& character); // leaves out what a document cannot hold
    void AppendPicture(const QTextImageFormat& picture, const RtfCharacter& character);

    bool IsParagraphEmpty() const { return m_text.isEmpty(); }
    void EndParagraph(const RtfParagraph& paragraph, const RtfCharacter& mark);

    // The text behind the last paragraph mark. In a whole document the last mark is no beginning of another paragraph.
    void Finish(const RtfParagraph& paragraph, const RtfCharacter& mark);

private:
    struct Run
    {
        RtfCharacter character;
        qsizetype end;     // in the paragraph's text
        qsizetype picture; // place among the paragraph's pictures, or -1
    };

    void ExtendRun(const RtfCharacter& character);
    void OpenBlock(const RtfParagraph& paragraph, const RtfCharacter& mark);
    void InsertRuns();
    const QTextCharFormat& FormatOf(const RtfCharacter& character);
    const QTextBlockFormat& FormatOf(const RtfParagraph& paragraph);

    QTextCursor& m_cursor; // no copy, as every cursor in a document makes each insertion slower
    Purpose m_purpose;
    Tables m_tables;
    QTextBlockFormat m_surroundings; // of the paragraph that an insertion goes into
    bool m_keepsFirst = false;
    bool m_keepsLast = false;
    bool m_hasBlock = false;

    QString m_text;
    std::vector<Run> m_runs;
    std::vector<QTextImageFormat> m_pictures;
    QHash<RtfCharacter, QTextCharFormat> m_charFormats;
    RtfParagraph m_paragraph; // the one that m_blockFormat stands for
    QTextBlockFormat m_blockFormat;
};
