#include "calendars.h"
#include "errorof.h"
#include "exchange/writers.h"
#include "files.h"
#include "platform/engine/longwork.h"
#include "support.h"
#include "testmain.h"

#include <QImage>

using namespace calendars;

// iCalendar files however they stand on the disk, broken and hostile ones, and our own.
class ICalendarImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // However the bytes stand, the same entries come in.
    void Bytes()
    {
        const QByteArray file =
            Calendar(Event("DTSTART:20240105T090000\nSUMMARY:M\xc3\xbcller\nDESCRIPTION:a\\nb") +
                     "BEGIN:VEVENT\nDTSTART:20240106\nEND:VEVENT\n\n\nBEGIN:VEVENT\nDTSTART:x\nEND:VEVENT\n");
        const QString expected = u"01-05 09:00 Müller/a/b | 01-06 Event | Line 15: An entry has no real date: \"x\""_s;
        const auto with = [&file](const QByteArray& old, const QByteArray& now) {
            return QByteArray(file).replace(old, now);
        };
        const QByteArray utf16 = QStringEncoder(QStringConverter::Utf16LE)(QString::fromUtf8(file));
        for (const auto& [what, bytes] : Rows<QByteArray>{
                 {"LF", file},
                 {"CR LF", with("\n", "\r\n")},
                 {"CR", with("\n", "\r")},
                 {"CR CR LF", with("\n", "\r\r\n")},
                 {"byte order mark", "\xef\xbb\xbf" + file},
                 {"UTF-16 with a mark", "\xff\xfe" + utf16},
                 {"UTF-16", utf16},
                 {"UTF-16BE", QStringEncoder(QStringConverter::Utf16BE)(QString::fromUtf8(file))},
                 {"Latin-1", QString::fromUtf8(file).toLatin1()},
                 {"NUL", with("TEND", QByteArray("T\0END", 5)).replace("DTSTART", QByteArray("DT\0START", 8))},
                 {"lower case", with("BEGIN:VEVENT", "begin:vevent").replace("DTSTART", "dtstart")},
                 {"folded", with("ART:2024", "A\n RT:\n\t2024")
                                .replace("\nBEGIN:VEVENT\nDTSTART:x", "BEGIN:VEVENT\nDTSTART:x")
                                .replace("\nEND:VCALENDAR", "")},
                 {"no ends", with("END:VEVENT", "")},
                 {"no calendar", with("BEGIN:VCALENDAR", "").replace("END:VCALENDAR\n", "")},
                 {"a letter around", with("BEGIN:VCALENDAR\n", "BEGIN:VCALENDAR\n") + "-- \nyours\n"},
             }) {
            const InRow row(this, what);
            QCOMPARE(Shown(Read(bytes)).section(u" | "_s, 0, 1), expected.section(u" | "_s, 0, 1));
            if (!bytes.contains("A\n RT")) QCOMPARE(Shown(Read(bytes)), expected);
        }
    }

    void Files()
    {
        const QString dentist =
            u"03-15 09:15 Zahnarzt Dr. Müller/Karte mitbringen, nüchtern/zweite Zeile; Ende | 03-31 Ostern — Familie !03-30 12:00"_s;
        QStringList notes;
        for (int i = 1; i <= 10; ++i)
            notes += u"07-%1 Note %2/Line one/line two ✓"_s.arg(i, 2, 10, QChar(u'0')).arg(i);
        for (
            const auto& [name, expected] : Rows<QString>{
                {"cr-only", dentist},
                {"crcrlf", dentist},
                {"lf-only", dentist},
                {"mail-around", dentist},
                {"no-newline-at-end", dentist},
                {"utf16le-bom", dentist},
                {"latin1", QString(dentist).replace(u'—', u'-')},
                {"missing-end", u"01-02 10:00 first, without END | 01-03 10:00 second"_s},
                {"empty", u"The file is empty."_s},
                {"bad-dates",
                 u"01-01 09:00 no seconds | 01-05 10:00 ISO form | 01-08 date with time | 01-09 date without VALUE | 01-10 10:00 good neighbour | Line 7: \"30 February\" has no real date: \"20240230T090000Z\" | Line 13: \"month 13\" has no real date: \"20241301T090000Z\" | Line 19: \"hour 25\" has no real date: \"20240101T250000Z\" | Line 25: \"word\" has no real date: \"tomorrow\" | Line 31: \"empty\" has no real date: \"\" | Line 34: \"none\" has no date."_s},
                {"never",
                 u"(Line 15%1) 01-01 11:00 30 February daily | (Line 22%1) 01-01 11:00 30 February secondly | (Line 8%1) 01-01 30 February | 01-02 10:00 good neighbour"_s
                     .arg(u": the rule cannot be followed, so it stands once."_s)},
                {"override-kinds",
                 u"05-06 09:00 weekly 06-03 06-10 | 05-14 11:00 moved to Tuesday | 05-20 12:00 id in UTC, moved to noon | (Cancelled: what was imported of it is taken out.) - 05-27 09:00 cancelled | 05-29 09:00 id that the rule never makes"_s},
                {"monthday-last",
                 u"01-30 last of 28 to 31 01-31 02-29 03-31 ... | 01-31 31st, only months that have it 03-31 ... | 01-31 last day of the month 02-29 03-31 ... | 02-29 29 February yearly ..."_s},
                {"notes-of-days", notes.join(u" | "_s)},
                {"windows-zone",
                 u"07-15 02:00 Tokyo by its Windows name | 07-15 09:00 Berlin by its Windows name, no VTIMEZONE"_s},
            }) {
            const InRow row(this, name);
            QCOMPARE(Shown(Read(Content(u"%1/made-%2.ics"_s.arg(QStringLiteral(CALENDARS), QLatin1StringView(name))))),
                     expected);
        }
    }

    // Bounded, whatever a file says.
    void HugeAndHostile()
    {
        const auto times = [](int count, const QByteArray& lines) {
            QByteArray content;
            for (int i = 0; i < count; ++i)
                content += "BEGIN:VEVENT\nUID:" + QByteArray::number(i) + "\nDTSTART:" + lines + "\nEND:VEVENT\n";
            return Read(Calendar(content));
        };
        QCOMPARE(times(5000, "20240105T090000Z\nSUMMARY:x\nDESCRIPTION:text").entries.size(), 5000U);
        const ImportedFile never = times(300, "20240105\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30");
        QCOMPARE(never.entries.size(), 300U);
        QVERIFY(std::ranges::any_of(never.entries, [](const auto& e) { return e.remark.contains(u"too long"_s); }));
        const ImportedFile daily = times(60, "19600105\nDURATION:P400D\nRRULE:FREQ=YEARLY");
        qsizetype days = 0;
        for (const ImportedEntry& entry : daily.entries)
            days += std::ssize(entry.notes);
        QVERIFY(days > 490'000 && days <= 500'000); // overlapping ones count, too
        QCOMPARE(daily.entries.front().remark, u"Only its first 10,000 days are taken."_s);
        QCOMPARE(times(5000, "x").leftOut.size(), 101);
    }

    void Refusals()
    {
        const QString undated = u"The file has no entry with a date that can be read."_s;
        for (const auto& [what, file, refusal] : Rows<QByteArray, QString>{
                 {"nothing", "\n \n", u"The file is empty."_s},
                 {"another file", "\r\n\x89PNG\r\n", u"Line 2 is not iCalendar: \"‰PNG\""_s},
                 {"a card", "BEGIN:VCARD\nEND:VCARD", u"Line 1 is not iCalendar: \"BEGIN:VCARD\""_s},
                 {"no entry", Calendar(""), undated},
                 {"no date", Calendar(Event("DTSTART:x")), undated + u" Line 4: \"Meet\" has no real date: \"x\""_s},
             }) {
            const InRow row(this, what);
            QCOMPARE(Read(file).refusal, refusal);
        }
    }

    // Our own entries come back as what they were.
    void OwnExport()
    {
        const TemporaryFolders folders;
        const QByteArray bold = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs16 a \\b b\\b0\\par c\\par}";
        const Extract extract{u"Mine"_s,
                              {{{1900, 2, 29}, 0, bold},
                               {{1999, 7, 4}, 0, " 9:00 M\xc3\xbcller, Str.; C:\\temp\n\n\tx"},
                               {{1999, 7, 5}, 0, bold},
                               {{1999, 7, 0}, 3, "plan\nmore"},
                               {{1999, 8, 1}, 0, "Rent"},
                               {{1999, 8, 2}, 0, "Rent"},
                               {{1999, 8, 3}, 0, "Rent"}},
                              {{{1900, 2, 29}, 5, "leap"}, {{1999, 12, 31}, 1430, bold}, {{1999, 12, 31}, 1430, ""}},
                              {{{1999, 8, 1}, {1999, 8, 3}, Frequency::Daily, "Rent"}}};
        const QByteArray written = WriteICalendar(extract, {});
        const ImportedFile file = Read(written);
        QCOMPARE(Shown(Read(QByteArray(written).replace(":VALARM", ":X-LOST"))), Shown(file));
        QCOMPARE(
            Shown(file),
            u"!1900-02-29 00:05 | 1900-02-29 a b/c | 1999-07 Memo 3 plan/more | 1999-07-04  9:00 Müller, Str.; C:\\temp//\tx | 1999-07-05 a b/c | 1999-08-01 Rent 1999-08-02 1999-08-03 | !1999-12-31 23:50 | !1999-12-31 23:50"_s);
        for (const ImportedEntry& entry : file.entries) {
            const QByteArray rtf = entry.notes.empty() ? entry.alarms.front().rtf : entry.notes.front().rtf;
            QCOMPARE(rtf.contains("a \\b b\\par"), entry.title.endsWith(u"a b"_s));
        }
    }

    // A page of an entry may name files of this machine.
    void LoadsNoFile()
    {
        const TemporaryFolders folders;
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(folders.Path(u"a.png"_s)));
        const QByteArray link = QUrl::fromLocalFile(folders.Path(u"a.png"_s)).toEncoded();
        for (const QByteArray& tag :
             {"<img src=\"" + link + "\">", "< \nIMG src='" + link + "'/>", "<im<img>g src=" + link + ">"}) {
            const ImportedFile file = Read(
                Calendar(Event("DTSTART:20240105\nX-ALT-DESC:<p>a" + QByteArray(tag).replace("\n", "\\n") + "b</p>")));
            const QByteArray rtf = file.entries.at(0).notes.at(0).rtf;
            QVERIFY2(!rtf.contains("\\pict") && PlainText(rtf).contains(u'a'), rtf);
        }
    }

    void CanBeEnded()
    {
        QByteArray content;
        for (int i = 0; i < 2000; ++i)
            content += Event("DTSTART:20240105").replace("UID:a", "UID:" + QByteArray::number(i));
        int asked = 0;
        longwork::SetWatch([&asked](double done) { return done < 0.5 || ++asked < 3; });
        const int error = ErrorOf([&] { Read(Calendar(content)); });
        longwork::SetWatch(nullptr);
        QVERIFY(error != 0);
        QCOMPARE(asked, 3);
    }
};

ORRELIN_TEST(ICalendarImportTest)
#include "icalendarimporttest.moc"
