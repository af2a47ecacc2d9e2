#include "exchange/icalendartext.h"

#include "platform/engine/longwork.h"
#include "platform/richtext/rtfreader.h"

#include <algorithm>
#include <optional>

namespace {
constexpr size_t MostEntries = 50'000;
constexpr qsizetype MostProperties = 1'000'000;

constexpr QByteArrayView EntryKinds[] = {"VEVENT", "VTODO", "VJOURNAL", "VTIMEZONE"};
constexpr QByteArrayView InnerKinds[] = {"VALARM", "STANDARD", "DAYLIGHT"};
// The others, such as attached files, would only take memory.
constexpr QByteArrayView KeptNames[] = {
    "ACTION",   "COMPLETED",  "DESCRIPTION",    "DTEND",         "DTSTAMP",  "DTSTART",    "DUE",
    "DURATION", "EXDATE",     "EXRULE",         "LAST-MODIFIED", "LOCATION", "RDATE",      "SEQUENCE",
    "STATUS",   "SUMMARY",    "TRIGGER",        "TZID",          "UID",      "TZOFFSETTO", "RECURRENCE-ID",
    "RRULE",    "X-ALT-DESC", "X-LIC-LOCATION", "X-WR-TIMEZONE"};

template <size_t Count>
bool IsOneOf(const QByteArrayView (&words)[Count], const QByteArray& word)
{
    return std::ranges::find(words, QByteArrayView(word)) != std::end(words);
}

// Sorts lines into entries, whichever ends are missing.
class CalendarSorter
{
public:
    CalendarSorter(CalendarParts& parts, CalendarFaults& faults) : m_parts(parts), m_faults(faults) {}

    void Take(int number, const QByteArray& line)
    {
        auto property = PropertyOf(number, line);
        if (!property) {
            if (m_entry) m_faults.Add(number, Quoted(line) + u" is not understood."_s);
        } else if (property->name == "BEGIN") {
            Begin(number, property->value.trimmed().toUpper());
        } else if (property->name == "END") {
            End(property->value.trimmed().toUpper());
        } else if (m_foreign == 0 && IsOneOf(KeptNames, property->name)) {
            Keep(std::move(*property));
        }
    }
    void EndFile(int number)
    {
        if (m_entry) m_faults.Add(number, u"The file ends within an entry."_s);
        Finish();
    }
    bool HasBegun() const { return m_hasBegun; }
    bool IsFull() const
    {
        return m_parts.entries.size() + m_parts.zones.size() >= MostEntries || m_kept >= MostProperties;
    }

private:
    void Begin(int number, const QByteArray& kind)
    {
        const bool isCalendar = kind == "VCALENDAR", isEntry = IsOneOf(EntryKinds, kind);
        m_hasBegun = m_hasBegun || isCalendar || isEntry;
        if (isCalendar || isEntry) Finish();
        if (isCalendar)
            m_zone.clear();
        else if (isEntry)
            m_entry = CalendarPart{kind, number, m_zone};
        else if (m_entry && m_foreign == 0 && IsOneOf(InnerKinds, kind))
            BeginInner(number, kind);
        else
            ++m_foreign;
    }
    void BeginInner(int number, const QByteArray& kind)
    {
        FinishInner();
        m_inner = CalendarPart{kind, number, m_zone};
    }
    void End(const QByteArray& kind)
    {
        if (kind == "VCALENDAR" || (m_entry && kind == m_entry->kind))
            Finish();
        else if (m_foreign > 0)
            --m_foreign;
        else if (m_inner && kind == m_inner->kind)
            FinishInner();
    }
    void Keep(CalendarProperty property)
    {
        m_kept += 1 + property.parameters.size();
        if (m_inner)
            m_inner->properties.push_back(std::move(property));
        else if (m_entry)
            m_entry->properties.push_back(std::move(property));
        else if (property.name == "X-WR-TIMEZONE")
            m_zone = property.value.trimmed();
    }
    void FinishInner()
    {
        if (m_inner) m_entry->parts.push_back(std::move(*m_inner));
        m_inner.reset();
    }
    void Finish()
    {
        FinishInner();
        m_foreign = 0;
        if (!m_entry) return;
        auto& parts = m_entry->kind == "VTIMEZONE" ? m_parts.zones : m_parts.entries;
        parts.push_back(std::move(*m_entry));
        m_entry.reset();
    }

    CalendarParts& m_parts;
    CalendarFaults& m_faults;
    QByteArray m_zone;
    std::optional<CalendarPart> m_entry, m_inner;
    qsizetype m_kept = 0;
    qsizetype m_foreign = 0; // open parts of kinds that nobody knows
    bool m_hasBegun = false;
};

QString RefusalOf(const QByteArray& text)
{
    CalendarLines lines(text);
    while (lines.Next())
        if (!lines.Line().trimmed().isEmpty())
            return u"Line %1 is not iCalendar: %2"_s.arg(lines.Number()).arg(Quoted(lines.Line()));
    return u"The file is empty."_s;
}

bool IsShown(QChar one)
{
    const bool isFrameMark = one >= QChar(0xfdd0) && one <= QChar(0xfdef); // of text documents
    return one == u'\n' || one == u'\t' ||
           (one.category() != QChar::Other_Control && one != QChar::ObjectReplacementCharacter && !isFrameMark);
}
} // namespace

const CalendarProperty* CalendarPart::Find(const char* name) const
{
    const auto found = std::ranges::find_if(properties, [&](const auto& property) { return property.name == name; });
    return found == properties.end() ? nullptr : &*found;
}

QByteArray CalendarPart::Value(const char* name) const
{
    const CalendarProperty* const property = Find(name);
    return property ? property->value.trimmed() : QByteArray();
}

void CalendarFaults::Add(int line, const QString& what)
{
    constexpr size_t Most = 100;
    if (m_lines.size() < Most)
        m_lines.emplace_back(line, what);
    else
        ++m_more;
}

QStringList CalendarFaults::All() const
{
    auto sorted = m_lines;
    std::ranges::stable_sort(sorted, {}, &std::pair<int, QString>::first);
    QStringList lines;
    for (const auto& [line, what] : sorted)
        lines += u"Line %1: %2"_s.arg(QString::number(line), what);
    if (m_more > 0) lines += u"%L1 more lines like these."_s.arg(m_more);
    return lines;
}

CalendarParts ReadCalendarParts(const QByteArray& file, CalendarFaults& faults)
{
    const QByteArray text = AsUtf8(file);
    CalendarParts parts;
    CalendarSorter sorter(parts, faults);
    CalendarLines lines(text);
    while (lines.Next()) {
        if (lines.Number() % 1024 == 0) longwork::Reached(text.size() - lines.Left(), text.size());
        if (sorter.IsFull()) {
            faults.Add(lines.Number(), u"The file is too large: the rest of it is left out."_s);
            break;
        }
        if (!lines.Line().trimmed().isEmpty()) sorter.Take(lines.Number(), lines.Line());
    }
    sorter.EndFile(lines.Number());
    if (!sorter.HasBegun()) parts.refusal = RefusalOf(text);
    return parts;
}

QString CalendarText(const QByteArray& bytes)
{
    QString text = PlainNote(bytes);
    text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    return text.removeIf([](QChar one) { return !IsShown(one); });
}

// Before other letters the backslash is text, as in a path of Windows.
QString Unescaped(const QString& text)
{
    QString plain;
    plain.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1] : QChar();
        if (next == u'n' || next == u'N')
            plain += u'\n';
        else if (!next.isNull() && !next.isLetterOrNumber())
            plain += next;
        else
            plain += text[i];
        if (next == u'n' || next == u'N' || (!next.isNull() && !next.isLetterOrNumber())) ++i;
    }
    return plain;
}

QString Quoted(const QByteArray& bytes)
{
    constexpr qsizetype Most = 40;
    const QString text = CalendarText(bytes.first(std::min<qsizetype>(bytes.size(), 4 * Most))).simplified();
    return u'"' + (text.size() > Most ? text.first(Most) + u'…' : text) + u'"';
}
