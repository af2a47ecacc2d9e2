#include "tools/searchrun.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/waiting.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"

#include <algorithm>

namespace {
constexpr QLatin1StringView RunLiteral(" in FindWordForm, SearchRun");
constexpr int TimeOfSlice = 8;     // milliseconds; a key or a click waits no longer
constexpr int WaitForOthers = 250; // milliseconds, after somebody else's save was in the way
constexpr int ShortWork = 500;     // milliseconds
} // namespace

SearchRun::SearchRun(std::function<UnsavedNotes()> typed, Listener listener)
    : m_typed(std::move(typed)), m_listener(std::move(listener))
{
    m_slices.setSingleShot(true);
    connect(&m_slices, &QTimer::timeout, this, Guarded(RunLiteral, [this] { Slice(); }));
}

void SearchRun::Look(const WordQuery& query)
{
    m_wanted = query;
    if (query.IsEmpty() || m_isStopped) Forget();
    m_isStopped = false;
    if (query.IsEmpty() || !HasPlanner()) {
        m_search = {};
        m_slices.stop();
        return Tell(0);
    }
    m_due = std::max(m_due, Due::Words);
    m_since.start();
    m_slices.start(0);
}

// The caller may be in the midst of a save.
void SearchRun::Follow()
{
    if (IsDone()) m_since.start();
    m_due = Due::Planner;
    if (!m_wanted.IsEmpty()) m_slices.start(0);
}

void SearchRun::Stop()
{
    if (m_wanted == Query())
        m_search.End();
    else
        m_search = {}; // nothing is found for these words yet
    m_slices.stop();
    m_due = Due::Nothing;
    m_isStopped = true;
    Tell(0);
}

bool SearchRun::IsLong() const
{
    return !IsDone() && !Query().IsEmpty() && m_since.elapsed() > ShortWork;
}

// The next search begins at the first note.
void SearchRun::Forget()
{
    m_source = {};
    m_due = Due::Planner;
}

void SearchRun::Slice()
{
    if (!HasPlanner()) return Look(m_wanted);
    try {
        const waiting::NotForOthers here; // a save that hangs must not hold up the keys
        Work();
        m_tries = 0;
    } catch (const RunTimeError& error) {
        Fail(error);
    }
    if (m_listener.progress) m_listener.progress();
}

void SearchRun::Work()
{
    if (m_due != Due::Nothing) Compare();
    if (m_search.IsDone() && m_told == Told::InTime) return;
    const std::size_t from = m_search.Step(QDeadlineTimer(TimeOfSlice));
    const bool isFirst = m_told == Told::ByFirst && !m_search.Found().empty();
    if (m_told == Told::InTime || isFirst || m_search.IsDone()) Tell(m_told == Told::InTime ? from : 0);
    if (!m_search.IsDone()) m_slices.start(0);
}

// What was stopped goes on with the next word or another planner only.
void SearchRun::Compare()
{
    const Source source = Present();
    const bool goesOn = source == m_source && (m_wanted == Query() || m_wanted.Narrows(Query()));
    if (m_isStopped && source.planner == m_source.planner)
        ;
    else if (!goesOn)
        Begin(source);
    else if (m_wanted != Query()) {
        m_search.Narrow(m_wanted);
        m_told = Told::ByFirst;
    }
    m_due = Due::Nothing;
}

// To write what is typed costs more than a key may, and it changes in another window only.
SearchRun::Source SearchRun::Present() const
{
    Source source = {g_sNotesFile, g_dbPlanner.Revision(), {}};
    if (m_due != Due::Planner) {
        source.unsaved = m_source.unsaved;
        return source;
    }
    const auto typed = m_typed().NotesOf(g_sNotesFile);
    for (auto note = typed.cbegin(); note != typed.cend(); ++note)
        source.unsaved.insert(note.key(), note->rtf);
    return source;
}

void SearchRun::Begin(const Source& source)
{
    const bool isAgain = m_wanted == Query() && m_told != Told::ByFirst;
    m_told = isAgain ? Told::ByTheEnd : Told::ByFirst;
    m_source = {};
    m_search.Begin(g_dbPlanner, m_wanted, source.unsaved);
    m_source = source;
    m_isStopped = false;
}

void SearchRun::Tell(std::size_t from)
{
    const bool isAgain = m_told == Told::ByTheEnd;
    m_told = Told::InTime;
    if (m_listener.found) m_listener.found(from, isAgain);
}

// A colleague's save is over in a moment. After other errors the next key or the next activation tries again.
void SearchRun::Fail(const RunTimeError& error)
{
    constexpr int MostTries = 40;
    if (error.Number == engineerrors::Busy && ++m_tries < MostTries) return m_slices.start(WaitForOthers);
    LogError(error, RunLiteral);
    m_tries = 0;
    m_search.End();
    Forget();
    m_due = Due::Nothing;
    m_told = Told::ByFirst;
    m_isStopped = true;
    if (m_listener.failed) m_listener.failed(error.Number == engineerrors::Closed ? QString() : error.Description);
}
