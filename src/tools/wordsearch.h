// The search for all notes with a query's words, in slices, so that it never holds up a key. Knows no widget.
#pragma once

#include "exchange/extract.h"
#include "platform/engine/tablewalk.h"
#include "tools/wordquery.h"

#include <QDeadlineTimer>
#include <QMap>

struct NoteHit
{
    QString key;
    ExtractedNote place; // without its text
    QString text;        // as shown
    bool operator==(const NoteHit& other) const { return key == other.key && text == other.text; }
};

class WordSearch
{
public:
    using Unsaved = QMap<QString, QByteArray>; // by key, as rich text; they stand for the stored notes

    // Begins again. The engine's errors.
    void Begin(const Database& planner, const WordQuery& query, const Unsaved& unsaved);
    // Goes on with a query that narrows the present one: what is found already is only looked through again.
    void Narrow(const WordQuery& query);
    void End(); // with what is found

    // Works until then, or a little longer, and returns the first place in Found that has changed. The engine's errors;
    // Closed if the planner is no longer open.
    std::size_t Step(const QDeadlineTimer& until);
    bool IsDone() const { return m_isDone; }
    double Done() const { return m_walk.Done(); } // from 0 to 1

    const WordQuery& Query() const { return m_query; }
    const std::vector<NoteHit>& Found() const { return m_found; } // in the order of the calendar

private:
    void Take(const QString& key, const QByteArray& stored, std::vector<NoteHit>& batch) const;
    void Work(const QDeadlineTimer& until);
    void ReadPage();
    std::size_t Merge(std::vector<NoteHit> batch);

    WordQuery m_query;
    Unsaved m_unsaved;
    TableWalk m_walk;
    std::vector<NoteHit> m_found;
    std::vector<NoteHit> m_batch;      // found, not yet in order; stays if a page cannot be read
    std::vector<NoteHit> m_candidates; // found by a broader query
    std::size_t m_looked = 0;          // at so many of them
    bool m_isDone = true;
};
