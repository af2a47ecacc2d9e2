#include "platform/engine/postgres/advisorylocks.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sessionname.h"

#include <algorithm>
#include <map>

namespace advisorylocks {
// The server's functions take signed numbers, its list of locks shows unsigned ones.
bool Call(PostgresConnection& connection, QLatin1StringView function, const RecordName& name)
{
    return connection
        .AskOne("SELECT "_L1 + function + "($1::integer, $2::integer)"_L1,
                {static_cast<qint32>(name.table), static_cast<qint32>(name.record)})
        .toBool();
}

QString HolderOf(PostgresConnection& connection, const RecordName& name, const QStringList& exceptOf)
{
    const SqlRows holder = connection.Ask(
        u"SELECT who.application_name FROM pg_locks AS held JOIN pg_stat_activity AS who ON who.pid = held.pid "
        "WHERE held.locktype = 'advisory' AND held.objsubid = 2 AND held.granted AND held.pid <> ALL ($3::integer[]) "
        "AND held.database = (SELECT oid FROM pg_database WHERE datname = current_database()) "
        "AND held.classid = $1::oid AND held.objid = $2::oid LIMIT 1"_s,
        {name.table, name.record, exceptOf});
    return sessionname::PersonOf(holder.empty() ? QString() : holder[0].Text(0));
}
} // namespace advisorylocks

std::shared_ptr<OpenMode::Opens> OpenMode::OpensOf(const QString& id)
{
    static std::map<QString, std::weak_ptr<Opens>> known;
    std::shared_ptr<Opens> opens = known[id].lock();
    if (!opens) known[id] = opens = std::make_shared<Opens>();
    return opens;
}

void OpenMode::Enter(const QString& id, const RecordName& planner, const QString& shownName)
{
    m_opens = OpensOf(id);
    m_planner = planner;
    // One that comes back after a break keeps its place.
    if (std::ranges::find(*m_opens, this) == m_opens->end()) m_opens->push_back(this);
    if (Settle(*m_opens)) return;
    QStringList own;
    for (const OpenMode* open : *m_opens)
        own += QString::number(open->m_connection.Process());
    const QString holder = advisorylocks::HolderOf(m_connection, planner, own);
    Leave();
    throw engineerrors::ErrorOf(engineerrors::InUseBy, shownName, holder);
}

void OpenMode::Leave()
{
    if (!m_opens) return;
    std::erase(*m_opens, this);
    // This session keeps strangers out until the others have their locks back.
    Become(Held::Shared);
    const Opens others = *std::exchange(m_opens, nullptr);
    for (OpenMode* other : others)
        other->Become(Held::Shared);
    Become(Held::Nothing);
    Settle(others);
}

// Gives all of them the mode of the latest one. Shared locks are taken by all before one is to become exclusive, so
// that no stranger can slip in between. False if the latest one's was refused; then all are shared, as far as that is
// granted.
bool OpenMode::Settle(Opens opens)
{
    std::erase_if(opens, [](const OpenMode* open) { return !open->m_connection.IsConnected(); });
    if (opens.empty()) return true;
    OpenMode* const latest = opens.back();
    for (OpenMode* open : opens)
        if (open->m_held == Held::Exclusive) open->Become(Held::Shared);
    bool granted = false;
    for (OpenMode* open : opens)
        granted = open->Become(Held::Shared);
    if (!latest->m_exclusive || !granted) return granted;
    for (OpenMode* open : opens)
        if (open != latest) open->Become(Held::Nothing);
    if (latest->Become(Held::Exclusive)) return true;
    for (OpenMode* open : opens)
        open->Become(Held::Shared);
    return false;
}

// A session may hold both kinds at once, so it never stands without one on the way from one to the other.
bool OpenMode::Become(Held wanted)
{
    if (m_held == wanted) return true;
    if (wanted == Held::Shared && !Ask("pg_try_advisory_lock_shared"_L1)) return false;
    if (wanted == Held::Exclusive && !Ask("pg_try_advisory_lock"_L1)) return false;
    if (m_held == Held::Shared) Ask("pg_advisory_unlock_shared"_L1);
    if (m_held == Held::Exclusive) Ask("pg_advisory_unlock"_L1);
    m_held = wanted;
    return true;
}

bool OpenMode::Ask(QLatin1StringView function)
{
    if (!m_connection.IsConnected()) return false;
    try {
        return advisorylocks::Call(m_connection, function, m_planner);
    } catch (const RunTimeError&) {
        // Another open of this process whose session is over; it takes its lock again when it connects.
        return false;
    }
}
