#include "platform/richtext/notemimedata.h"

#include "platform/richtext/htmlnote.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfreader.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr char16_t ImageFormat[] = u"application/x-qt-image", HtmlFormat[] = u"text/html", TextFormat[] = u"text/plain";

QImage ImageOf(const QByteArray& rtf)
{
    QTextDocument document;
    ReadRtf(rtf, document);
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    const auto picture = OnlyPicture(cursor);
    return picture ? picture->image : QImage();
}

QString TextOf(const QByteArray& rtf)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    InsertRtf(rtf, cursor);
    return document.toPlainText().remove(QChar::ObjectReplacementCharacter);
}

} // namespace

NoteMimeData::NoteMimeData(const QByteArray& rtf, const QFont& font, bool isPicture)
    : m_rtf(rtf), m_font(font), m_isPicture(isPicture)
{
}

QStringList NoteMimeData::formats() const
{
    QStringList formats{QString::fromUtf16(NoteFormat)};
    for (const char16_t* format : RichTextFormats)
        formats += QString::fromUtf16(format);
    if (m_isPicture) formats += QString::fromUtf16(ImageFormat);
    return formats += {QString::fromUtf16(HtmlFormat), QString::fromUtf16(TextFormat)};
}

QVariant NoteMimeData::retrieveData(const QString& mimeType, QMetaType) const
{
    if (!formats().contains(mimeType)) return {};
    if (mimeType == QStringView(HtmlFormat)) return WriteHtml(m_rtf, m_font);
    if (mimeType == QStringView(TextFormat)) return TextOf(m_rtf);
    if (mimeType == QStringView(ImageFormat)) return ImageOf(m_rtf);
    return m_rtf;
}
