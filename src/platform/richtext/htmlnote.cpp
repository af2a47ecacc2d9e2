#include "platform/richtext/htmlnote.h"

#include "platform/richtext/htmlbounds.h"
#include "platform/richtext/htmlimages.h"
#include "platform/richtext/htmlparagraphs.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/selectionformat.h"

#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// HTML may name files and pages of styles, and asks the document for them.
class ClosedDocument : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

QString MarkOf(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    if (!list) return {};
    const bool isBullet = list->format().style() >= QTextListFormat::ListSquare;
    return (isBullet ? u"\u2022"_s : list->itemText(block)) + u'\t';
}

// How many columns the next paragraph is further in the same row of a table; 0 where it is in no other cell of it.
int ColumnsToNext(const QTextBlock& block)
{
    const QTextTable* table = QTextCursor(block).currentTable();
    const QTextBlock next = block.next();
    if (!table || !next.isValid() || QTextCursor(next).currentTable() != table) return 0;
    const QTextTableCell one = table->cellAt(block.position()), other = table->cellAt(next.position());
    return one.row() == other.row() ? std::clamp(other.column() - one.column(), 0, RtfParagraph::MaximumTabs) : 0;
}

// The format for another document, where there is no such list or table.
template <typename Format>
Format Freed(Format format)
{
    format.clearProperty(QTextFormat::ObjectIndex);
    if (!format.isImageFormat()) format.clearProperty(QTextFormat::ObjectType);
    return format;
}

// Appends what a paragraph shows.
void Append(const QTextBlock& block, QTextCursor& out)
{
    const QTextCharFormat mark = block.begin().atEnd() ? block.charFormat() : block.begin().fragment().charFormat();
    out.insertText(MarkOf(block), WithoutImage(Freed(mark)));
    for (auto i = block.begin(); !i.atEnd(); ++i)
        out.insertText(i.fragment().text(), Freed(i.fragment().charFormat()));
}

// Lists and tables as text. There are no others in the document that is written.
void Flatten(const QTextDocument& document, QTextDocument& flat)
{
    HtmlParagraphs paragraphs;
    QTextCursor out(&flat);
    out.beginEditBlock();
    bool isFirst = true;
    int columns = 0; // since the paragraph before
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (IsBesideTable(block)) continue;
        const bool isNext = !std::exchange(isFirst, false);
        if (isNext && columns == 0) out.insertBlock(paragraphs.FormatOf(block), Freed(block.charFormat()));
        if (!isNext) out.setBlockFormat(paragraphs.FormatOf(block));
        Append(block, out);
        columns = ColumnsToNext(block);
        out.insertText(QString(columns, u'\t'));
    }
    out.endEditBlock();
}

bool IsPictures(const QTextDocument& document)
{
    const QString text = document.toPlainText();
    return std::ranges::all_of(text,
                               [](QChar one) { return one.isSpace() || one == QChar::ObjectReplacementCharacter; });
}

} // namespace

HtmlNote ReadHtml(const QString& html, const QTextCharFormat& initial, const PictureFit& fit)
{
    const QFont font = initial.font();
    if (!IsWithinBounds(html)) return {};
    ClosedDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    document.setHtml(html);
    AdoptImages(document, 0, document.characterCount() - 1, fit);
    if (document.isEmpty()) return {};
    SpellOutFormats(document, 0, document.characterCount() - 1, initial);
    QTextDocument flat;
    flat.setUndoRedoEnabled(false);
    flat.setDefaultFont(font);
    Flatten(document, flat);
    return {WriteRtf(flat), IsPictures(flat)};
}

QString WriteHtml(const QByteArray& rtf, const QFont& font)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    ReadRtf(rtf, document);
    EmbedPictures(document);
    return document.toHtml();
}
