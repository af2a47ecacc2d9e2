#include "calendar/moddate.h"

#include "calendar/modshow.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"

#include <array>

namespace {
// Where the two slashes of a date stand, -1 for one that is missing.
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

QString JoinKey(std::int16_t year, std::int16_t month, std::int16_t day)
{
    return TrimmedStr(year) + u'/' + TrimmedStr(month) + u'/' + TrimmedStr(day);
}

// The number of a field, 0 after an error that the tail has logged.
std::int16_t NumberOf(QLatin1StringView literal, const QString& field)
{
    std::int16_t number = 0;
    ErrorTail{literal}([&] { number = IntegerOf(field); });
    return number;
}

// The third field of a memo key, or empty. The windows stop one character short of the key's end, so that exactly one
// or two digits may follow the word.
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

std::int16_t fnGetDay(const QString& entryDate)
{
    return NumberOf(QLatin1StringView(" in MODDATE, fnGetDay"), MiddleField(entryDate));
}

std::int16_t fnGetMonth(const QString& entryDate)
{
    return NumberOf(QLatin1StringView(" in MODDATE, fnGetMonth"), FirstField(entryDate));
}

std::int16_t fnGetYear(const QString& entryDate)
{
    return IntegerOf(entryDate.right(4));
}

QString fnFnGetQMTDate(const QString& entryDate)
{
    QString key;
    ErrorTail{QLatin1StringView(" in MODDATE.BAS, fnFnGetQMTDate")}(
        [&] { key = JoinKey(fnGetYear(entryDate), fnGetMonth(entryDate), fnGetDay(entryDate)); });
    return key;
}

std::int16_t fnGetQMTDay(const QString& dateKey)
{
    const Slashes at(dateKey);
    return NumberOf(QLatin1StringView(" in MODDATE.BAS, fnGetQMTDay"),
                    at.second < 0 ? QString() : dateKey.mid(at.second + 1));
}

std::int16_t fnGetQMTMonth(const QString& dateKey)
{
    return NumberOf(QLatin1StringView(" in MODDATE.BAS, fnGetQMTMonth"), MiddleField(dateKey));
}

std::int16_t fnGetQMTYear(const QString& dateKey)
{
    return IntegerOf(dateKey.left(4));
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
    return fnMonthAbbrev(fnGetQMTMonth(dateKey)) + u' ' + day + QStringLiteral(", ") +
           TrimmedStr(fnGetQMTYear(dateKey));
}

bool fnValidateDate(const QString& entryDate)
{
    bool valid = false;
    ErrorTail{QLatin1StringView(" in MODDATE, fnValidateDate")}([&] {
        if (Slashes(entryDate).second < 0) return;
        const std::int16_t month = IntegerOf(FirstField(entryDate));
        const std::int16_t day = IntegerOf(MiddleField(entryDate));
        const std::int16_t year = IntegerOf(entryDate.right(4));
        valid = IsDayOfGrid(year, month, day);
    });
    return valid;
}
