#include "../tests/platform/engine/testserver.h"
#include "plannerfile/schema.h"
#include "platform/engine/postgres/plannerlink.h"
#include "rawserver.h"
#include "rows.h"

#include <list>

namespace {
constexpr Turns ManyDays{30, 4};
constexpr int IdleSessions = 50;
const QString Equal = u"="_s;
const QString TextField = u"qmtText"_s;

// Changes a byte each time, since storing an unchanged row might cost less.
QByteArray NextNote()
{
    static QByteArray note = RtfOf(MakeNote(1));
    note.back() = note.back() == ' ' ? '\n' : ' ';
    return note;
}

const QStringList& Keys()
{
    static const QStringList keys = KeysOf(ThisMonth());
    return keys;
}

// A workgroup's planner, open by the engine and by the bare library. Made when first measured.
template <typename Raw>
struct Shared
{
    Shared(const QString& path, std::unique_ptr<Raw> rawPlanner)
        : planner(DBEngine::OpenDatabase(path)), notes(schema::OpenNotes(planner)), raw(std::move(rawPlanner))
    {
    }

    void Refresh()
    {
        found = 0;
        const ReadTransaction reading(planner);
        reading.Expect(notes, QVariantList(Keys().cbegin(), Keys().cend()));
        for (const QString& key : Keys()) {
            notes.Seek(Equal, key);
            found += notes.NoMatch() || notes.Fields(TextField).toByteArray().isEmpty() ? 0U : 1U;
        }
    }

    // Holds a day as typing does: on a recordset of its own.
    void LockAndUnlock()
    {
        Recordset day = schema::OpenNotes(planner);
        day.Seek(Equal, Keys().first());
        day.Edit();
        day.SetField(TextField, NextNote());
        day.Update();
    }

    Database planner;
    Recordset notes;
    std::unique_ptr<Raw> raw;
    std::size_t found = 0;
};

QString Beside(const QString& planner, const char* name)
{
    return QFileInfo(planner).path() + u'/' + QLatin1StringView(name);
}

QString LinkBeside(const QString& planner)
{
    return Beside(planner, "linked.mdb");
}

QString Address()
{
    return TestServer::Get().Uri(u"bench"_s);
}

Shared<RawPlanner>& InFile(const QString& planner)
{
    static Shared<RawPlanner> shared = [&] {
        const QString path = Beside(planner, "shared.mdb");
        QFile::copy(planner, path);
        return Shared<RawPlanner>(path, std::make_unique<RawPlanner>(path, RawPlanner::Locking::Shared));
    }();
    return shared;
}

Shared<RawServer>& OnServer(const QString& planner)
{
    static Shared<RawServer> shared = [&] {
        QFile::copy(planner, LinkBeside(planner));
        DBEngine::MoveToServer(LinkBeside(planner), Address());
        return Shared<RawServer>(LinkBeside(planner), std::make_unique<RawServer>(Address()));
    }();
    return shared;
}

// Writes the day in one transaction. Reading the cells takes one more.
void WriteRaw(RawPlanner& raw)
{
    raw.Write({Keys().first()}, {NextNote()});
}
void WriteRaw(RawServer& raw)
{
    raw.LockAndWrite(Keys().first(), NextNote());
}

template <typename Raw>
void AddStore(const TakeRow& add, const char* store, const std::function<Shared<Raw>&()>& shared)
{
    const auto ready = [shared] { shared().found = 0; };
    const auto readAll = [shared] { return shared().found == BoxCount; };
    add({std::string("refresh 35 cells, ") + store,
         {[shared] { shared().Refresh(); }, ready, readAll},
         {[shared] { shared().raw->Read(Keys()); }, ready},
         ManyDays});
    add({std::string("lock, unlock, refresh, ") + store,
         {[shared] { shared().LockAndUnlock(), shared().Refresh(); }, ready, readAll},
         {[shared] { WriteRaw(*shared().raw), shared().raw->Read(Keys()); }, ready},
         ManyDays});
}

double ServerMegabytes()
{
    double sum = 0;
    for (const QString& process : TestServer::Get().Ask(u"SELECT pid FROM pg_stat_activity"_s)) {
        QFile file(u"/proc/%1/smaps_rollup"_s.arg(process));
        if (!file.open(QIODevice::ReadOnly)) continue;
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith("Pss:")) sum += line.simplified().split(' ').at(1).toDouble() / 1024;
    }
    return sum;
}

// The server's extra memory for so many idle programs with the planner open.
template <typename Open>
double CostOf(Open open)
{
    const double before = ServerMegabytes();
    std::list<decltype(open())> sessions;
    for (int session = 0; session < IdleSessions; ++session)
        sessions.push_back(open());
    return ServerMegabytes() - before;
}

Database OpenAndShow(const QString& link)
{
    Database planner{plannerlink::Open(link, false)};
    planner.OnChange([](const QString&, const QVariant&) {});
    Recordset notes = schema::OpenNotes(planner);
    const ReadTransaction reading(planner);
    reading.Expect(notes, QVariantList(Keys().cbegin(), Keys().cend()));
    return planner;
}

std::unique_ptr<RawServer> OpenRaw()
{
    auto raw = std::make_unique<RawServer>(Address());
    raw->Read(Keys());
    return raw;
}
} // namespace

void AddWorkgroupRows(const TakeRow& add, const AddMemory& addMemory, const QString& planner)
{
    AddStore<RawPlanner>(
        add, "file", [planner]() -> auto& { return InFile(planner); });
    AddStore<RawServer>(
        add, "server", [planner]() -> auto& { return OnServer(planner); });
    const auto link = [planner] { return OnServer(planner), LinkBeside(planner); };
    addMemory({"50 idle sessions, in the server", [link] { return CostOf([=] { return OpenAndShow(link()); }); },
               [link] { return link(), CostOf(OpenRaw); }, 3});
}
