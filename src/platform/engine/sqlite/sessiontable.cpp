#include "platform/engine/sqlite/sessiontable.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/sessionname.h"

#include <QThread>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <unistd.h>

namespace {
using namespace plannerformat;

constexpr int Looks = 5;
constexpr unsigned long PauseBetweenLooks = 2; // milliseconds

// The last byte stays zero.
void Fill(char* target, int size, const QString& text)
{
    std::ranges::copy(sessionname::Cut(text, size - 1, [](const QString& cut) { return cut.toUtf8(); }), target);
}

QString TextOf(const char* field, int size)
{
    return QString::fromUtf8(field, static_cast<qsizetype>(::strnlen(field, static_cast<std::size_t>(size))));
}

off_t PlaceOf(int session)
{
    return off_t{session} * static_cast<off_t>(sizeof(SessionEntry));
}

bool Tells(const SessionEntry& entry, HeldRecord wanted)
{
    if (entry.User[0] == '\0') return false;
    return wanted.Table == 0 || std::ranges::any_of(entry.Held, [&](const HeldRecord& held) {
               return qFromLittleEndian(held.Table) == wanted.Table && qFromLittleEndian(held.Record) == wanted.Record;
           });
}

QString NameOf(const SessionEntry& entry)
{
    return sessionname::Person(TextOf(entry.User, UserBytes), TextOf(entry.Machine, MachineBytes));
}

QString LookForHolder(const ByteLocks& locks, HeldRecord wanted)
{
    const QByteArray table = locks.Read(0, PlaceOf(MaximalSessions));
    const auto count = static_cast<int>(table.size() / static_cast<qsizetype>(sizeof(SessionEntry)));
    for (int session = 0; session < count; ++session) {
        SessionEntry entry;
        std::memcpy(&entry, table.constData() + PlaceOf(session), sizeof entry);
        if (Tells(entry, wanted) && locks.IsLockedElsewhere(LifeByte(session))) return NameOf(entry);
    }
    return {};
}

SessionEntry OwnEntry()
{
    SessionEntry entry = {};
    entry.Process = qToLittleEndian(qint64{::getpid()});
    Fill(entry.User, UserBytes, sessionname::User());
    Fill(entry.Machine, MachineBytes, sessionname::Machine());
    return entry;
}
} // namespace

QString HolderOf(const ByteLocks& locks, HeldRecord held)
{
    for (int look = 0; look < Looks; ++look) {
        if (look > 0) QThread::msleep(PauseBetweenLooks);
        const QString name = LookForHolder(locks, held);
        if (!name.isEmpty()) return name;
    }
    return QString::fromUtf16(sessionname::Unknown);
}

Session::Session(ByteLocks& locks) : m_locks(locks), m_number(0)
{
    while (m_number < MaximalSessions && !m_locks.TryLock(LifeByte(m_number), ByteLocks::Exclusive))
        ++m_number;
    if (m_number == MaximalSessions)
        throw RunTimeError{engineerrors::NoLocks, u"Too many users have this planner open."_s};
    const SessionEntry entry = OwnEntry();
    m_locks.Write(PlaceOf(m_number), &entry, sizeof entry);
}

Session::~Session()
{
    for (const HeldRecord& held : m_held)
        m_locks.Unlock(RecordByte(held.Table, held.Record));
    m_locks.Unlock(LifeByte(m_number));
}

bool Session::Holds(HeldRecord held) const
{
    return std::ranges::find(m_held, held) != m_held.end();
}

void Session::TakeRecord(HeldRecord held)
{
    // A descriptor never refuses itself, and two recordsets of one program must not write over each other either.
    if (Holds(held)) throw engineerrors::ErrorOf(engineerrors::LockedBy, NameOf(OwnEntry()));
    if (!m_locks.TryLock(RecordByte(held.Table, held.Record), ByteLocks::Exclusive))
        throw engineerrors::ErrorOf(engineerrors::LockedBy, HolderOf(m_locks, held));
    m_held.push_back(held);
    WriteHeld();
}

void Session::GiveBackRecord(HeldRecord held)
{
    m_locks.Unlock(RecordByte(held.Table, held.Record));
    std::erase(m_held, held);
    WriteHeld();
}

void Session::WriteHeld()
{
    std::array<HeldRecord, HeldRecords> labels = {};
    for (std::size_t i = 0; i < std::min<std::size_t>(m_held.size(), HeldRecords); ++i)
        labels[i] = {qToLittleEndian(m_held[i].Table), qToLittleEndian(m_held[i].Record)};
    m_locks.Write(PlaceOf(m_number) + static_cast<off_t>(offsetof(SessionEntry, Held)), labels.data(), sizeof labels);
}
