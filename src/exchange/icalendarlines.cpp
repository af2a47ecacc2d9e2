#include "exchange/icalendarlines.h"

#include <QStringDecoder>

#include <algorithm>

namespace {
constexpr QByteArrayView KeptParameters[] = {"ALTREP", "RANGE", "RELATED", "TZID", "VALUE"};

// Where a mark stands outside quotes, or -1.
qsizetype FindUnquoted(QByteArrayView text, char mark)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '"') isQuoted = !isQuoted;
        if (!isQuoted && text[i] == mark) return i;
    }
    return -1;
}

// Up to the next mark, which is taken away too.
QByteArray TakeField(QByteArrayView& text, char mark)
{
    const qsizetype end = FindUnquoted(text, mark);
    const QByteArray field = (end < 0 ? text : text.first(end)).toByteArray();
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return field;
}
} // namespace

std::optional<CalendarProperty> PropertyOf(int number, const QByteArray& line)
{
    qsizetype colon = FindUnquoted(line, ':');
    if (colon < 0) colon = line.indexOf(':'); // a quote that never ends
    if (colon < 0) return {};
    QByteArrayView head = QByteArrayView(line).first(colon);
    CalendarProperty property{number, TakeField(head, ';').trimmed().toUpper(), {}, line.sliced(colon + 1)};
    while (!head.isEmpty()) {
        const QByteArray parameter = TakeField(head, ';');
        QByteArrayView value = parameter;
        const QByteArray name = TakeField(value, '=').trimmed().toUpper();
        if (std::ranges::find(KeptParameters, QByteArrayView(name)) == std::end(KeptParameters)) continue;
        property.parameters[name] = value.toByteArray().replace('"', QByteArray());
    }
    return property;
}

QByteArray AsUtf8(QByteArray file)
{
    const auto encoding = QStringConverter::encodingForData(file, u'B');
    if (encoding && *encoding != QStringConverter::Utf8) {
        QStringDecoder decoder(*encoding);
        file = QString(decoder(file)).toUtf8();
    }
    if (file.startsWith("\xef\xbb\xbf")) file.remove(0, 3);
    file.removeIf([](char byte) { return byte == '\0'; });
    return file;
}

bool CalendarLines::Next()
{
    if (m_rest.isEmpty()) return false;
    m_number = m_nextNumber;
    m_line = TakeLine().toByteArray();
    while (m_rest.startsWith(' ') || m_rest.startsWith('\t'))
        m_line += TakeLine().sliced(1);
    return true;
}

QByteArrayView CalendarLines::TakeLine()
{
    const auto end = std::ranges::find_if(m_rest, [](char byte) { return byte == '\r' || byte == '\n'; });
    auto next = std::find_if(end, m_rest.end(), [](char byte) { return byte != '\r'; });
    const bool hasLf = next != m_rest.end() && *next == '\n';
    m_nextNumber += hasLf ? 1 : std::max(static_cast<int>(next - end), 1);
    const QByteArrayView line(m_rest.begin(), end);
    m_rest = QByteArrayView(hasLf ? next + 1 : next, m_rest.end());
    return line;
}
