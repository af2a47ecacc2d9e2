#include "state/moddate.h"

#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "state/modshow.h"

#include <array>

namespace {
// Positions of the first two slashes, -1 if missing.
struct Slashes
{
    explicit Slashes(const QString& date)
        : first(date.indexOf(u'/')), second(first < 0 ? -1 : date.indexOf(u'/', first + 1))
    {
    }
    qsizetype first;
    qsizetype second;
};

QString MiddleField(const QString& date)
{
    const Slashes at(date);
    return at.second < 0 ? QString() : date.mid(at.first + 1, at.second - at.first - 1);
}

QString FirstField(const QString& date)
{
    return date.left(Slashes(date).first < 0 ? 0 : Slashes(date).first);
}

// The digits at the start, after blanks; 0 if there are none. A sign is not a digit.
std::int16_t LeadingNumber(const QString& text)
{
    const QString trimmed = text.trimmed();
    qsizetype length = 0;
    while (length < trimmed.size() && trimmed[length] >= u'0' && trimmed[length] <= u'9')
        ++length;
    return IntegerOf(trimmed.first(length));
}

// The field's number. An error is logged and gives 0.
std::int16_t NumberOf(QLatin1StringView literal, const QString& field)
{
    std::int16_t number = 0;
    ErrorTail{literal}([&] { number = LeadingNumber(field); });
    return number;
}

// The third field of a memo key, or empty. It tries two lengths, so exactly one or two digits may follow "Memo".
QString MemoName(const QString& dateKey)
{
    for (const int length : {5, 6}) {
        if (dateKey.size() >= length && QStringView(dateKey).last(length).startsWith(u"Memo")) {
            return dateKey.last(length);
        }
    }
    return {};
}
} // namespace

bool IsDayOfGrid(const GridDay& day)
{
    return day.year > 0 && day.month >= 1 && day.month <= 12 && day.day >= 1 &&
           day.day <= MonthLength(day.year, day.month);
}

QString KeyOf(const GridDay& day)
{
    return TrimmedStr(day.year) + u'/' + TrimmedStr(day.month) + u'/' + TrimmedStr(day.day);
}

GridDay GridDayOf(const QDate& date)
{
    return {date.year(), date.month(), date.day()};
}

std::optional<GridDay> DayOfKey(const QString& dateKey)
{
    const Slashes at(dateKey);
    if (at.second < 0 || at.first > 4) return {};
    const GridDay day = {dateKey.first(at.first).toInt(), MiddleField(dateKey).toInt(),
                         dateKey.mid(at.second + 1).toInt()};
    return IsDayOfGrid(day) ? std::optional(day) : std::nullopt;
}

std::int16_t fnGetDay(const QString& entryDate)
{
    return NumberOf(" in MODDATE, fnGetDay"_L1, MiddleField(entryDate));
}

std::int16_t fnGetMonth(const QString& entryDate)
{
    return NumberOf(" in MODDATE, fnGetMonth"_L1, FirstField(entryDate));
}

std::int16_t fnGetYear(const QString& entryDate)
{
    return LeadingNumber(entryDate.right(4));
}

QString fnFnGetQMTDate(const QString& entryDate)
{
    QString key;
    ErrorTail{" in MODDATE.BAS, fnFnGetQMTDate"_L1}([&] {
        key = KeyOf({fnGetYear(entryDate), fnGetMonth(entryDate), fnGetDay(entryDate)});
    });
    return key;
}

std::int16_t fnGetQMTDay(const QString& dateKey)
{
    const Slashes at(dateKey);
    return NumberOf(" in MODDATE.BAS, fnGetQMTDay"_L1, at.second < 0 ? QString() : dateKey.mid(at.second + 1));
}

std::int16_t fnGetQMTMonth(const QString& dateKey)
{
    return NumberOf(" in MODDATE.BAS, fnGetQMTMonth"_L1, MiddleField(dateKey));
}

std::int16_t fnGetQMTYear(const QString& dateKey)
{
    return LeadingNumber(dateKey.left(4));
}

QString fnMonthAbbrev(int month)
{
    static constexpr std::array<QStringView, 12> names = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                                          u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    return month >= 1 && month <= 12 ? names[static_cast<std::size_t>(month - 1)].toString() : QString();
}

QString fnFormatDateKey(const QString& dateKey)
{
    QString day = MemoName(dateKey);
    if (day.isEmpty()) day = TrimmedStr(fnGetQMTDay(dateKey));
    return fnMonthAbbrev(fnGetQMTMonth(dateKey)) + u' ' + day + u", "_s + TrimmedStr(fnGetQMTYear(dateKey));
}

bool fnValidateDate(const QString& entryDate)
{
    bool valid = false;
    ErrorTail{" in MODDATE, fnValidateDate"_L1}([&] {
        if (Slashes(entryDate).second < 0) return;
        const std::int16_t month = LeadingNumber(FirstField(entryDate));
        const std::int16_t day = LeadingNumber(MiddleField(entryDate));
        valid = IsDayOfGrid({LeadingNumber(entryDate.right(4)), month, day});
    });
    return valid;
}
