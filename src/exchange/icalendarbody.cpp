#include "exchange/icalendarbody.h"

#include "exchange/icalendarentry.h"
#include "platform/richtext/htmlnote.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>

namespace {
QString PropertyText(const CalendarPart& entry, const char* name)
{
    const CalendarProperty* const property = entry.Find(name);
    return property ? Unescaped(CalendarText(property->value)) : QString();
}

// A journal entry may have several.
QString DescriptionOf(const CalendarPart& entry)
{
    QStringList texts;
    for (const CalendarProperty& property : entry.properties)
        if (property.name == "DESCRIPTION") texts += Unescaped(CalendarText(property.value));
    return texts.join(u'\n');
}

// Some calendars write HTML as if it were plain text. An address, <a@example.org>, is none.
bool LooksLikeHtml(const QString& text)
{
    static const QRegularExpression tag(u"<(br|p|a|b|i|u|ul|ol|li|div|span|html)(\\s[^<>]*|/)?>"_s,
                                        QRegularExpression::CaseInsensitiveOption);
    return tag.match(text).hasMatch();
}

QString HtmlOf(const CalendarPart& entry)
{
    const QString html = PropertyText(entry, "X-ALT-DESC");
    if (!html.isEmpty()) return html;
    constexpr QByteArrayView Data("data:text/html,");
    const CalendarProperty* const description = entry.Find("DESCRIPTION");
    const QByteArray link = description ? description->parameters.value("ALTREP") : QByteArray();
    return link.startsWith(Data) ? CalendarText(QByteArray::fromPercentEncoding(link.sliced(Data.size()))) : QString();
}

QString FirstLine(const QString& text)
{
    return text.trimmed().section(u'\n', 0, 0).simplified();
}
} // namespace

CalendarBody::CalendarBody(const CalendarPart& entry, bool isOwn, const QTextCharFormat& form, QTextDocument& document,
                           CalendarRoom& room)
    : m_form(form), m_document(document), m_room(room), m_text(DescriptionOf(entry)), m_isOwn(isOwn)
{
    constexpr qsizetype Most = 400'000;
    m_isCut = m_text.size() > Most;
    m_text.truncate(Most);
    const bool isHtml = !isOwn && LooksLikeHtml(m_text);
    const QString html = isHtml ? QString(m_text).replace(u'\n', u"<br>"_s) : HtmlOf(entry);
    if (!html.isEmpty() && (isOwn || isHtml || m_text.trimmed().isEmpty())) m_rtf = RtfOf(html);
    m_title = PropertyText(entry, "SUMMARY").simplified();
    if (isOwn)
        TakeOwn();
    else
        TakeForeign(PropertyText(entry, "LOCATION").trimmed());
    if (m_title.isEmpty()) m_title = u"Event"_s;
    constexpr qsizetype Longest = 1000;
    m_isCut = m_isCut || m_title.size() > Longest;
    m_title.truncate(Longest);
}

// Without images, since one may name a file of this machine. What is too much keeps its words only.
QByteArray CalendarBody::RtfOf(QString html)
{
    static const QRegularExpression image(u"<(\\s*)im(?=a?ge?\\b)"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tag(u"<[^<>]*>"_s);
    m_room.html -= html.size();
    html.replace(image, u"<\\1no"_s);
    const QByteArray rtf = m_room.html > 0 ? ReadHtml(html, m_form, {}).rtf : QByteArray();
    if (!rtf.isEmpty()) return rtf;
    if (!m_isOwn) m_text = html.remove(tag).trimmed();
    m_isCut = m_isCut || !m_text.isEmpty();
    return {};
}

void CalendarBody::TakeForeign(const QString& place)
{
    if (!m_rtf.isEmpty()) {
        ReadRtf(m_rtf, m_document);
        m_text = m_document.toPlainText();
    }
    m_text = m_text.trimmed();
    const QString first = FirstLine(m_text);
    if (m_title.isEmpty()) m_title = first;
    if (m_title == first) DropFirstLine();
    if (!m_rtf.isEmpty()) m_text.clear();
    if (!place.isEmpty()) m_text.prepend(m_text.isEmpty() ? place : place + u'\n');
}

void CalendarBody::TakeOwn()
{
    if (m_text.section(u'\n', 0, 0).endsWith(OnlyHere)) DropFirstLine();
    if (!m_rtf.isEmpty()) m_text.clear();
}

// The form, if there is one, has the same lines.
void CalendarBody::DropFirstLine()
{
    m_text = m_text.section(u'\n', 1);
    if (m_rtf.isEmpty()) return;
    ReadRtf(m_rtf, m_document);
    QTextCursor first(&m_document);
    if (!first.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor)) first.select(QTextCursor::Document);
    first.removeSelectedText();
    m_rtf = m_document.isEmpty() ? QByteArray() : WriteRtf(m_document);
}

QByteArray CalendarBody::Below(const QString& line)
{
    const QString head = m_isOwn ? QString() : line;
    QByteArray& made = m_made[head];
    if (!made.isEmpty()) return made;
    const QString text = head.isEmpty() || m_text.isEmpty() ? head + m_text : head + u'\n' + m_text;
    m_document.clear();
    if (!m_rtf.isEmpty()) ReadRtf(m_rtf, m_document);
    if (!text.isEmpty()) QTextCursor(&m_document).insertText(m_rtf.isEmpty() ? text : text + u'\n', m_form);
    made = WriteRtf(m_document);
    m_room.bytes -= made.size();
    return made;
}
