// The search of the open planner for the words that a person types, in slices between the keys. It follows the planner,
// and reads instead of its notes those that are typed but not saved. Knows no widget.
#pragma once

#include "notes/unsavednotes.h"
#include "tools/wordsearch.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

struct RunTimeError;

class SearchRun : public QObject
{
public:
    // What the search tells, from the event loop. Each may be empty.
    struct Listener
    {
        std::function<void(std::size_t from, bool again)> found; // new from this place on; again: for the same words
        std::function<void()> progress;
        std::function<void(const QString& trouble)> failed; // nothing is found
    };

    SearchRun(std::function<UnsavedNotes()> typed, Listener listener);

    // Reads nothing yet. Without words or without a planner nothing is found, at once.
    void Look(const WordQuery& query);
    void Follow(); // the planner or what is typed may have changed; reads nothing yet
    void Stop();   // with what is found

    const WordQuery& Query() const { return m_search.Query(); }
    const std::vector<NoteHit>& Found() const { return m_search.Found(); }
    double Done() const { return m_due == Due::Nothing ? m_search.Done() : 0; } // from 0 to 1
    bool IsDone() const { return m_search.IsDone() && m_due == Due::Nothing; }
    bool IsLong() const; // it has been at work for a while
    bool IsStopped() const { return m_isStopped; }

private:
    // What was searched.
    struct Source
    {
        QString planner;
        std::pair<int, qint64> revision;
        WordSearch::Unsaved unsaved;
        bool operator==(const Source&) const = default;
    };
    enum class Due // what is to be compared before the search goes on
    {
        Nothing,
        Words,
        Planner // and the words
    };
    enum class Told // when the listener gets what is found
    {
        InTime,   // all along
        ByFirst,  // from the first hit on, or the end
        ByTheEnd, // the same words again: what was found stays until all is
    };

    void Forget();
    void Slice();
    void Work();
    void Compare();
    Source Present() const;
    void Begin(const Source& source);
    void Tell(std::size_t from);
    void Fail(const RunTimeError& error);

    const std::function<UnsavedNotes()> m_typed;
    const Listener m_listener;
    WordQuery m_wanted;
    WordSearch m_search;
    Source m_source;
    Due m_due = Due::Planner;
    Told m_told = Told::InTime;
    bool m_isStopped = false; // by the person or by an error
    int m_tries = 0;          // after somebody else's save was in the way
    QTimer m_slices;
    QElapsedTimer m_since; // the words were typed
};
