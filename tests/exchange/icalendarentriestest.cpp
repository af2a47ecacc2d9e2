#include "calendars.h"
#include "testmain.h"

using namespace calendars;

// What iCalendar files of other programs bring into a planner.
class ICalendarEntriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What other programs write, and what the library would make of it.
    void Traps()
    {
        const QByteArray ten = "DTSTART;TZID=Europe/Berlin:20240105T100000\n", day = "DTSTART;VALUE=DATE:20240105\n";
        const QByteArray utc = "DTSTART:20240105T090000Z\n";
        for (
            const auto& [what, lines, expected] : Rows<QByteArray, QString>{
                // texts
                {"place and text", ten + "LOCATION:Main St\nDESCRIPTION:a\\, b\\Nc",
                 u"01-05 10:00 Meet/Main St/a, b/c"_s},
                {"repeated summary", ten + "DESCRIPTION:Meet\\nmore", u"01-05 10:00 Meet/more"_s},
                {"no summary", day + "SUMMARY:\nDESCRIPTION:first\\nmore", u"01-05 first/more"_s},
                {"nothing", day + "SUMMARY: ", u"01-05 Event"_s},
                {"escapes", day + R"(SUMMARY:C:\temp \"x\" \\n \;)", u"01-05 C:\\temp \"x\" \\n ;"_s},
                {"controls", day + "SUMMARY:a\x01\xef\xbf\xbc\xef\xb7\x90z\tb", u"01-05 az b"_s},
                {"folded in a letter", day + "SUMMARY:M\xc3\n \xbcller", u"01-05 Müller"_s},
                {"HTML beside no text", ten + "X-ALT-DESC;FMTTYPE=text/html:<html><body><p>a<b>b</b></p><p>c</body>",
                 u"01-05 10:00 Meet/ab/c"_s},
                {"HTML beside text", day + "DESCRIPTION:plain\nX-ALT-DESC;FMTTYPE=text/html:<b>x</b>",
                 u"01-05 Meet/plain"_s},
                {"an address", day + "DESCRIPTION:Ann <a@b.example>", u"01-05 Meet/Ann <a@b.example>"_s},
                {"HTML in a link",
                 day + "DESCRIPTION;ALTREP=\"data:text/html,%3Cb%3Ex: y%3C%2Fb%3E\":", u"01-05 Meet/x: y"_s},
                {"HTML as text", day + "DESCRIPTION:<p>a&amp;b</p>c<br><i>d</i>", u"01-05 Meet/a&b/c/d"_s},
                // days
                {"days", "DTSTART;VALUE=DATE:20240105\nDTEND;VALUE=DATE:20240107", u"01-05 Meet 01-06"_s},
                {"days by duration", day + "DURATION:P1W", u"01-05 Meet 01-06 01-07 01-08 01-09 01-10 01-11"_s},
                {"no day", day + "DTEND;VALUE=DATE:20240105", u"01-05 Meet"_s},
                {"over midnight", ten + "DURATION:P1DT16H", u"01-05 10:00 Meet 01-06 Meet 01-07 until 02:00 Meet"_s},
                {"to midnight", ten + "DTEND;TZID=Europe/Berlin:20240107T000000", u"01-05 10:00 Meet 01-06 Meet"_s},
                {"end before start", ten + "DTEND:20240104T100000Z", u"01-05 10:00 Meet"_s},
                {"years", day + "DTEND;VALUE=DATE:20990101", u"366"_s},
                // dates
                {"date without its kind", "DTSTART:20240105", u"01-05 Meet"_s},
                {"date with a time", "DTSTART;VALUE=DATE;TZID=Asia/Tokyo:20240105T230000", u"01-05 Meet"_s},
                {"ISO", "DTSTART:2024-01-05T09:00:00Z", u"01-05 10:00 Meet"_s},
                {"no seconds", "DTSTART:20240105T0900", u"01-05 09:00 Meet"_s},
                {"lower case", "dtstart;tzid=\"Europe/Berlin\":20240105t090000", u"01-05 09:00 Meet"_s},
                // zones
                {"floating", "DTSTART:20240105T090000", u"01-05 09:00 Meet"_s},
                {"UTC", utc, u"01-05 10:00 Meet"_s},
                {"old name", "DTSTART;TZID=US/Central:20240105T090000", u"01-05 16:00 Meet"_s},
                {"name of Windows", "DTSTART;TZID=Tokyo Standard Time:20240105T090000", u"01-05 01:00 Meet"_s},
                {"prefix", "DTSTART;TZID=/mozilla.org/2005_1/America/New_York:20240105T090000", u"01-05 15:00 Meet"_s},
                {"seen name", "DTSTART;TZID=\"(UTC-05:00) Eastern Time (US & Canada)\":20240705T090000",
                 u"07-05 15:00 Meet"_s},
                {"seen town", "DTSTART;TZID=\"(UTC+00:00) Lisbon, London\":20240705T090000", u"07-05 10:00 Meet"_s},
                {"offset", "DTSTART;TZID=GMT+0530:20240105T090000", u"01-05 04:30 Meet"_s},
                {"unknown", "DTSTART;TZID=Mars:20240105T090000",
                 u"(Its time zone is unknown: the time is taken as it stands.) 01-05 09:00 Meet"_s},
                {"day in a zone", "DTSTART;VALUE=DATE;TZID=Asia/Tokyo:20240105", u"01-05 Meet"_s},
                // rules
                {"endless", "DTSTART;VALUE=DATE:20240325\nRRULE:FREQ=DAILY;INTERVAL=3",
                 u"03-25 Meet 03-28 03-31 ..."_s},
                {"start beside the rule", day + "RRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=2", u"01-05 Meet 01-08 01-15"_s},
                {"spring gap", "DTSTART;TZID=Europe/Berlin:20240330T023000\nRRULE:FREQ=DAILY;COUNT=3",
                 u"03-30 02:30 Meet 03-31 04-01"_s},
                {"end as a day", ten + "RRULE:FREQ=DAILY;UNTIL=20240106", u"01-05 10:00 Meet 01-06"_s},
                {"end on the clock", ten + "RRULE:FREQ=DAILY;UNTIL=20240106T100000", u"01-05 10:00 Meet 01-06"_s},
                {"end in UTC", ten + "RRULE:FREQ=DAILY;UNTIL=20240106T085959Z", u"01-05 10:00 Meet"_s},
                {"end before the start", ten + "RRULE:FREQ=DAILY;UNTIL=20230101", u"01-05 10:00 Meet"_s},
                {"two rules", day + "RRULE:FREQ=DAILY;COUNT=2\nRRULE:FREQ=MONTHLY;COUNT=2",
                 u"01-05 Meet 01-06 02-05"_s},
                {"less a rule", day + "RRULE:FREQ=DAILY;COUNT=4\nEXRULE:FREQ=DAILY;INTERVAL=2;COUNT=2",
                 u"01-06 Meet 01-08"_s},
                {"less days of all kinds",
                 ten + "RRULE:FREQ=DAILY;COUNT=6\nEXDATE;VALUE=DATE:20240106\nEXDATE:20240107T090000Z\n"
                       "EXDATE:20240108T100000\nEXDATE;TZID=Asia/Tokyo:20240109T180000,20240110T170000",
                 u"01-05 10:00 Meet 01-10"_s},
                {"days less times", day + "RRULE:FREQ=DAILY;COUNT=3\nEXDATE:20240106T000000,20240106T230000Z",
                 u"01-05 Meet"_s},
                {"more dates",
                 ten + "RDATE:20240107T090000Z,20240106T090000Z\nRDATE;VALUE=PERIOD:20240109T220000Z/PT2H\n"
                       "RDATE;VALUE=DATE:20240108",
                 u"01-05 10:00 Meet 01-06 01-07 01-08 01-09 23:00 Meet 01-10 until 01:00 Meet"_s},
                {"hours of a day", ten + "RRULE:FREQ=DAILY;COUNT=3;BYHOUR=8,10",
                 u"01-05 10:00 Meet 01-06 08:00 Meet 01-06 10:00 Meet"_s},
                {"twice a day", ten + "RRULE:FREQ=HOURLY;INTERVAL=15;COUNT=4",
                 u"(It repeats within a day: only the first time of each day is taken.) 01-05 10:00 Meet 01-06 01:00 "
                 "Meet 01-07 07:00 Meet"_s},
                {"seconds that never come", day + "RRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
                 u"(Line 5: the rule cannot be followed, so it stands once.) 01-05 Meet"_s},
                {"every second", day + "RRULE:FREQ=SECONDLY;UNTIL=20240107",
                 u"(It repeats within a day: only the first time of each day is taken.) 01-05 Meet 01-06 01-07"_s},
                {"bad rule", day + "RRULE:FREQ=DAILY;INTERVAL=0",
                 u"(Line 5: the rule cannot be followed, so it stands once.) 01-05 Meet"_s},
                {"garbled rule", day + "RRULE:RRULE:a;FREQ=DAILY",
                 u"(Line 5: the rule cannot be followed, so it stands once.) 01-05 Meet"_s},
                {"no end", day + "RRULE:FREQ=DAILY;UNTIL=",
                 u"(Line 5: the rule cannot be followed, so it stands once.) 01-05 Meet"_s},
                {"bad end", day + "RRULE:FREQ=DAILY;UNTIL=never",
                 u"(Line 5: the rule cannot be followed, so it stands once.) 01-05 Meet"_s},
                {"too often", day + "RRULE:FREQ=DAILY;COUNT=2000000000", u"10000"_s},
                {"bad dates beside", day + "RDATE:20240108Z\nEXDATE:x",
                 u"01-05 Meet | Line 5: RDATE has no real date: \"20240108Z\" | Line 6: EXDATE has no real date: \"x\""_s},
                // changes
                {"later version", ten + "SEQUENCE:2" + NextEvent(day + "SEQUENCE:1"), u"01-05 10:00 Meet"_s},
                {"later stamp",
                 ten + "LAST-MODIFIED:20240102T000000Z\nDTSTAMP:20240101T000000Z" +
                     NextEvent(day + "DTSTAMP:20240101T000000Z"),
                 u"01-05 10:00 Meet"_s},
                {"later in the file", ten + NextEvent(day), u"01-05 Meet"_s},
                {"this and following",
                 ten + "RRULE:FREQ=DAILY;COUNT=5" +
                     NextEvent("RECURRENCE-ID;RANGE=THISANDFUTURE:20240107T090000Z\nDTSTART;TZID=Europe/"
                               "Berlin:20240107T120000\nSUMMARY:Later"),
                 u"01-05 10:00 Meet 01-06 | 01-07 12:00 Later 01-08 01-09"_s},
                {"cancelled",
                 day + "RRULE:FREQ=DAILY;COUNT=2" +
                     NextEvent("RECURRENCE-ID;VALUE=DATE:20240106\nDTSTART;VALUE=DATE:20240106\nSTATUS:CANCELLED"),
                 u"01-05 Meet | (Cancelled: what was imported of it is taken out.) - 01-06 Meet"_s},
                // alarms
                {"alarms",
                 ten + "DTEND:20240105T110000Z" + Alarm("DISPLAY", ":-PT15M") + Alarm("AUDIO", ";RELATED=END:PT5M") +
                     Alarm("DISPLAY", ";VALUE=DATE-TIME:20240104T200000Z") + Alarm("AUDIO", ":-PT15M30S") +
                     Alarm("DISPLAY", ":-PT15M") + Alarm("NONE", ":-PT9M") +
                     Alarm("DISPLAY", ";VALUE=DATE-TIME:19760401T005545Z") + Alarm("EMAIL", ":-P1D") +
                     Alarm("DISPLAY", ":P"),
                 u"01-05 10:00 Meet !01-04 21:00 !01-05 09:44 !01-05 09:45 !01-05 10:00 !01-05 12:05"_s},
                {"alarm by mail", day + Alarm("EMAIL", ":-PT15M"),
                 u"(Its alarm sends mail or starts a program, so it is left out.) 01-05 Meet"_s},
                {"alarm of days", day + "RRULE:FREQ=DAILY;COUNT=2" + Alarm("DISPLAY", ":-PT15H"),
                 u"01-05 Meet 01-06 !01-04 09:00 !01-05 09:00"_s},
                {"bad alarm", day + Alarm("DISPLAY", ":soon"),
                 u"01-05 Meet | Line 8: The time of an alarm is not understood: \"soon\""_s},
            }) {
            const InRow row(this, what);
            const ImportedFile file = Read(Calendar(Event(lines)));
            const auto days = file.entries.empty() ? 0 : file.entries.front().notes.size();
            QCOMPARE(days > 300 ? QString::number(days) : Shown(file), expected);
        }
    }

    // Several entries, whole calendars.
    void Calendars()
    {
        const QByteArray mars =
            "BEGIN:VTIMEZONE\nTZID:Mars\nBEGIN:STANDARD\nDTSTART:16010101T030000\nTZOFFSETTO:+0200\n"
            "RRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\nEND:STANDARD\nBEGIN:DAYLIGHT\nDTSTART:16010101T020000\n"
            "TZOFFSETTO:+0300\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\nEND:DAYLIGHT\nEND:VTIMEZONE\n";
        const QByteArray summer = "BEGIN:VTIMEZONE\nTZID:America/New_York\nBEGIN:DAYLIGHT\nDTSTART:20230312T020000\n"
                                  "TZOFFSETTO:-0400\nEND:DAYLIGHT\nEND:VTIMEZONE\n";
        const QByteArray moon =
            "BEGIN:VTIMEZONE\nTZID:Moon\nBEGIN:DAYLIGHT\nDTSTART:20230501T000000\nTZOFFSETTO:+0300\n"
            "END:DAYLIGHT\nBEGIN:STANDARD\nDTSTART:20220901T000000\nTZOFFSETTO:+0200\n"
            "RDATE:20230901T000000,20240901T000000\nEND:STANDARD\nEND:VTIMEZONE\n";
        const QByteArray due = "BEGIN:VTODO\nUID:a\nSUMMARY:Pay\n";
        for (
            const auto& [what, content, expected] : Rows<QByteArray, QString>{
                {"zone of the file", mars + Event("DTSTART;TZID=Mars:20240105T100000\nRDATE;TZID=Mars:20240705T100000"),
                 u"01-05 09:00 Meet 07-05"_s},
                {"zone of given dates", moon + Event("DTSTART;TZID=Moon:20240105T100000"), u"01-05 09:00 Meet"_s},
                {"zone of one summer", summer + Event("DTSTART;TZID=America/New_York:20240105T100000"),
                 u"01-05 16:00 Meet"_s},
                {"rule in UTC of a clock",
                 "X-WR-TIMEZONE:Europe/Berlin\n" + Event("DTSTART:20240330T090000Z\nRRULE:FREQ=DAILY"),
                 u"03-30 10:00 Meet 03-31 ..."_s},
                {"rule in UTC", Event("DTSTART:20240330T090000Z\nRRULE:FREQ=DAILY"),
                 u"03-30 10:00 Meet 03-31 11:00 Meet ..."_s},
                {"tasks",
                 due + "DUE:20240105T090000Z\nDTSTART:20240101T080000Z" + Alarm("AUDIO", ":-PT1H") + "\nEND:VTODO\n" +
                     "BEGIN:VTODO\nUID:b\nSUMMARY:Pay\nDUE:20240106\nDTSTART:20240104T080000Z\nSTATUS:COMPLETED\nEND:"
                     "VTODO\n" +
                     "BEGIN:VTODO\nUID:c\nSUMMARY:Pay\nDTSTART:20240107\nCOMPLETED:20240108T080000Z\nEND:VTODO\n",
                 u"(A task.) 01-05 10:00 Pay !01-01 08:00 | (A task that is done.) - 01-06 Pay | (A task that is done.) - 01-07 Pay"_s},
                {"journal",
                 "BEGIN:VJOURNAL\nDTSTART;VALUE=DATE:20240105\nSUMMARY:Day\nDESCRIPTION:a\nDESCRIPTION:b\nEND:"
                 "VJOURNAL\n"
                 "BEGIN:VJOURNAL\nSUMMARY:Note\nEND:VJOURNAL\n",
                 u"01-05 Day/a/b | Line 8: \"Note\" has no date."_s},
                {"two calendars",
                 Event("DTSTART:20240105") + "END:VCALENDAR\nBEGIN:VCALENDAR\n" +
                     "BEGIN:VEVENT\nDTSTART:20240106\nEND:VEVENT\n",
                 u"01-05 Meet | 01-06 Event"_s},
                {"a change alone", Event("RECURRENCE-ID:20240105\nDTSTART:20240106"), u"01-06 Meet"_s},
                {"twice without a uid",
                 "BEGIN:VEVENT\nDTSTART:20240105\nEND:VEVENT\nBEGIN:VEVENT\nDTSTART:20240105\nEND:VEVENT\n",
                 u"01-05 Event"_s},
                {"unknown parts",
                 "BEGIN:X\nSUMMARY:x\n" + Event("BEGIN:Y\nDTSTART:20240106\nBEGIN:Z\nEND:Z\nEND:Y\nDTSTART:20240105"),
                 u"01-05 Meet"_s},
                {"a line of nothing", Event("hello\nDTSTART:20240105"),
                 u"01-05 Meet | Line 4: \"hello\" is not understood."_s},
            }) {
            const InRow row(this, what);
            QCOMPARE(Shown(Read(Calendar(content))), expected);
        }
    }
};

ORRELIN_TEST(ICalendarEntriesTest)
#include "icalendarentriestest.moc"
