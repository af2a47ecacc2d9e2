#include "exchange/textdays.h"

#include "platform/richtext/rtfreader.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace {
struct Heading
{
    ExtractedNote place;
    QString rest; // text behind the date
};

std::optional<Heading> HeadingFrom(const QString& text)
{
    static const QRegularExpression form(u"^(\\d{4})-(\\d{2})(?:-(\\d{2})| Memo (\\d))(?!\\d)(.*)$"_s);
    const auto match = form.match(text);
    const int month = match.captured(2).toInt();
    const GridDay day{match.captured(1).toInt(), month, match.hasCaptured(3) ? match.captured(3).toInt() : 0};
    const ExtractedNote place{day, match.captured(4).toInt(), {}};
    const bool isMemo = !match.hasCaptured(3);
    constexpr int MostMemos = 5;
    const bool isThere =
        isMemo ? IsDayOfGrid({day.year, month, 1}) && place.memo >= 1 && place.memo <= MostMemos : IsDayOfGrid(day);
    if (!isThere) return {};
    const bool isWhole = text.trimmed() == HeadingOf(place);
    return Heading{place, isWhole ? QString() : match.captured(5).trimmed()};
}

QStringList LinesOf(const QByteArray& file)
{
    const auto encoding = QStringDecoder::encodingForData(file);
    QString text = encoding ? QString(QStringDecoder(*encoding).decode(file)) : PlainNote(file);
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    if (text.endsWith(u'\n')) text.chop(1);
    return text.split(u'\n');
}

class DaysReader
{
public:
    void TakeHeading(qsizetype number, const QString& text)
    {
        constexpr size_t MostDays = 50'000;
        const auto heading = m_read.days.size() < MostDays ? HeadingFrom(text) : std::nullopt;
        m_isDated = heading.has_value();
        m_isTold = !m_isDated;
        m_size = 0;
        if (heading)
            m_read.days.push_back({heading->place, {heading->rest}});
        else
            LeaveOut(number, "no day of the calendar"_L1, text);
    }

    void TakeLine(qsizetype number, const QString& line)
    {
        if (m_isDated) return AddLine(number, line);
        const bool isText = !line.trimmed().isEmpty() && !line.startsWith(u'#');
        if (isText && !m_isTold) LeaveOut(number, "no date stands before this text"_L1, line);
        m_isTold = m_isTold || isText;
    }

    const TextDays& Read() const { return m_read; }

private:
    void AddLine(qsizetype number, const QString& line)
    {
        constexpr qsizetype MostOfADay = 400'000; // characters
        m_size += line.size() + 1;
        if (m_size <= MostOfADay)
            m_read.days.back().lines += line;
        else if (!std::exchange(m_isTold, true))
            LeaveOut(number, "the day's text is too long"_L1, line);
    }

    void LeaveOut(qsizetype number, QLatin1StringView reason, const QString& line)
    {
        constexpr qsizetype MostShown = 60, MostTold = 1000;
        if (m_read.leftOut.size() >= MostTold) return;
        m_read.leftOut += u"Line %1: %2: %3"_s.arg(number).arg(reason, line.simplified().left(MostShown));
    }

    TextDays m_read;
    qsizetype m_size = 0;   // of the last day's lines
    bool m_isDated = false; // lines belong to the last day
    bool m_isTold = false;  // that they are left out
};
} // namespace

TextDays DaysOf(const QByteArray& file, const std::function<std::optional<QString>(const QString& line)>& headingIn)
{
    DaysReader reader;
    qsizetype number = 0;
    for (const QString& line : LinesOf(file)) {
        ++number;
        if (const auto text = headingIn(line))
            reader.TakeHeading(number, *text);
        else
            reader.TakeLine(number, line);
    }
    return reader.Read();
}
