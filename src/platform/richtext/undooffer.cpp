#include "platform/richtext/undooffer.h"

#include "platform/richtext/richtextbox.h"

#include <QTextBlock>
#include <QTextDocumentFragment>

#include <memory>

namespace {
// Copies and inserted fragments lose formats of the first and last paragraph.
void CopyParagraphs(QTextDocument& document, const QTextDocument& from)
{
    QTextBlock block = document.begin();
    for (QTextBlock original = from.begin(); original.isValid() && block.isValid();
         original = original.next(), block = block.next()) {
        QTextCursor cursor(block);
        if (block.blockFormat() != original.blockFormat()) cursor.setBlockFormat(original.blockFormat());
        if (block.charFormat() != original.charFormat()) cursor.setBlockCharFormat(original.charFormat());
    }
}

} // namespace

void ReplaceText(QTextDocument& document, const QTextDocument& by)
{
    QTextCursor all(&document);
    all.beginEditBlock();
    all.select(QTextCursor::Document);
    all.removeSelectedText();
    all.insertFragment(QTextDocumentFragment(&by));
    CopyParagraphs(document, by);
    all.endEditBlock();
}

void OfferByUndo(RichTextBox& box, const QTextDocument& text)
{
    QTextDocument& document = *box.document();
    const std::unique_ptr<QTextDocument> shown(document.clone());
    CopyParagraphs(*shown, document);
    const bool isSaved = !box.Modified();
    const QByteArray rtf = isSaved ? box.TextRTF() : QByteArray();
    const int start = box.SelStart(), length = box.SelLength();
    ReplaceText(document, text);
    ReplaceText(document, *shown);
    if (isSaved) box.MarkSaved(rtf);
    box.SetSelStart(start);
    box.SetSelLength(length);
}
