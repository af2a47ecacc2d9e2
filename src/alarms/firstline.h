// The text by which a list or a message names an alarm.
#pragma once

#include "alarms/alarmrecords.h"
#include "platform/richtext/notetext.h"

// The first line of its note, without pictures. It may be as long as a book.
inline QString FirstLineOf(const Alarm& alarm)
{
    const QString text = ShownText(alarm.note).remove(QChar::ObjectReplacementCharacter).trimmed();
    constexpr int Most = 300;
    return text.section(u'\n', 0, 0).simplified().left(Most);
}
