#include "plannerfile/schema.h"
#include "recurrence/recurrence.h"
#include "rows.h"
#include "state/plannerstate.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {
constexpr Turns FewTurns{7};
constexpr int FirstYear = 2000, LastYear = 2009;

QStringList AllDays()
{
    static const QStringList days =
        EventDates(Frequency::Daily, u"%1/1/1"_s.arg(FirstYear), u"%1/12/31"_s.arg(LastYear), 1);
    return days;
}

QByteArray EventRtf()
{
    static const QByteArray rtf = [] {
        Note note = MakeNote(0);
        note.front().text = u"Recurring"_s;
        note.front().endsParagraph = false;
        return RtfOf({note.front()});
    }();
    return rtf;
}

Recurrence Event()
{
    return {EventRtf(), QTextCharFormat()};
}

// The days' contents before a step.
enum class Days
{
    Empty,
    WithNotes,
    WithEvent
};

// By day: the note, or the note with the event below.
const std::vector<QByteArray>& TextsOf(Days days)
{
    static const auto make = [](bool withEvent) {
        std::vector<QByteArray> texts;
        EventText event(EventRtf(), {});
        for (int day = 0; day < AllDays().size(); ++day) {
            const QByteArray note = RtfOf(MakeNote(day));
            texts.push_back(withEvent ? event.AppendedTo(note) : note);
        }
        return texts;
    };
    static const std::vector<QByteArray> withNotes = make(false), withEvent = make(true);
    return days == Days::WithNotes ? withNotes : withEvent;
}

// Opens a planner in place of the window's, which its destructor restores.
class OpenHere
{
public:
    explicit OpenHere(const QString& path) : m_aside{g_dbPlanner, g_rsQMT, g_rsRecurse}
    {
        g_dbPlanner = DBEngine::OpenDatabase(path, true);
        g_rsQMT = schema::OpenNotes(g_dbPlanner);
        g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    }
    ~OpenHere() { std::tie(g_dbPlanner, g_rsQMT, g_rsRecurse) = m_aside; }
    OpenHere(const OpenHere&) = delete;
    OpenHere& operator=(const OpenHere&) = delete;

private:
    std::tuple<Database, Recordset, Recordset> m_aside;
};

// A fresh copy of the planner for each step.
class EventPlanner
{
public:
    EventPlanner(const QString& name, Days days) : m_name(name), m_days(days) {}

    void Prepare()
    {
        if (!QFile::exists(Path(false))) Make();
        m_raw.reset();
        m_open.reset();
        QFile::remove(Path(true));
        QFile::copy(Path(false), Path(true));
    }
    void Open() { Prepare(), m_open = std::make_unique<OpenHere>(Path(true)); }
    void OpenRaw() { Prepare(), m_raw = std::make_unique<RawPlanner>(Path(true)); }

    void Write() const { Event().Save(Frequency::Daily, u"1/1/%1"_s.arg(FirstYear), u"12/31/%1"_s.arg(LastYear), 1); }
    void TakeOut() const { Event().TakeOut(Frequency::Daily, AllDays().first(), AllDays().last()); }
    void Put(const std::vector<QByteArray>& texts) const
    {
        m_raw->AddEvent();
        m_raw->Put(AllDays(), texts);
    }
    bool HoldsEvent(bool expected)
    {
        g_rsQMT.Seek(u"="_s, AllDays().last());
        const bool holds = g_rsQMT.Fields(u"qmtText"_s).toByteArray().contains("Recurring");
        m_open.reset();
        return holds == expected;
    }

private:
    QString Path(bool isCopy) const
    {
        static const QTemporaryDir folder;
        return folder.filePath(m_name + (isCopy ? u" copy.mdb"_s : u".mdb"_s));
    }

    void Make() const
    {
        Database planner = DBEngine::CreateDatabase(Path(false), schema::Locale);
        for (const TableDef& table : {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()})
            planner.Append(table);
        if (m_days == Days::Empty) return;
        Recordset notes = schema::OpenNotes(planner);
        WriteTransaction writing(planner);
        for (qsizetype i = 0; i < AllDays().size(); ++i) {
            notes.AddNew();
            notes.SetField(u"qmtDate"_s, AllDays().at(i));
            notes.SetField(u"qmtText"_s, TextsOf(m_days)[std::size_t(i)]);
            notes.Update();
        }
        writing.Commit();
    }

    QString m_name;
    Days m_days;
    std::unique_ptr<OpenHere> m_open;
    std::unique_ptr<RawPlanner> m_raw;
};

Row WriteRow(const char* name, EventPlanner& planner, const std::vector<QByteArray>& texts)
{
    return {name,
            {[&] { planner.Write(); }, [&] { planner.Open(); }, [&] { return planner.HoldsEvent(true); }},
            {[&] { planner.Put(texts); }, [&] { planner.OpenRaw(); }},
            FewTurns};
}
} // namespace

void AddEventRows(const TakeRow& add)
{
    static EventPlanner empty(u"empty"_s, Days::Empty);
    static EventPlanner full(u"full"_s, Days::WithNotes);
    static EventPlanner withEvent(u"event"_s, Days::WithEvent);
    static const std::vector<QByteArray> alone(std::size_t(AllDays().size()), EventRtf());
    add(WriteRow("event of ten years, empty days", empty, alone));
    add(WriteRow("event of ten years, days with notes", full, TextsOf(Days::WithEvent)));
    add({"event of ten years, taken out",
         {[&] { withEvent.TakeOut(); }, [&] { withEvent.Open(); }, [&] { return withEvent.HoldsEvent(false); }},
         {[&] { withEvent.Put(TextsOf(Days::WithNotes)); }, [&] { withEvent.OpenRaw(); }},
         FewTurns});
}
