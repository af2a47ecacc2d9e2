#include "platform/profile/inifile.h"

#include <QByteArrayView>

namespace {
// One line. Positions count from the start of the text.
struct Line
{
    enum Kind
    {
        Other,
        Section,
        Key
    } Is = Other;
    QByteArrayView Name; // of the section or key
    qsizetype ValueStart = 0;
    qsizetype ValueLength = 0;
    bool Blank = false;
};

class Lines
{
public:
    explicit Lines(const QByteArray& text) : m_text(text), m_next(text.startsWith("\xEF\xBB\xBF") ? 3 : 0) {}

    bool AtEnd() const { return m_next >= m_text.size(); }
    qsizetype Place() const { return m_next; } // start of the next line

    Line Next()
    {
        const qsizetype start = m_next;
        const qsizetype end = m_text.indexOf('\n', start);
        m_next = end < 0 ? m_text.size() : end + 1;
        return Read(QByteArrayView(m_text).sliced(start, (end < 0 ? m_text.size() : end) - start));
    }

private:
    Line Read(QByteArrayView whole) const
    {
        const QByteArrayView text = whole.trimmed();
        Line line;
        line.Blank = text.isEmpty();
        if (text.isEmpty() || text.startsWith(';')) return line;
        if (text.startsWith('[')) {
            const qsizetype close = text.indexOf(']');
            line.Is = Line::Section;
            line.Name = text.sliced(1, (close < 0 ? text.size() : close) - 1).trimmed();
            return line;
        }
        const qsizetype equals = text.indexOf('=');
        if (equals < 0) return line;
        const QByteArrayView value = text.sliced(equals + 1).trimmed();
        line.Is = Line::Key;
        line.Name = text.first(equals).trimmed();
        line.ValueStart =
            value.isEmpty() ? text.data() + equals + 1 - m_text.constData() : value.data() - m_text.constData();
        line.ValueLength = value.size();
        return line;
    }

    const QByteArray& m_text;
    qsizetype m_next;
};

// A line break separates the two, since no name contains one.
QString Folded(const QString& section, const QString& key)
{
    return QString(section + u'\n' + key).toCaseFolded();
}

bool CanBeSection(const QString& name)
{
    return !name.contains(u']') && !name.contains(u'\n') && name == name.trimmed();
}

bool CanBeKey(const QString& name)
{
    return !name.isEmpty() && !name.contains(u'=') && !name.contains(u'\n') && !name.startsWith(u';') &&
           !name.startsWith(u'[') && name == name.trimmed();
}

bool IsQuoted(QStringView value)
{
    return value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
}

// The value on one line, quoted if needed.
QByteArray Written(QString value, Quotes quotes)
{
    value.replace(u"\r\n"_s, u" "_s);
    for (const char16_t breaking : {u'\n', u'\r'})
        value.replace(breaking, u' ');
    const bool isStripped = value != value.trimmed() || IsQuoted(value);
    if (isStripped && quotes == Quotes::WhereNeeded) value = u'"' + value + u'"';
    return value.toUtf8();
}
} // namespace

IniFile::IniFile(const QByteArray& text) : m_text(text)
{
    std::optional<QString> section; // empty above the first heading
    bool isFirst = false;           // the first section of its name
    for (Lines lines(m_text); !lines.AtEnd();) {
        const Line line = lines.Next();
        if (line.Is == Line::Section) {
            section = QString::fromUtf8(line.Name).toCaseFolded();
            isFirst = !m_sections.contains(*section);
        }
        if (!section) continue;
        if (isFirst && !line.Blank) m_sections[*section] = lines.Place();
        if (line.Is != Line::Key) continue;
        const QString name = Folded(*section, QString::fromUtf8(line.Name));
        if (!m_values.contains(name)) m_values.insert(name, {line.ValueStart, line.ValueLength});
    }
}

bool IniFile::HasSection(const QString& section) const
{
    return m_sections.contains(section.toCaseFolded());
}

std::optional<QString> IniFile::Value(const QString& section, const QString& key) const
{
    const auto found = m_values.constFind(Folded(section, key));
    if (found == m_values.constEnd()) return std::nullopt;
    const QString value = QString::fromUtf8(QByteArrayView(m_text).sliced(found->Start, found->Length));
    return IsQuoted(value) ? value.sliced(1, value.size() - 2) : value;
}

std::optional<IniFile> IniFile::With(const QString& section, const QString& key, const QString& value,
                                     Quotes quotes) const
{
    if (!CanBeSection(section) || !CanBeKey(key)) return std::nullopt;
    const QByteArray written = Written(value, quotes);
    const auto found = m_values.constFind(Folded(section, key));
    QByteArray result = m_text;
    if (found != m_values.constEnd()) return IniFile(result.replace(found->Start, found->Length, written));
    const qsizetype firstBreak = m_text.indexOf('\n');
    const QByteArray lineBreak = firstBreak > 0 && m_text[firstBreak - 1] == '\r' ? "\r\n" : "\n";
    QByteArray added = key.toUtf8() + '=' + written + lineBreak;
    if (!HasSection(section)) added.prepend('[' + section.toUtf8() + ']' + lineBreak);
    const qsizetype place = m_sections.value(section.toCaseFolded(), m_text.size());
    if (place > 0 && m_text[place - 1] != '\n' && place != Lines(m_text).Place()) added.prepend(lineBreak);
    return IniFile(result.insert(place, added));
}
