#include "platform/engine/recordset.h"

#include "platform/engine/enginerefusals.h"
#include "platform/engine/recordsetstate.h"
#include "platform/runtime/runtimeerror.h"

Recordset::Recordset() = default;

Recordset::Recordset(std::shared_ptr<RecordsetState> state) : m_state(std::move(state)) {}

RecordsetState& Recordset::Live() const
{
    if (!m_state) throw RunTimeError{errors::ObjectNotSet, u"Object variable not set"_s};
    if (!m_state->store) engineerrors::RaiseClosed();
    return *m_state;
}

bool Recordset::IsNothing() const
{
    return !m_state;
}

QString Recordset::Index() const
{
    return Live().index.Name;
}

void Recordset::SetIndex(const QString& name)
{
    RecordsetState& state = Live();
    state.SetIndex(name.isEmpty() ? ::Index() : IndexNamed(state.table, name));
}

bool Recordset::LockEdits() const
{
    return Live().lockEdits;
}

void Recordset::SetLockEdits(bool lock)
{
    Live().lockEdits = lock;
}

bool Recordset::BOF() const
{
    return Live().bof;
}

bool Recordset::EOF_() const
{
    return Live().eof;
}

bool Recordset::NoMatch() const
{
    return Live().noMatch;
}

void Recordset::Seek(const QString& comparison, const QVariant& key)
{
    Live().Seek(comparison, key);
}

void Recordset::MoveFirst()
{
    Live().MoveToEnd(From::First);
}

void Recordset::MoveLast()
{
    Live().MoveToEnd(From::Last);
}

void Recordset::MoveNext()
{
    Live().Step(From::After);
}

void Recordset::MovePrevious()
{
    Live().Step(From::Before);
}

void Recordset::FindLast(const QString& criterion)
{
    Live().Find(From::Last, criterion);
}

void Recordset::FindPrevious(const QString& criterion)
{
    Live().Find(From::Before, criterion);
}

void Recordset::AddNew()
{
    Live().AddNew();
}

void Recordset::Edit()
{
    Live().Edit();
}

void Recordset::Update()
{
    Live().Update();
}

void Recordset::CancelUpdate()
{
    RecordsetState& state = Live();
    if (state.pending == RecordsetState::Pending::None) engineerrors::RaiseNoUpdatePending();
    state.DropEdit();
}

void Recordset::Delete()
{
    Live().Delete();
}

void Recordset::Close()
{
    RecordsetState& state = Live();
    state.DropEdit();
    state.store.reset();
}

QVariant Recordset::Fields(const QString& name) const
{
    return Live().Value(name);
}

void Recordset::SetField(const QString& name, const QVariant& value)
{
    Live().SetValue(name, value);
}
