#include "exchange/notewalk.h"
#include "exchange/webpageforms.h"
#include "exchange/webpagestyle.h"
#include "exchange/writers.h"
#include "platform/desktop/links.h"
#include "platform/richtext/boundedimage.h"
#include "platform/richtext/pictureimage.h"

#include <QDate>
#include <QHash>
#include <QLocale>
#include <QRegularExpression>

namespace {
QString PictureTag(const QTextImageFormat& picture)
{
    const QByteArray file = ImageFileOf(picture);
    if (file.isEmpty()) return {};
    return u"<img alt=\"\" style=\"width:%1;aspect-ratio:%2/%3\" src=\"data:image/%4;base64,%5\">"_s.arg(
        Em(picture.width()), QString::number(picture.width()), QString::number(picture.height()),
        QLatin1StringView(ImageFormatOf(file)), QLatin1StringView(file.toBase64()));
}

// The closing tags of opening ones.
QString Closing(const QString& tags)
{
    static const QRegularExpression name(u"<([a-z]+)"_s);
    QString closing;
    for (const QRegularExpressionMatch& match : name.globalMatch(tags))
        closing.prepend(u"</%1>"_s.arg(match.captured(1)));
    return closing;
}

QString UsualFamily(const QTextDocument& note)
{
    QHash<QString, int> lengths;
    QString usual;
    for (QTextBlock paragraph = note.begin(); paragraph.isValid(); paragraph = paragraph.next())
        for (auto i = paragraph.begin(); !i.atEnd(); ++i) {
            const QString family = FontName(i.fragment().charFormat(), NoteFont());
            if ((lengths[family] += i.fragment().length()) > lengths.value(usual)) usual = family;
        }
    return usual;
}

class WebPage
{
public:
    void Add(const ExtractedNote& note, const QTextDocument& document);
    QString Finished(const QString& title) const;

private:
    void AddHeading(const ExtractedNote& note);
    void AddParagraph(const QTextBlock& paragraph, const QString& usualFamily);
    QString TagsOf(const QTextCharFormat& format, const QString& usualFamily);

    PageColors m_colors;
    QString m_month;
    QString m_body;
};

void WebPage::Add(const ExtractedNote& note, const QTextDocument& document)
{
    AddHeading(note);
    const QString family = UsualFamily(document);
    for (QTextBlock paragraph = document.begin(); paragraph.isValid(); paragraph = paragraph.next())
        AddParagraph(paragraph, family);
    m_body += u"</div></article>\n";
}

void WebPage::AddHeading(const ExtractedNote& note)
{
    const auto [year, number, day] = note.day;
    const QString name = QLocale::c().monthName(number), month = u"%1 %2"_s.arg(name).arg(year);
    if (month != m_month) {
        if (!m_month.isEmpty()) m_body += u"</section>\n";
        m_body += u"<section><h2>%1</h2>\n"_s.arg(month);
        m_month = month;
    }
    const QDate date(year, number, day); // the grid has a February 29 that no other calendar has
    QString heading = note.memo ? u"Memo %1"_s.arg(note.memo) : u"%1 %2"_s.arg(name).arg(day);
    if (date.isValid())
        heading = u"<time datetime=\"%1\">%2, %3</time>"_s.arg(date.toString(Qt::ISODate),
                                                               QLocale::c().dayName(date.dayOfWeek()), heading);
    m_body += u"<article><h3>%1</h3><div>\n"_s.arg(heading);
}

void WebPage::AddParagraph(const QTextBlock& paragraph, const QString& usualFamily)
{
    const QString style = StyleOf(paragraph.blockFormat());
    m_body += u"<p";
    if (paragraph.textDirection() == Qt::RightToLeft) m_body += u" dir=\"rtl\"";
    if (!style.isEmpty()) m_body += u" style=\"%1\""_s.arg(style);
    m_body += u'>';
    QStringList lines;
    for (const NoteLine& line :
         LinesOf(paragraph, [&](const QTextCharFormat& format) { return TagsOf(format, usualFamily); })) {
        QString& out = lines.emplace_back();
        for (const auto& [text, tags, picture] : line)
            out += picture.isImageFormat() ? PictureTag(picture.toImageFormat())
                                           : tags + text.toHtmlEscaped() + Closing(tags);
    }
    // A paragraph shows no empty line at its end.
    m_body += lines.join(u"<br>"_s) + (lines.last().isEmpty() ? u"<br></p>\n"_s : u"</p>\n"_s);
}

// The opening tags of a format.
QString WebPage::TagsOf(const QTextCharFormat& format, const QString& usualFamily)
{
    static const QRegularExpression unsafe(uR"([^\w .-])"_s, QRegularExpression::UseUnicodePropertiesOption);
    QString tags, style;
    const QString link = format.anchorHref(), color = m_colors.ClassOf(format);
    if (links::MayOpen(link)) tags += u"<a href=\"%1\">"_s.arg(link.toHtmlEscaped());
    QString family = FontName(format, NoteFont());
    if (family != usualFamily) style += u"font-family:'%1',var(--text);"_s.arg(family.remove(unsafe));
    const double size = FontSize(format, NoteFont()) / NoteFont().pointSizeF();
    if (size != 1) style += u"font-size:%1em;"_s.arg(QString::number(size, 'g', 3));
    if (!color.isEmpty()) tags += u"<span class=\"%1\">"_s.arg(color);
    if (!style.isEmpty()) tags += u"<span style=\"%1\">"_s.arg(style);
    for (const NoteStyle& one : NoteStyles)
        if (one.isSet(format, NoteFont())) tags += u"<%1>"_s.arg(one.tag);
    return tags;
}

// The policy keeps a browser from loading or running anything.
QString WebPage::Finished(const QString& title) const
{
    return u"<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" "
           "content=\"default-src 'none'; img-src data:; style-src 'unsafe-inline'\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<title>%1</title>\n<style>%2%3</style>\n</head>\n<body>\n<h1>%1</h1>\n%4%5</body>\n</html>\n"_s.arg(
               title.toHtmlEscaped(), WebPageStyle, m_colors.Rules(), m_body,
               m_month.isEmpty() ? QString() : u"</section>\n"_s);
}
} // namespace

QByteArray WriteWebPage(const Extract& extract, const AddPicture&)
{
    WebPage page;
    ForEachNote(extract,
                [&page](const ExtractedNote& note, const QTextDocument& document) { page.Add(note, document); });
    return page.Finished(extract.title).toUtf8();
}
