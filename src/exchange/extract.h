// What an export takes out of a planner: its notes in the order of the calendar, the memos of a month behind its days,
// its alarms and its recurring events. Plain values.
#pragma once

#include "recurrence/recurdates.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <tuple>
#include <vector>

struct ExtractedNote
{
    GridDay day;  // of a memo the month, with day 0
    int memo = 0; // 1 to 5, or 0 for a day
    QByteArray rtf;
};

struct ExtractedAlarm
{
    GridDay day;
    int minute = 0; // of the day
    QByteArray rtf;
};

struct ExtractedEvent
{
    GridDay first, last;
    Frequency frequency = Frequency::Daily;
    QByteArray rtf; // also part of the notes of its days
};

struct Extract
{
    QString title; // the planner's file name without .mdb
    std::vector<ExtractedNote> notes;
    std::vector<ExtractedAlarm> alarms;
    std::vector<ExtractedEvent> events; // only of a whole planner
};

// The note with this key, without its text; empty if no view shows it.
std::optional<ExtractedNote> PlaceOf(const QString& key);
inline auto OrderOf(const ExtractedNote& note)
{
    return std::tuple(note.day.year, note.day.month, note.memo, note.day.day);
}
QString KeyOfNote(const ExtractedNote& note); // its date key
QString HeadingOf(const ExtractedNote& note); // "1999-07-04 Sunday", "1999-07 Memo 3"
