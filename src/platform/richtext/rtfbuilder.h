// The sink that puts what is read from rich text into a document: the runs of a paragraph are gathered and go in
// together, since its format is known at its end only. Knows only QtGui.
#pragma once

#include "platform/richtext/rtfmachine.h"

#include <QHash>
#include <QTextCursor>

#include <vector>

class RtfBuilder final : public RtfSink
{
public:
    // A whole document takes the format of its first paragraph from the text. An insertion into a paragraph that
    // holds text leaves that one its format. The cursor ends behind the text.
    enum Purpose
    {
        WholeDocument,
        Insertion
    };
    RtfBuilder(QTextCursor& cursor, Purpose purpose, const RtfTables& tables);

    void Ascii(QLatin1StringView text, QByteArrayView code, const RtfCharacter& character) override;
    void Text(QStringView text, const RtfCharacter& character) override; // leaves out what a document cannot hold
    void Picture(const RtfPicture& picture, const RtfCharacter& character) override;
    void EndParagraph(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void EndPage(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void EndCell() override { ++m_cells; }
    void EndRow(const RtfParagraph& paragraph, const RtfCharacter& mark) override;
    void Finish(const RtfParagraph& paragraph, const RtfCharacter& mark) override;

private:
    struct Run
    {
        RtfCharacter character;
        qsizetype end;     // in the paragraph's text
        qsizetype picture; // place among the paragraph's pictures, or -1
    };

    void PutCells(const RtfCharacter& character);
    void ExtendRun(const RtfCharacter& character);
    void OpenBlock(const RtfParagraph& paragraph, const RtfCharacter& mark);
    void InsertRuns();
    const QTextCharFormat& FormatOf(const RtfCharacter& character);
    const QTextBlockFormat& FormatOf(const RtfParagraph& paragraph);

    QTextCursor& m_cursor; // no copy, as every cursor in a document makes each insertion slower
    Purpose m_purpose;
    const RtfTables& m_tables;
    QTextBlockFormat m_surroundings; // of the paragraph that an insertion goes into
    bool m_keepsFirst = false;
    bool m_keepsLast = false;
    bool m_hasBlock = false;
    qsizetype m_cells = 0; // ends not yet written: those that end a row are not

    QString m_text;
    std::vector<Run> m_runs;
    std::vector<QTextImageFormat> m_pictures;
    QHash<RtfCharacter, QTextCharFormat> m_charFormats;
    RtfParagraph m_paragraph; // the one that m_blockFormat stands for
    QTextBlockFormat m_blockFormat;
};
