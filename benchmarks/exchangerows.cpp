#include "exchange/exportfile.h"
#include "exchange/extraction.h"
#include "exchange/merging.h"
#include "exchange/readers.h"
#include "plannerfile/schema.h"
#include "platform/engine/dbengine.h"
#include "rawplanner.h"
#include "rows.h"
#include "tenyears.h"

#include <QFile>
#include <QTemporaryDir>

#include <libical/ical.h>

namespace {
constexpr Turns FewTurns{5};
constexpr int Events = 5000, DaysOfEvents = 1000;

QString Scratch(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

// The floor reads the same rows and writes as many bytes.
Row ExportRow(const char* name, const char* format, const QString& planner)
{
    const QString path = Scratch(QString::fromLatin1(format));
    const auto ours = [=] {
        const Database open = DBEngine::OpenDatabase(planner);
        WriteExport(ExtractFrom(open, u"bench"_s, {}), *FormatNamed(QString::fromLatin1(format)), path);
    };
    const auto floor = [=] {
        QStringList keys;
        const int first = ThisMonth().year - UsualYears / 2;
        for (YearMonth month{first, 1}; month.year < first + UsualYears; month = month.Next())
            keys += KeysOf(month);
        RawPlanner(planner, RawPlanner::Locking::Shared).Read(keys);
        QFile file(path + u".floor"_s);
        if (file.open(QIODevice::WriteOnly)) file.write(QByteArray(QFile(path).size(), 'x'));
    };
    const auto isThere = [=] { return QFile(path).size() > 0; };
    return {name, {ours, [] {}, isThere}, {floor}, FewTurns};
}

QByteArray FiveThousandEvents()
{
    QByteArray file = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//bench//EN\r\n";
    for (int i = 0; i < Events; ++i) {
        const QDate day = QDate(2026, 1, 1).addDays(i % DaysOfEvents);
        const QByteArray time = QByteArray::number(8 + i / DaysOfEvents).rightJustified(2, '0') + "3000";
        file += "BEGIN:VEVENT\r\nUID:" + QByteArray::number(i) +
                "@bench\r\nDTSTAMP:20260101T000000Z\r\nDTSTART:" + day.toString(u"yyyyMMdd'T'"_s).toLatin1() + time +
                "\r\nSUMMARY:Meeting " + QByteArray::number(i) +
                "\r\nLOCATION:Room 4\r\nDESCRIPTION:Bring the papers\\, and the plan.\r\nEND:VEVENT\r\n";
    }
    return file + "END:VCALENDAR\r\n";
}

const QByteArray& EventsFile()
{
    static const QByteArray file = FiveThousandEvents();
    return file;
}

void MakeEmpty(const QString& path)
{
    QFile::remove(path);
    Database made = DBEngine::CreateDatabase(path, schema::Locale);
    for (const TableDef& table : schema::AllTables())
        made.Append(table);
}

void Import(const QString& path)
{
    const ImportedFile file = ReadICalendar(EventsFile(), {{}, QTimeZone::utc(), {2030, 1, 1}, {}});
    MergeInto(DBEngine::OpenDatabase(path), file.entries, QDateTime({2026, 1, 1}, {}), {});
}

bool HoldsAllDays(const QString& path)
{
    Recordset notes = schema::OpenNotes(DBEngine::OpenDatabase(path));
    notes.Seek(schema::Equal, u"2028/9/26"_s); // the last day
    return !notes.NoMatch() && notes.Fields(schema::TextField).toByteArray().count("Meeting") == Events / DaysOfEvents;
}

// libical's own walk over the file, and the same notes by the bare database library.
struct RawImport
{
    explicit RawImport(const QString& path)
    {
        MakeEmpty(path);
        Import(path);
        const Extract extract = ExtractFrom(DBEngine::OpenDatabase(path), {}, {});
        for (const ExtractedNote& note : extract.notes) {
            keys += KeyOf(note.day);
            texts.push_back(note.rtf);
        }
    }

    void operator()(const QString& path) const
    {
        icalcomponent* const calendar = icalparser_parse_string(EventsFile().constData());
        int events = 0;
        for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT); event;
             event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT))
            events += icalcomponent_get_summary(event) != nullptr;
        icalcomponent_free(calendar);
        if (events == Events) RawPlanner(path).Put(keys, texts);
    }

    QStringList keys;
    std::vector<QByteArray> texts;
};
} // namespace

void AddExchangeRows(const TakeRow& add, const QString& planner)
{
    add(ExportRow("export of ten years, iCalendar", "ics", planner));
    add(ExportRow("export of ten years, web page", "html", planner));
    const QString path = Scratch(u"import.mdb"_s);
    const auto empty = [path] { MakeEmpty(path); };
    const auto isWritten = [path] { return HoldsAllDays(path); };
    const auto raw = [path] {
        static const RawImport import(Scratch(u"made.mdb"_s));
        import(path);
    };
    add({"import of 5,000 events", {[path] { Import(path); }, empty, isWritten}, {raw, empty, isWritten}, FewTurns});
}
