#include "../tests/platform/engine/testserver.h"
#include "plannerfile/schema.h"
#include "platform/engine/dbengine.h"
#include "platform/richtext/rtftextview.h"
#include "rawplanner.h"
#include "rawserver.h"
#include "rows.h"
#include "tools/wordsearch.h"

#include <QDate>
#include <QFileInfo>

namespace {
constexpr int Days = 36500;
constexpr int DayOfRareWord = 20000; // index of the day, from the first
constexpr Turns Few{15};
constexpr Turns Many{30, 20};
const QString DateField = u"qmtDate"_s;

QString KeyOf(const QDate& day)
{
    return u"%1/%2/%3"_s.arg(day.year()).arg(day.month()).arg(day.day());
}

QByteArray TextOf(int day)
{
    QByteArray rtf = RtfOf(MakeNote(day));
    if (day == DayOfRareWord) rtf.insert(rtf.lastIndexOf('}'), " Zebrafink Zahn\\u228?rztin");
    return rtf;
}

// A planner with a note on every day of a hundred years, open by the engine and by the bare library.
struct Century
{
    explicit Century(const QString& path)
    {
        Write(path);
        planner = DBEngine::OpenDatabase(path);
        notes = planner.CreateDynaset(schema::Notes);
        raw = std::make_unique<RawPlanner>(path, RawPlanner::Locking::Shared);
        SetTextView(RtfTextView);
    }

    static void Write(const QString& path)
    {
        Database made = DBEngine::CreateDatabase(path, schema::Locale);
        made.Append(schema::NotesTable());
        Recordset records = made.OpenTable(schema::Notes);
        WriteTransaction writing(made);
        for (int day = 0; day < Days; ++day) {
            records.AddNew();
            records.SetField(DateField, KeyOf(QDate(1950, 1, 1).addDays(day)));
            records.SetField(u"qmtText"_s, TextOf(day));
            records.Update();
        }
        writing.Commit();
    }

    static QString Criterion(const QString& word) { return u"[qmtText] LIKE '*%1*'"_s.arg(word); }

    // Searches backwards from the last record or from the previous hit.
    void Find(const QString& word)
    {
        notes.FindLast(Criterion(word));
        found = notes.NoMatch() ? QString() : notes.Fields(DateField).toString();
    }
    void FindNext(const QString& word)
    {
        notes.FindPrevious(Criterion(word));
        found = notes.NoMatch() ? QString() : notes.Fields(DateField).toString();
    }

    Database planner;
    Recordset notes;
    std::unique_ptr<RawPlanner> raw;
    QString found;
    QString foundRaw;
};

Century& In(const QString& planner)
{
    static Century century(QFileInfo(planner).path() + u"/century.mdb"_s);
    return century;
}

// The same on a server.
struct CenturyOnServer
{
    explicit CenturyOnServer(const QString& path)
    {
        QFile::copy(QFileInfo(path).path() + u"/century.mdb"_s, path);
        const QString address = TestServer::Get().Uri(u"century"_s);
        DBEngine::MoveToServer(path, address);
        planner = DBEngine::OpenDatabase(path);
        raw = std::make_unique<RawServer>(address);
    }

    Database planner;
    std::unique_ptr<RawServer> raw;
    std::size_t foundRaw = 0;
};

CenturyOnServer& OnServer(const QString& planner)
{
    In(planner);
    static CenturyOnServer century(QFileInfo(planner).path() + u"/centurylink.mdb"_s);
    return century;
}

// The list of all notes with the word, in slices as between keys.
struct List
{
    static List& Of()
    {
        static List list;
        return list;
    }
    void Begin(const Database& planner, const QString& word)
    {
        search.Begin(planner, WordQuery(word), {});
        while (search.Found().empty() && !search.IsDone())
            search.Step(QDeadlineTimer(Slice));
    }
    void Finish()
    {
        while (!search.IsDone())
            search.Step(QDeadlineTimer(Slice));
    }
    std::size_t Count() const { return search.Found().size(); }

    static constexpr int Slice = 8; // milliseconds
    WordSearch search;
};

struct Search
{
    const char* name;
    const char16_t* word;
    const char* like; // the pattern as stored text has it
};

void AddListRows(const TakeRow& add, const QString& planner)
{
    struct Counted
    {
        Search search;
        std::size_t least, most;
    };
    static constexpr Counted rows[] = {
        {{"list a rare word", u"zebrafink", "%zebrafink%"}, 1, 1},
        {{"list a common word", u"garden", "%garden%"}, Days / 2, Days},
        {{"list no word", u"zebrafinch", "%zebrafinch%"}, 0, 0},
    };
    const auto century = [planner]() -> Century& { return In(planner); };
    for (const Counted& row : rows) {
        const QString word = QString::fromUtf16(row.search.word);
        add({row.search.name,
             {[=] { List::Of().Begin(century().planner, word), List::Of().Finish(); }, [=] { century(); },
              [=] { return List::Of().Count() >= row.least && List::Of().Count() <= row.most; }},
             {[=] { century().raw->CountLike(row.search.like); }, [=] { century(); }},
             Few});
    }
    const QString common = u"garden"_s, rare = u"zebrafink"_s;
    add({"list the first of a common word",
         {[=] { List::Of().Begin(century().planner, common); }, [=] { century(); },
          [] { return List::Of().Count() > 0; }},
         {[=] { century().foundRaw = century().raw->FindLike("%garden%"); }, [=] { century(); }},
         Few});
    add({"list one letter more",
         {[=] { List::Of().search.Narrow(WordQuery(common)), List::Of().Finish(); },
          [=] { List::Of().Begin(century().planner, common.chopped(1)), List::Of().Finish(); },
          [] { return List::Of().Count() > Days / 2; }},
         {[=] { century().raw->CountLike("%garden%"); }, [=] { century(); }},
         Few});
    const auto server = [planner]() -> CenturyOnServer& { return OnServer(planner); };
    add({"list a rare word, server",
         {[=] { List::Of().Begin(server().planner, rare), List::Of().Finish(); }, [=] { server(); },
          [] { return List::Of().Count() == 1; }},
         {[=] { server().foundRaw = server().raw->ReadAll(); }, [=] { server(); },
          [=] { return server().foundRaw == Days; }},
         Few});
}

} // namespace

void AddFindRows(const TakeRow& add, const QString& planner)
{
    AddListRows(add, planner);
    static constexpr Search searches[] = {
        {"find a rare word", u"zebrafink", "%zebrafink%"},
        {"find a rare word with an umlaut", u"ZAHN\u00c4RZTIN", "%zahn\\u228?rztin%"},
        {"find no word", u"zebrafinch", "%zebrafinch%"},
    };
    const auto century = [planner]() -> Century& { return In(planner); };
    for (const Search& search : searches) {
        const QString word = QString::fromUtf16(search.word);
        const bool isThere = std::string_view(search.name) != "find no word";
        add({search.name,
             {[=] { century().Find(word); }, [=] { century().found.clear(); },
              [=] { return century().found.isEmpty() != isThere; }},
             {[=] { century().foundRaw = century().raw->FindLike(search.like); }, [=] { century(); },
              [=] { return century().foundRaw.isEmpty() != isThere; }},
             Few});
    }
    const QString common = u"garden"_s;
    add({"find the next of a common word",
         {[=] { century().FindNext(common); },
          [=] {
              if (century().found.isEmpty()) century().Find(common);
          },
          [=] { return !century().found.isEmpty(); }},
         {[=] { century().foundRaw = century().raw->FindLike("%garden%", century().foundRaw); }, [=] { century(); },
          [=] { return !century().foundRaw.isEmpty(); }},
         Many});
}
