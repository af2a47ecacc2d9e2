#include "exchange/icalendarown.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
struct OwnForm
{
    QStringView word; // in the uid
    OwnKind kind;
    bool isDay, repeats;
};
constexpr OwnForm OwnForms[] = {{u"note", OwnKind::Note, true, false},
                                {u"memo", OwnKind::Memo, true, false},
                                {u"alarm", OwnKind::Alarm, false, false},
                                {u"event", OwnKind::Event, true, true}};
} // namespace

std::optional<OwnCalendarEntry> OwnEntryOf(const CalendarPart& entry, const CalendarSeries& series)
{
    static const QRegularExpression form(
        u"^(?:(\\d{4})-(\\d\\d)(?:-(\\d\\d))?(?:T\\d{4})?|[0-9a-f]{16})"
        "\\.(note|memo(?=[1-5])|alarm|event)([1-5]?)(?:\\.\\d+)?\\.[0-9a-f]{16}@orrelin$"_s);
    const auto match = form.match(QString::fromUtf8(entry.Value("UID")));
    const auto own = std::ranges::find(OwnForms, match.captured(4), &OwnForm::word);
    if (own == std::end(OwnForms) || own->isDay != series.start.isDay || own->repeats != series.repeats) return {};
    const GridDay day{match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
    const bool isOnlyHere = IsDayOfGrid(day) && !QDate::isValid(day.year, day.month, day.day) &&
                            series.start.wall.date() == QDate(day.year, day.month + 1, 1);
    return OwnCalendarEntry{own->kind, match.captured(5).toInt(), isOnlyHere ? day : GridDay()};
}
