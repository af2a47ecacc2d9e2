// Calendars for tests of their import, and what came in as one line of text.
#pragma once

#include "exchange/readers.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/selectionformat.h"

#include <QTextDocument>

namespace calendars {
inline ImportedFile Read(const QByteArray& file)
{
    return ReadICalendar(file, {FormatOf(QFont(u"Arial"_s, 8)), QTimeZone("Europe/Berlin"), {2024, 3, 31}, {}});
}

inline QString PlainText(const QByteArray& rtf)
{
    QTextDocument note;
    ReadRtf(rtf, note);
    return note.toPlainText().replace(u'\n', u'/');
}

inline QString KeyOf(const ExtractedNote& note)
{
    return HeadingOf(note).section(u' ', 0, note.memo ? -1 : 0);
}

// An entry: its remark in brackets, "-" without a tick, "..." without an end, days and texts, "!" before alarms.
// Equal texts are written once.
inline QString Shown(const ImportedEntry& entry)
{
    QStringList parts;
    QString last;
    if (!entry.remark.isEmpty()) parts += u'(' + entry.remark + u')';
    if (!entry.isTicked) parts += u"-"_s;
    for (const ExtractedNote& note : entry.notes) {
        const QString text = PlainText(note.rtf);
        parts += text == last ? KeyOf(note) : KeyOf(note) + u' ' + text;
        last = text;
    }
    for (const ExtractedAlarm& alarm : entry.alarms)
        parts += u'!' + KeyOf({alarm.day, 0, {}}) + QTime(0, 0).addSecs(60 * alarm.minute).toString(u" hh:mm"_s);
    return parts.join(u' ') + (entry.isEndless ? u" ..."_s : QString());
}

inline QString Shown(const ImportedFile& file)
{
    QStringList lines;
    for (const ImportedEntry& entry : file.entries)
        lines += Shown(entry);
    lines += file.leftOut;
    if (!file.refusal.isEmpty()) lines += file.refusal;
    return lines.join(u" | "_s).remove(u"2024-"_s);
}

inline QByteArray Calendar(const QByteArray& content)
{
    return "BEGIN:VCALENDAR\n" + content + "END:VCALENDAR\n";
}

inline QByteArray Event(const QByteArray& lines)
{
    return "BEGIN:VEVENT\nUID:a\n" + lines + "\nSUMMARY:Meet\nEND:VEVENT\n"; // the first summary counts
}

inline QByteArray NextEvent(const QByteArray& lines)
{
    return "\nSUMMARY:Meet\nEND:VEVENT\nBEGIN:VEVENT\nUID:a\n" + lines;
}

inline QByteArray Alarm(const QByteArray& action, const QByteArray& trigger)
{
    return "\nBEGIN:VALARM\nACTION:" + action + "\nTRIGGER" + trigger + "\nEND:VALARM";
}
} // namespace calendars
