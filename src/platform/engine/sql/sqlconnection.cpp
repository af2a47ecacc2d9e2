#include "platform/engine/sql/sqlconnection.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/sql/sqldialect.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

SqlRows SqlConnection::Ask(const QString& statement, const SqlValues& values, Patience patience)
{
    Prepare();
    return Run(statement, values, patience);
}

QVariant SqlConnection::AskOne(const QString& statement, const SqlValues& values)
{
    const SqlRows rows = Ask(statement, values);
    if (rows.empty()) RaiseSenselessAnswer();
    return rows.front()[0];
}

void SqlConnection::BeginRead()
{
    if (!m_reading && !m_writing) {
        Ask(m_dialect.beginRead);
        m_reading = true;
        ++m_readNumber;
    }
    ++m_reads;
}

void SqlConnection::EndRead()
{
    if (--m_reads == 0) StopReading();
}

void SqlConnection::StopReading()
{
    if (!std::exchange(m_reading, false) || !HasTransaction()) return;
    try {
        Run(u"COMMIT"_s, {}, Patience::Usual);
    } catch (const RunTimeError&) {
        // nothing was written, and a break has been recorded
    }
}

void SqlConnection::Write(const std::function<void()>& step)
{
    if (m_writing) return WriteInGroup(step);
    BeginWrite();
    auto rollback = qScopeGuard([this] { Rollback(); });
    step();
    rollback.dismiss();
    Commit();
}

void SqlConnection::WriteInGroup(const std::function<void()>& step)
{
    // The earlier updates of the group were undone, so later ones must not be written alone.
    if (m_lost) throw *m_lost;
    BeginStep();
    const QScopedValueRollback inStep(m_inStep, true);
    try {
        step();
    } catch (const RunTimeError& failure) {
        if (!m_lost) UndoOrLose(failure);
        throw;
    }
}

void SqlConnection::UndoOrLose(const RunTimeError& failure)
{
    try {
        UndoStep();
    } catch (const RunTimeError&) {
        if (!m_lost) m_lost = failure;
    }
}

void SqlConnection::BeginWrite()
{
    if (m_writing)
        throw RunTimeError{engineerrors::CouldNotSave, u"Could not save to '%1'; a save is under way."_s.arg(m_name)};
    // The data read may be outdated, so a write never continues a read.
    StopReading();
    PrepareWrite();
    m_writing = true;
    auto end = qScopeGuard([this] {
        m_writing = false;
        m_lost.reset();
    });
    Run(m_dialect.beginWrite, {}, Patience::Usual);
    end.dismiss();
}

void SqlConnection::Commit()
{
    if (const auto lost = m_lost) {
        Rollback();
        throw *lost;
    }
    try {
        Run(u"COMMIT"_s, {}, Patience::Long);
        m_writing = false;
    } catch (const RunTimeError& failure) {
        Rollback();
        ClearDoubt(failure);
    }
}

void SqlConnection::Rollback()
{
    m_lost.reset();
    if (!std::exchange(m_writing, false)) return;
    try {
        if (HasTransaction()) Run(u"ROLLBACK"_s, {}, Patience::Usual);
    } catch (const RunTimeError&) {
        Abandon();
    }
    ForgetPages();
}
