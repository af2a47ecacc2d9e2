// The text by which a list or a message names an alarm.
#pragma once

#include "alarms/alarmrecords.h"
#include "platform/richtext/notetext.h"

// The first line of its note, without pictures.
inline QString FirstLineOf(const Alarm& alarm)
{
    const QString text = ShownText(alarm.note).remove(QChar::ObjectReplacementCharacter).trimmed();
    return text.section(u'\n', 0, 0).simplified();
}
