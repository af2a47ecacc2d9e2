#include "platform/richtext/notepaste.h"

#include "platform/richtext/boundedimage.h"
#include "platform/richtext/htmlimages.h"
#include "platform/richtext/htmlnote.h"
#include "platform/richtext/notemimedata.h"
#include "platform/richtext/pastebounds.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/selectionformat.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <array>

namespace {

// What is offered, and where it goes.
struct Pasting
{
    const QMimeData& data;
    QTextCursor& cursor;
    const QTextCharFormat& initial;
    const PictureFit& fit;
};

bool PasteNote(const Pasting& pasting, const QByteArray& rtf)
{
    if (!LooksLikeRtf(rtf) || !IsRtfWithinBounds(rtf)) return false;
    const int begin = pasting.cursor.selectionStart();
    InsertRtf(rtf, pasting.cursor);
    return pasting.cursor.position() > begin;
}

// Other programs end even a part of a paragraph with \par.
bool PasteForeign(const Pasting& pasting, const QByteArray& rtf)
{
    const int begin = pasting.cursor.selectionStart();
    if (!PasteNote(pasting, rtf)) return false;
    const int last = pasting.cursor.position() - 1;
    const bool endsParagraph = pasting.cursor.document()->characterAt(last) == QChar::ParagraphSeparator;
    if (last >= begin && endsParagraph) pasting.cursor.deletePreviousChar();
    return true;
}

bool TakeNote(const Pasting& pasting)
{
    return PasteNote(pasting, pasting.data.data(QString::fromUtf16(NoteFormat)));
}

bool TakeRichText(const Pasting& pasting)
{
    return std::ranges::any_of(RichTextFormats, [&](const char16_t* format) {
        return PasteForeign(pasting, pasting.data.data(QString::fromUtf16(format)));
    });
}

// A wide picture behind words gets a line of its own. It would not fit beside them, and would make their line as high
// as itself. The cursor is behind the picture.
void GiveLine(QTextCursor& cursor, const PictureFit& fit)
{
    const bool isWide = cursor.charFormat().toImageFormat().width() > fit.width / 2.0;
    const int picture = cursor.position() - 1;
    if (!isWide || fit.width == 0 || picture == cursor.block().position()) return;
    QTextCursor before(cursor.document());
    before.setPosition(picture);
    before.insertText(QString(QChar::LineSeparator), WithoutImage(before.charFormat()));
}

bool TakeImage(const Pasting& pasting)
{
    const auto insert = [&](const auto& image) {
        if (!InsertPicture(pasting.cursor, image, pasting.fit)) return false;
        GiveLine(pasting.cursor, pasting.fit);
        return true;
    };
    for (const QString& format : pasting.data.formats())
        if (format.startsWith(u"image/") && insert(pasting.data.data(format))) return true;
    return pasting.data.hasImage() && insert(pasting.data.imageData().value<QImage>());
}

bool TakeHtml(const Pasting& pasting)
{
    if (!pasting.data.hasHtml()) return false;
    const HtmlNote note = ReadHtml(pasting.data.html(), pasting.initial, pasting.fit);
    // A browser offers an image's address as HTML and the image beside it.
    if (note.isPictures && TakeImage(pasting)) return true;
    return PasteForeign(pasting, note.rtf);
}

void PasteText(const Pasting& pasting, QString text)
{
    text.removeIf([](QChar one) { return one.isNull() || one == QChar::ObjectReplacementCharacter; });
    const int begin = pasting.cursor.selectionStart();
    pasting.cursor.insertText(text, FormatToType(pasting.cursor));
    const QTextCharFormat base = FormatOf(pasting.initial.font()); // without colour, which the caret may not have
    SpellOutFormats(*pasting.cursor.document(), begin, pasting.cursor.position(), base);
}

// Checks the first bytes only, since many large files may be dropped.
bool IsImage(const QUrl& file)
{
    constexpr qint64 HeadBytes = 16;
    return ImageFormatOf(DataOfFile(file, HeadBytes)) != nullptr;
}

bool TakeFiles(const Pasting& pasting)
{
    const QList<QUrl> urls = pasting.data.urls();
    if (urls.size() > MostPastedFiles || std::ranges::none_of(urls, IsImage)) return false;
    for (const QUrl& url : urls)
        if (!IsImage(url) || !InsertPicture(pasting.cursor, DataOfFile(url), pasting.fit))
            PasteText(pasting, url.toDisplayString() + u'\n');
    return true;
}

bool TakeText(const Pasting& pasting)
{
    const QString text = pasting.data.text();
    if (text.isEmpty() || text.size() > MostPastedText) return false;
    PasteText(pasting, text);
    return true;
}

} // namespace

bool CanPaste(const QMimeData& data)
{
    const QStringList formats = data.formats();
    const auto isOffered = [&](const char16_t* format) { return formats.contains(QStringView(format)); };
    return isOffered(NoteFormat) || std::ranges::any_of(RichTextFormats, isOffered) || data.hasHtml() ||
           data.hasImage() || data.hasUrls() || data.hasText();
}

bool Paste(const QMimeData& data, QTextCursor& cursor, const QTextCharFormat& initial, const PictureFit& fit)
{
    static constexpr std::array Takers{TakeNote, TakeRichText, TakeHtml, TakeImage, TakeFiles, TakeText};
    const Pasting pasting{data, cursor, initial, fit};
    cursor.beginEditBlock();
    const bool isTaken = std::ranges::any_of(Takers, [&](auto take) { return take(pasting); });
    cursor.endEditBlock();
    return isTaken;
}
