#include "platform/engine/sqlite/repairing.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sql/sqldialect.h"
#include "platform/engine/sqlite/endable.h"
#include "platform/engine/sqlite/openfiles.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/engine/sqlite/rebuilding.h"
#include "platform/engine/sqlite/sqliteconnection.h"
#include "platform/engine/sqlite/wholefiles.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QUrl>

#include <SQLiteCpp/Column.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <sqlite3.h>
#include <tuple>

namespace {
using namespace engineerrors;
using namespace wholefiles;

constexpr KnownError NothingRead = {NotADatabase, u"'%1' is not a planner: nothing in it can be read."};
constexpr KnownError NothingLeft = {NotADatabase,
                                    u"Nothing can be read any more in the damaged planner '%1'. It is left as it was."};

// Of the whole work: the look at the planner, then what follows without the choice between two states.
constexpr double Looking = 0.25, Rebuilding = 0.6;

// A larger version is damage, not a newer program's.
constexpr int VersionLimit = 1000;

enum class Verdict
{
    Sound,
    Damaged,
    NotOurs // another program's, or a newer Orrelin's: refuse it as OpenDatabase does
};

Verdict JudgeOpened(SQLite::Database& library)
{
    const int id = library.execAndGet("PRAGMA application_id").getInt();
    const int version = library.execAndGet("PRAGMA user_version").getInt();
    const bool isOurs = id == plannerformat::ApplicationId;
    if (isOurs && version > plannerformat::Version && version <= VersionLimit) return Verdict::NotOurs;
    const Endable endable(library);
    if (library.execAndGet("PRAGMA integrity_check(1)").getString() != "ok") return Verdict::Damaged;
    if (isOurs && version == plannerformat::Version) return Verdict::Sound;
    // Perhaps only the mark of our program is damaged.
    const std::string ours = std::string("SELECT count(*) FROM sqlite_schema AS t JOIN pragma_table_info(t.name) AS c "
                                         "WHERE t.type = 'table' AND c.cid = 0 AND c.name = '") +
                             IdColumn.latin1() + "'";
    return library.execAndGet(ours).getInt() > 0 ? Verdict::Damaged : Verdict::NotOurs;
}

Verdict Judge(const std::string& name, int flags, const QString& path)
{
    try {
        SQLite::Database library(name, flags);
        library.tryExec("PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON");
        return JudgeOpened(library);
    } catch (const SQLite::Exception& error) {
        // Neither a failure of the disk nor the person's Cancel is damage of the planner.
        const int code = error.getErrorCode() & 0xff;
        if (code == SQLITE_FULL || code == SQLITE_IOERR || code == SQLITE_NOMEM || code == SQLITE_INTERRUPT)
            throw RunTimeErrorOf(error, Doing::Writing, QFileInfo(path).fileName());
        return Verdict::Damaged;
    }
}

// Judges a copy, since the library plays a journal back at its first look at the file.
Verdict Judge(const QString& copy)
{
    return Judge(QFile::encodeName(copy).toStdString(), SQLite::OPEN_READWRITE, copy);
}

// Judges the file without a journal, a lock or a write.
Verdict JudgeUntouched(const QString& path)
{
    const QByteArray uri = QUrl::fromLocalFile(path).toEncoded() + "?immutable=1";
    return Judge(uri.toStdString(), SQLite::OPEN_READONLY | SQLite::OPEN_URI, path);
}

// One state of the planner, with or without its journal played back, and what can be rebuilt from it.
struct State
{
    State(const QString& planner, const struct stat& status, QLatin1StringView suffix)
        : copy(planner + suffix, status), rebuilt(planner + suffix + ".new"_L1, status)
    {
        CopyInto(planner, copy.Path());
    }

    void Rebuild(const std::vector<TableDef>& expected)
    {
        const salvage::Result found = salvage::Read(Content(copy.Path()), expected);
        hasHead = found.hasHead;
        // Complete tables without rows count as found too.
        isFound = !found.tables.empty() && std::ranges::all_of(found.tables, &salvage::Table::complete);
        tables = rebuilding::Write(found.tables, rebuilt.Path());
        for (const RepairReport::Table& table : tables) {
            rows += table.Rows;
            cutRows += table.CutRows;
        }
        isFound = isFound || rows > 0;
    }
    std::tuple<bool, qint64, qint64> Worth() const { return {isFound, rows - cutRows, rows}; }

    ScratchFile copy;
    ScratchFile rebuilt;
    Verdict verdict = Verdict::Damaged;
    bool hasHead = false;
    bool isFound = false;
    std::vector<RepairReport::Table> tables;
    qint64 rows = 0, cutRows = 0;
};

class Repairer
{
public:
    // Without a lock file nobody has the planner open. A claim would make one, so it waits until the file is known to
    // be a planner.
    Repairer(const QString& planner, const std::vector<TableDef>& expected)
        : m_planner(planner), m_status(StatusOf(planner)), m_expected(expected)
    {
        if (Exists(LockFileOf(m_planner)) || OpenFile::IsOpenHere(m_status)) Claim();
        m_lock.emplace(m_planner);
    }

    RepairReport Run();

private:
    void Claim() { m_claim = ClaimAlone(m_planner); }
    void Look();
    void OpenAsEver();
    State& Choose();
    QString KeepDamaged() const;
    void Exchange(State& state);

    QString m_planner;
    struct stat m_status;
    const std::vector<TableDef>& m_expected;
    std::shared_ptr<ByteLocks> m_claim;
    std::optional<LibraryLock> m_lock;
    std::unique_ptr<State> m_asItIs;
    std::unique_ptr<State> m_playedBack; // if there is a journal to play back
};

RepairReport Repairer::Run()
{
    {
        const longwork::Part part(0, Looking);
        Look();
    }
    const State& likely = m_playedBack ? *m_playedBack : *m_asItIs;
    if (likely.verdict != Verdict::Damaged) {
        OpenAsEver();
        return {};
    }
    State& state = Choose();
    const QString name = QFileInfo(m_planner).fileName();
    if (!state.isFound) throw ErrorOf(state.hasHead ? NothingLeft : NothingRead, name);
    Claim();
    const QString kept = KeepDamaged();
    Exchange(state);
    return {kept, state.tables};
}

void Repairer::Look()
{
    m_asItIs = std::make_unique<State>(m_planner, m_status, ".asis"_L1);
    if (HasHotJournal(m_planner)) {
        m_playedBack = std::make_unique<State>(m_planner, m_status, ".back"_L1);
        const ScratchFile journal(JournalOf(m_playedBack->copy.Path()), m_status);
        CopyInto(JournalOf(m_planner), journal.Path());
        m_playedBack->verdict = Judge(m_playedBack->copy.Path());
        Sync(m_playedBack->copy.Path());
    }
    m_asItIs->verdict = Judge(m_asItIs->copy.Path());
}

// As in any open, the library plays back a journal. The copy has shown that the planner is sound then.
void Repairer::OpenAsEver()
{
    m_asItIs.reset();
    m_playedBack.reset();
    m_lock.reset();
    SqliteConnection planner(m_planner);
    planner.CheckUnlocked();
    Claim();
    planner.SetUp();
    planner.CheckHead();
}

// A journal that leaves a sound planner is right, even if it removes rows: they were never reported as saved. Otherwise
// the journal may be torn or another planner's. Then a planner that is sound without it never needed it. Of two damaged
// states the better has a find, more whole rows, or more rows, in this order. The other state is kept with the damaged
// planner.
State& Repairer::Choose()
{
    {
        const longwork::Part part(Looking, Rebuilding);
        m_asItIs->Rebuild(m_expected);
    }
    if (!m_playedBack || m_asItIs->verdict == Verdict::Sound) return *m_asItIs;
    const longwork::Part part(Rebuilding, 1);
    m_playedBack->Rebuild(m_expected);
    return m_asItIs->Worth() > m_playedBack->Worth() ? *m_asItIs : *m_playedBack;
}

QString Repairer::KeepDamaged() const
{
    const QString kept = FreeNameBeside(m_planner, "damaged"_L1);
    // The journal comes first, so that a planner of that name always has it.
    if (Exists(JournalOf(m_planner))) CopyToFree(JournalOf(m_planner), JournalOf(kept), m_status);
    auto undo = qScopeGuard([&] { Unlink(JournalOf(kept)); });
    CopyToFree(m_planner, kept, m_status);
    undo.dismiss();
    SyncFolderOf(kept);
    return kept;
}

void Repairer::Exchange(State& state)
{
    std::optional<LibraryLock> others;
    if (m_playedBack && &state == m_playedBack.get()) {
        // Without its journal the old file would hold less than was found. With the journal played back it does not,
        // and playing it back again changes nothing.
        others.emplace(state.copy.Path());
        Rename(state.copy.Path(), m_planner);
        SyncFolderOf(m_planner);
    }
    PutInPlace(state.rebuilt.Path(), m_planner);
}
} // namespace

namespace repairing {
RepairReport Repair(const QString& path, const std::vector<TableDef>& tables)
{
    StatusOfFile(path);
    return Repairer(RealPath(path), tables).Run();
}

bool FindsPlanner(const QString& path, const std::vector<TableDef>& tables)
{
    constexpr qint64 LargestFile = 1 << 28; // a larger file is probably no planner
    const struct stat status = StatusOf(path);
    if (!S_ISREG(status.st_mode) || status.st_size > LargestFile || OpenFile::IsOpenHere(status)) return false;
    if (JudgeUntouched(path) != Verdict::Damaged) return false;
    const salvage::Result found = salvage::Read(Content(path), tables);
    return std::ranges::any_of(found.tables,
                               [](const salvage::Table& table) { return !table.rows.empty() || !table.loose.empty(); });
}
} // namespace repairing
