#include "platform/engine/sqlite/sessiontable.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sessionname.h"
#include "platform/engine/sqlite/plannerformat.h"
#include "platform/runtime/runtimeerror.h"

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

bool Tells(const SessionEntry& entry, const RecordName& wanted)
{
    if (entry.User[0] == '\0') return false;
    return wanted.table == 0 || std::ranges::any_of(entry.Held, [&](const HeldRecord& held) {
               return qFromLittleEndian(held.Table) == wanted.table && qFromLittleEndian(held.Record) == wanted.record;
           });
}

QString NameOf(const SessionEntry& entry)
{
    return sessionname::Person(TextOf(entry.User, UserBytes), TextOf(entry.Machine, MachineBytes));
}

QString LookForHolder(const ByteLocks& locks, const RecordName& wanted)
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

QString HolderOf(const ByteLocks& locks, const RecordName& record)
{
    for (int look = 0; look < Looks; ++look) {
        if (look > 0) QThread::msleep(PauseBetweenLooks);
        const QString name = LookForHolder(locks, record);
        if (!name.isEmpty()) return name;
    }
    return QString::fromUtf16(sessionname::Unknown);
}

Session::Session(ByteLocks locks) : m_locks(std::move(locks))
{
    while (m_number < MaximalSessions && !m_locks.TryLock(LifeByte(m_number), ByteLocks::Exclusive))
        ++m_number;
    if (m_number == MaximalSessions)
        throw RunTimeError{engineerrors::NoLocks, u"Too many users have this planner open."_s};
    const SessionEntry entry = OwnEntry();
    m_locks.Write(PlaceOf(m_number), &entry, sizeof entry);
}

bool Session::Take(const RecordName& record)
{
    return m_locks.TryLock(RecordByte(record.table, record.record), ByteLocks::Exclusive);
}

void Session::GiveBack(const RecordName& record)
{
    m_locks.Unlock(RecordByte(record.table, record.record));
}

void Session::WriteHeld(const std::vector<RecordName>& held)
{
    std::array<HeldRecord, HeldRecords> labels = {};
    for (std::size_t i = 0; i < std::min(held.size(), labels.size()); ++i)
        labels[i] = {qToLittleEndian(held[i].table), qToLittleEndian(held[i].record)};
    m_locks.Write(PlaceOf(m_number) + static_cast<off_t>(offsetof(SessionEntry, Held)), labels.data(), sizeof labels);
}
