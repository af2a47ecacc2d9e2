#include "plannerfile/schema.h"
#include "platform/engine/dbengine.h"
#include "platform/richtext/rtftextview.h"
#include "rawplanner.h"
#include "rows.h"

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

struct Search
{
    const char* name;
    const char16_t* word;
    const char* like; // the pattern as stored text has it
};
} // namespace

void AddFindRows(const TakeRow& add, const QString& planner)
{
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
