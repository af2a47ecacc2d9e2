#include "platform/engine/recordsetstate.h"

#include "platform/engine/enginerefusals.h"

#include <QScopeGuard>

namespace {
using namespace engineerrors;

[[noreturn]] void Raise(int number, const QString& text)
{
    throw RunTimeError{number, text};
}

[[noreturn]] void RaiseNoCurrentRecord()
{
    Raise(NoCurrentRecord, u"No current record."_s);
}

[[noreturn]] void RaiseNoUpdatePending()
{
    Raise(NoUpdatePending, u"Update or CancelUpdate without AddNew or Edit."_s);
}

[[noreturn]] void RaiseDeleted()
{
    Raise(RecordDeleted, u"Record is deleted."_s);
}
} // namespace

RecordsetState::RecordsetState(std::shared_ptr<Store> openStore, TableDef definition, const Index& order)
    : store(std::move(openStore)), table(std::move(definition))
{
    Use(order);
}

RecordsetState::~RecordsetState()
{
    if (store) DropEdit();
}

void RecordsetState::SetIndex(const QString& name)
{
    const Index order = name.isEmpty() ? Index() : IndexNamed(table, name);
    DropEdit();
    Use(order);
}

void RecordsetState::Use(const Index& order)
{
    index = order;
    m_keyField.reset();
    if (!order.Fields.isEmpty()) m_keyField = FieldNumber(table, KeyField(order));
    m_at = At::Nowhere;
    bof = eof = !Land(Look(From::First));
}

std::optional<Store::Row> RecordsetState::Look(From from, const Criterion& criterion) const
{
    return store->Find(table, index, from, m_place, criterion.Field, criterion.Pattern);
}

bool RecordsetState::Land(std::optional<Row> found)
{
    if (!found) return false;
    m_row = std::move(*found);
    m_place.id = m_row.id;
    m_place.key = m_keyField ? m_row.values[*m_keyField] : QVariant();
    m_at = At::Record;
    bof = eof = false;
    return true;
}

void RecordsetState::Seek(const QString& comparison, const QVariant& key)
{
    DropEdit();
    // Whatever fails from here on, no older record may be taken for the one that was sought.
    noMatch = true;
    m_at = At::Nowhere;
    if (comparison != u"=") Raise(InvalidArgument, u"Seek compares by \"=\" only."_s);
    if (!m_keyField) Raise(NoIndex, u"Seek needs a current index."_s);
    m_place = {AsFieldValue(table.Fields[*m_keyField], key), 0};
    m_at = At::Gap;
    noMatch = !Land(Look(From::AtKey));
}

void RecordsetState::MoveToEnd(From end)
{
    DropEdit();
    m_at = At::Nowhere;
    if (Land(Look(end))) return;
    bof = eof = true;
    RaiseNoCurrentRecord();
}

void RecordsetState::Step(From direction)
{
    DropEdit();
    const bool forward = direction == From::After;
    if (m_at == At::Nowhere || m_at == (forward ? At::Eof : At::Bof)) RaiseNoCurrentRecord();
    const bool fromOtherEnd = m_at == (forward ? At::Bof : At::Eof);
    if (Land(Look(fromOtherEnd ? (forward ? From::First : From::Last) : direction))) return;
    if (bof && eof) RaiseNoCurrentRecord();
    StandAtEnd(direction);
}

void RecordsetState::StandAtEnd(From end)
{
    const bool empty = !Look(From::First);
    bof = empty || end == From::Before;
    eof = empty || end == From::After;
    m_at = empty ? At::Nowhere : eof ? At::Eof : At::Bof;
}

void RecordsetState::Find(From direction, const QString& text)
{
    DropEdit();
    noMatch = true;
    if (m_at == At::Record || m_at == At::Deleted) m_at = At::Gap;
    const Criterion criterion = ParseCriterion(text);
    FieldNumber(table, criterion.Field);
    noMatch = !Land(direction == From::Last ? Look(From::Last, criterion) : LookPrevious(criterion));
}

std::optional<Store::Row> RecordsetState::LookPrevious(const Criterion& criterion) const
{
    if (m_at == At::Nowhere || m_at == At::Bof) return {};
    return Look(m_at == At::Eof ? From::Last : From::Before, criterion);
}

const Store::Row& RecordsetState::Current() const
{
    if (m_at == At::Deleted) RaiseDeleted();
    if (m_at != At::Record) RaiseNoCurrentRecord();
    return m_row;
}

void RecordsetState::Lock()
{
    store->TryLock(table, m_row.id);
    m_locked = true;
}

void RecordsetState::ReleaseLock()
{
    if (std::exchange(m_locked, false)) store->Unlock(table, m_row.id);
}

void RecordsetState::DropEdit()
{
    m_pending = Pending::None;
    m_buffer.clear();
    ReleaseLock();
}

void RecordsetState::AddNew()
{
    DropEdit();
    m_buffer.assign(table.Fields.size(), QVariant());
    m_pending = Pending::Add;
}

void RecordsetState::Edit()
{
    const qint64 id = Current().id;
    m_pending = Pending::None;
    auto release = qScopeGuard([this] { DropEdit(); });
    // A lock can have died with its connection; an edit that starts anew takes it anew.
    m_locked = m_locked && store->Holds(table, id);
    if (!m_locked) Lock();
    const std::optional<Row> fresh = store->Fetch(table, id);
    if (!fresh) {
        m_at = At::Deleted;
        RaiseDeleted();
    }
    if (fresh->values != m_row.values) throw ErrorOf(RecordChanged);
    m_buffer = m_row.values;
    m_pending = Pending::Change;
    release.dismiss();
}

void RecordsetState::Update()
{
    if (m_pending == Pending::None) RaiseNoUpdatePending();
    if (m_pending == Pending::Add) {
        store->Insert(table, m_buffer);
        if (bof && eof) bof = eof = false;
    } else {
        store->Replace(table, m_row, m_buffer);
        Land(Row{m_row.id, m_buffer});
    }
    DropEdit();
}

void RecordsetState::CancelUpdate()
{
    if (m_pending == Pending::None) RaiseNoUpdatePending();
    DropEdit();
}

void RecordsetState::Close()
{
    DropEdit();
    store.reset();
}

void RecordsetState::Delete()
{
    Current();
    m_pending = Pending::None;
    const auto release = qScopeGuard([this] { DropEdit(); });
    if (!m_locked) Lock();
    store->Erase(table, m_row);
    m_at = At::Deleted;
}

const QVariant& RecordsetState::Value(const QString& name) const
{
    const std::size_t number = FieldNumber(table, name);
    return m_pending != Pending::None ? m_buffer[number] : Current().values[number];
}

void RecordsetState::SetValue(const QString& name, const QVariant& value)
{
    if (m_pending == Pending::None) RaiseNoUpdatePending();
    const std::size_t number = FieldNumber(table, name);
    const Field& field = table.Fields[number];
    QVariant stored = AsFieldValue(field, value);
    if (field.Type == dbText && stored.toString().size() > field.Size)
        Raise(FieldTooSmall,
              u"The text is too long for field '%1', which holds %2 characters."_s.arg(field.Name).arg(field.Size));
    m_buffer[number] = std::move(stored);
}
