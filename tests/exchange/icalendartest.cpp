#include "exchange/writers.h"
#include "files.h"
#include "platform/desktop/clock.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/selectionformat.h"
#include "recurrence/eventtext.h"
#include "support.h"
#include "testmain.h"

#include <QDir>
#include <QJsonDocument>
#include <QRegularExpression>

#include <map>

// Calendars as another reader understands them: tests/exchange/readcalendar.py.
class ICalendarTest : public QObject
{
    Q_OBJECT

    enum Field
    {
        Uid,
        Start,
        Days,
        Summary,
        Description,
        Html,
        Alarms,
        Sequence
    };

    std::optional<TemporaryFolders> m_folders;

    static ExtractedNote Note(const QString& key, const QByteArray& text) { return {*DayOfKey(key), 0, text}; }

    QList<QStringList> Read(const QByteArray& file, const QStringList& years = {}) const
    {
        SetContent(m_folders->Path(u"calendar.ics"_s), file);
        QProcess reader;
        reader.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        reader.start(u"/usr/bin/python3"_s,
                     QStringList{QStringLiteral(READ_CALENDAR), m_folders->Path(u"calendar.ics"_s)} + years);
        if (!reader.waitForFinished() || reader.exitCode() != 0) qFatal("The calendar cannot be read");
        QList<QStringList> lines;
        for (const QByteArray& line : reader.readAllStandardOutput().split('\n'))
            if (!line.isEmpty()) lines += QJsonDocument::fromJson(line).toVariant().toStringList();
        return lines;
    }

    // The occurrences of these texts: their days and summaries in order.
    static QList<QStringList> Occurrences(const QStringList& keys, const QString& summary)
    {
        QList<QStringList> lines;
        for (const QString& key : keys) {
            const QDate day = QDate::fromString(key, u"yyyy/M/d"_s);
            lines += {(day.isValid() ? day : QDate(1900, 3, 1)).toString(Qt::ISODate), summary};
        }
        return lines;
    }

    // Writes an event as the planner does. Returns its days.
    static QStringList AddEvent(Extract& extract, Frequency frequency, const QString& first, const QString& last,
                                int step, const QByteArray& rtf)
    {
        EventText text(rtf, FormatOf(QFont()));
        const QStringList keys = EventDates(frequency, first, last, step);
        for (const QString& key : keys) {
            const GridDay day = *DayOfKey(key);
            const auto place = std::ranges::lower_bound(extract.notes, day, {}, &ExtractedNote::day);
            if (place != extract.notes.end() && place->day == day)
                place->rtf = text.AppendedTo(place->rtf);
            else
                extract.notes.insert(place, {day, 0, rtf});
        }
        extract.events.push_back({*DayOfKey(first), *DayOfKey(last), frequency, rtf});
        return keys;
    }

private Q_SLOTS:
    void init()
    {
        m_folders.emplace();
        desktopclock::SetForTests({{2026, 3, 1}, {12, 0}});
    }
    void cleanup() { desktopclock::SetForTests({}); }

    void BringsEveryText()
    {
        const QString text =
            u"\n  M\u00fcller, Stra\u00dfe; \U0001f600 \nC:\\temp\\ \"a,b\"\n\t"_s + QString(5000, u'\u00e4');
        const QByteArray form = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs16 a, \\b b\\b0 ; c:\\\\temp\\par}";
        const QByteArray plain = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl ;\\red0\\green0\\blue0;}"
                                 "\\pard\\ql\\cf1\\f0\\fs16 one\\par two\\par}";
        const QByteArray picture = "{\\rtf1{\\pict\\wmetafile8\\picw1000\\pich1000\\picwgoal600\\pichgoal600 "
                                   "0100090000032100000000000500000000001c0000000000}\\par}";
        const Extract extract{u"Mine, yours; \u00e4"_s,
                              {Note(u"1900/2/29"_s, "leap"),
                               Note(u"1999/7/4"_s, text.toUtf8()),
                               Note(u"1999/7/5"_s, form),
                               Note(u"1999/7/6"_s, plain),
                               Note(u"1999/7/7"_s, picture),
                               Note(u"1999/7/8"_s, "{\\rtf1 \\par  \\par}"),
                               {{1999, 7, 0}, 3, "plan\nmore"}},
                              {{{1999, 12, 31}, 23 * 60 + 50, "ring\nloud"}, {{1999, 12, 31}, 23 * 60 + 50, ""}},
                              {}};
        const QByteArray file = WriteICalendar(extract, {});
        for (const char* line : {"VERSION:2.0\r\n", "CALSCALE:GREGORIAN\r\n", "X-WR-CALNAME:Mine, yours; \u00e4\r\n"})
            QVERIFY2(file.contains(line), line);
        QVERIFY(!file.contains("METHOD"));
        QCOMPARE(file.count('\n'), file.count("\r\n"));
        QCOMPARE(file.count("TRANSP:TRANSPARENT"), 6);
        QCOMPARE(file.count("X-ALT-DESC"), 1);
        QSet<QString> uids;
        QList<QStringList> entries = Read(file);
        for (QStringList& entry : entries) {
            uids += entry[Uid];
            entry[Html] = entry[Html].section(u"font-weight:700;"_s, 1).remove(QRegularExpression(u"<[^>]*>"_s));
            entry = entry.mid(Start, Alarms);
        }
        QCOMPARE(uids.size(), entries.size());
        QVERIFY(uids.contains(u"1999-07-04.note.b77a9f4e2c4e196e@orrelin"_s));
        const QList<QStringList> expected = {
            {u"1900-03-01"_s, u"1"_s, u"leap"_s, u"Feb 29, 1900, a day that only this planner has\nleap"_s, {}, {}},
            {u"1999-07-04"_s, u"1"_s, u"M\u00fcller, Stra\u00dfe; \U0001f600"_s, text, {}, {}},
            {u"1999-07-05"_s, u"1"_s, u"a, b; c:\\temp"_s, u"a, b; c:\\temp"_s, u"\">b; c:\\temp"_s, {}},
            {u"1999-07-06"_s, u"1"_s, u"one"_s, u"one\ntwo"_s, {}, {}},
            {u"1999-07-07"_s, u"1"_s, u"1999-07-07 Wednesday"_s, {}, {}, {}},
            {u"1999-07-01"_s, u"1"_s, u"Memo 3: plan"_s, u"plan\nmore"_s, {}, {}},
            {u"1999-12-31T23:50:00"_s, u"0.0104167"_s, u"ring"_s, u"ring\nloud"_s, {}, u"0.0"_s},
            {u"1999-12-31T23:50:00"_s, u"0.0104167"_s, u"Alarm"_s, {}, {}, u"0.0"_s},
        };
        for (qsizetype i = 0; i < expected.size(); ++i)
            QCOMPARE(entries.value(i), expected[i]);
        QCOMPARE(entries.size(), expected.size());
        // The reader misreads a backslash before these letters.
        const Extract hard{u"Mine"_s, {Note(u"1999/7/4"_s, "x\\n\\;y")}, {}, {}};
        QVERIFY(WriteICalendar(hard, {}).contains("SUMMARY:x\\\\n\\\\\\;y\r\n"));
    }

    // Whichever way is taken, the event stands in the same days.
    void AnEventKeepsItsDays()
    {
        using enum Frequency;
        const QByteArray text = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs16\\b Rent\\b0 , due\\par}";
        for (const auto& [what, frequency, first, last, step, rule] :
             Rows<Frequency, QString, QString, int, QByteArray>{
                 {"every 2 weeks", Weekly, u"1999/1/5"_s, u"1999/6/1"_s, 2, "FREQ=WEEKLY;UNTIL=19990525;INTERVAL=2"},
                 {"every 3 days", Daily, u"1999/12/20"_s, u"2000/1/2"_s, 3, "FREQ=DAILY;UNTIL=20000101;INTERVAL=3"},
                 {"the 15th", Monthly, u"1999/11/15"_s, u"2000/3/20"_s, 1, "FREQ=MONTHLY;UNTIL=20000315"},
                 {"the 31st", Monthly, u"1999/1/31"_s, u"1999/12/31"_s, 1, ""},
                 {"the 31st where there is one", Monthly, u"1999/3/31"_s, u"1999/8/31"_s, 5,
                  "UNTIL=19990831;INTERVAL=5"},
                 {"leap days", Yearly, u"1996/2/29"_s, u"2008/3/1"_s, 4, "FREQ=YEARLY;UNTIL=20080229;INTERVAL=4"},
                 {"the end of February", Yearly, u"1996/2/29"_s, u"2000/3/1"_s, 1, ""},
                 {"weeks around a day that nobody else has", Weekly, u"1900/2/2"_s, u"1900/4/1"_s, 1, ""},
                 {"a first day that nobody else has", Yearly, u"1900/2/29"_s, u"1912/3/1"_s, 4, ""},
                 {"one day", Daily, u"1999/1/5"_s, u"1999/1/5"_s, 1, ""},
             }) {
            const InRow row(this, what);
            Extract extract;
            const QStringList days = AddEvent(extract, frequency, first, last, step, text);
            const QByteArray file = WriteICalendar(extract, {});
            QCOMPARE(file.count("RRULE"), rule.isEmpty() ? 0 : 1);
            QVERIFY2(file.contains(rule), file);
            QCOMPARE(file.count("BEGIN:VEVENT"), rule.isEmpty() ? days.size() : 1);
            QCOMPARE(Read(file, {u"1890"_s, u"2020"_s}), Occurrences(days, u"Rent, due"_s));
        }
    }

    // A day that a person changed stays a day, and so does an event that few days still hold.
    void WhatWasChangedByHandStaysInItsDay()
    {
        Extract extract{u"Mine"_s, {Note(u"1999/1/12"_s, "Dentist")}, {}, {}};
        const QByteArray rent = "{\\rtf1\\ansi Rent\\par}";
        const QStringList days = AddEvent(extract, Frequency::Daily, u"1999/1/4"_s, u"1999/1/9"_s, 1,
                                          "{\\rtf1 Rent\\par\\par and gas\\par}");
        QStringList tuesdays = AddEvent(extract, Frequency::Weekly, u"1999/1/5"_s, u"1999/4/6"_s, 1, rent);
        const QStringList thursdays = AddEvent(extract, Frequency::Weekly, u"1999/1/7"_s, u"1999/4/8"_s, 2, rent);
        extract.events.push_back({{1999, 1, 4}, {1999, 1, 9}, Frequency::Daily, "\n "});
        const QStringList gone = AddEvent(extract, Frequency::Monthly, u"1999/5/2"_s, u"1999/12/2"_s, 1, "Gone");
        for (auto& [day, memo, rtf] : extract.notes) {
            if (KeyOf(day) == tuesdays[3]) rtf = "Rent (paid)";
            if (gone.mid(2, 3).contains(KeyOf(day))) rtf.clear();
        }
        std::ranges::reverse(extract.events); // the longest text last
        const QByteArray file = WriteICalendar(extract, {});
        QCOMPARE(file.count("RRULE"), 3);
        QCOMPARE(file.count("EXDATE"), 1);
        QVERIFY(file.contains("EXDATE;VALUE=DATE:19990126\r\n"));
        QList<QStringList> expected = Occurrences({tuesdays[3]}, u"Rent (paid)"_s);
        tuesdays.removeAt(3);
        expected += Occurrences({u"1999/1/12"_s}, u"Dentist"_s) + Occurrences(days + tuesdays + thursdays, u"Rent"_s) +
                    Occurrences(gone.first(2) + gone.mid(5), u"Gone"_s);
        std::ranges::sort(expected);
        QCOMPARE(Read(file, {u"1990"_s, u"2000"_s}), expected);
    }

    void ASecondExportUpdatesTheFirst()
    {
        Extract extract{u"Mine"_s, {Note(u"1999/7/4"_s, "one"), Note(u"1999/7/5"_s, "two")}, {}, {}};
        const auto sequences = [&] {
            QStringList numbers;
            for (const QStringList& entry : Read(WriteICalendar(extract, {})))
                numbers += entry[Sequence];
            return numbers;
        };
        const auto wait = [](int seconds) { desktopclock::SetForTests(desktopclock::Now().addSecs(seconds)); };
        const QByteArray file = WriteICalendar(extract, {});
        wait(3600);
        QCOMPARE(WriteICalendar(extract, {}), file);
        const int first = sequences()[0].toInt();
        QCOMPARE(first, QDateTime({2026, 1, 1}, {}, Qt::UTC).secsTo(desktopclock::Now()) / 60 - 60);
        extract.notes[1].rtf = "changed";
        QCOMPARE(sequences(), QStringList({QString::number(first), QString::number(first + 60)}));
        wait(-7200);
        extract.notes[1].rtf = "changed again";
        {
            const FullDisk full(0);
            QVERIFY(WriteICalendar(extract, {}).contains("changed again"));
        }
        QCOMPARE(sequences(), QStringList({QString::number(first), QString::number(first + 61)}));

        const QDir folder(folders::ApplicationDirectory() + u"/exports"_s);
        const QString stamps = folder.filePath(folder.entryList(QDir::Files).value(0));
        SetContent(stamps, Content(stamps).first(50) + "\n\xff x y z\n\n1 2");
        QCOMPARE(sequences(), QStringList(2, QString::number(first - 60)));
    }
};

ORRELIN_TEST(ICalendarTest)
#include "icalendartest.moc"
