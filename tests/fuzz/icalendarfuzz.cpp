// Any bytes as an iCalendar file: nothing crashes, hangs or grows out of bounds, and what comes in is fit for a
// planner. libFuzzer's entry point.
#include "exchange/readers.h"
#include "fuzz/fuzztarget.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/selectionformat.h"

#include <QGuiApplication>
#include <QSet>

#include <algorithm>

namespace {

constexpr qsizetype MostDays = 500'000;

bool IsFit(const ExtractedNote& note)
{
    return IsDayOfGrid({note.day.year, note.day.month, std::max(note.day.day, 1)}) &&
           (note.day.day == 0) == (note.memo > 0) && LooksLikeRtf(note.rtf);
}

bool IsFit(const ExtractedAlarm& alarm)
{
    return IsDayOfGrid(alarm.day) && alarm.minute >= 0 && alarm.minute < 24 * 60;
}

void Check(const ImportedEntry& entry)
{
    Require(!entry.id.isEmpty() && !entry.title.isEmpty() && !entry.title.contains(u'\n'), "an entry has a name");
    Require(!entry.notes.empty() || !entry.alarms.empty(), "an entry has a date");
    Require(std::ranges::all_of(entry.notes, [](const ExtractedNote& note) { return IsFit(note); }), "notes are fit");
    Require(std::ranges::is_sorted(entry.notes, {}, &ExtractedNote::day), "notes are in order");
    Require(std::ranges::all_of(entry.alarms, [](const ExtractedAlarm& alarm) { return IsFit(alarm); }),
            "alarms are fit");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static const QGuiApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const ImportChoices choices{FormatOf(QFont(u"Arial"_s, 8)), QTimeZone("Europe/Berlin"), {2024, 3, 31}, {}};
    const ImportedFile file = ReadICalendar(bytes, choices);
    Require(file.refusal.isEmpty() == !file.entries.empty(), "a file is refused or brings something");
    QSet<QString> ids;
    qsizetype days = 0;
    for (const ImportedEntry& entry : file.entries) {
        Check(entry);
        ids += entry.id;
        days += std::ssize(entry.notes) + std::ssize(entry.alarms);
    }
    Require(ids.size() == std::ssize(file.entries), "each entry has an id of its own");
    Require(days <= MostDays, "the days are bounded");
    return 0;
}
