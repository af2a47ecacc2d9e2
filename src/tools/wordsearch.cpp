#include "tools/wordsearch.h"

#include "plannerfile/schema.h"
#include "platform/richtext/notetext.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
constexpr std::size_t NotesOfLook = 100; // between two looks at the clock

auto Place(const NoteHit& note)
{
    return OrderOf(note.place);
}

// Of notes with one place the last is the latest.
void DropFormer(std::vector<NoteHit>& notes, std::size_t from)
{
    const auto isFormer = [&](std::size_t at) {
        return at + 1 < notes.size() && Place(notes[at]) == Place(notes[at + 1]);
    };
    std::size_t to = from;
    for (std::size_t at = from; at < notes.size(); ++at)
        if (!isFormer(at)) {
            if (to != at) notes[to] = std::move(notes[at]);
            ++to;
        }
    notes.resize(to);
}
} // namespace

void WordSearch::Begin(const Database& planner, const WordQuery& query, const Unsaved& unsaved)
{
    *this = {};
    m_query = query;
    if (query.IsEmpty()) return;
    m_walk = TableWalk(planner, schema::Notes, {schema::DateField, schema::TextField});
    std::vector<NoteHit> batch;
    for (auto note = unsaved.cbegin(); note != unsaved.cend(); ++note)
        Take(note.key(), *note, batch);
    Merge(std::move(batch));
    m_unsaved = unsaved;
    m_isDone = false;
}

// What is not looked through yet stays a candidate.
void WordSearch::Narrow(const WordQuery& query)
{
    m_query = query;
    Merge(std::exchange(m_batch, {}));
    std::vector<NoteHit> candidates = std::move(m_found);
    std::move(m_candidates.begin() + std::ptrdiff_t(m_looked), m_candidates.end(), std::back_inserter(candidates));
    m_candidates = std::move(candidates);
    m_found.clear();
    m_looked = 0;
    m_isDone = false;
}

void WordSearch::End()
{
    Merge(std::exchange(m_batch, {}));
    m_walk = {};
    m_candidates.clear();
    m_looked = 0;
    m_isDone = true;
}

void WordSearch::Take(const QString& key, const QByteArray& stored, std::vector<NoteHit>& batch) const
{
    if (m_unsaved.contains(key)) return;
    QString text = ShownText(stored);
    if (!m_query.FirstIn(text)) return;
    // A key in another form belongs to no cell.
    if (auto place = PlaceOf(key); place && KeyOfNote(*place) == key)
        batch.push_back({key, *std::move(place), std::move(text)});
}

void WordSearch::ReadPage()
{
    const auto rows = m_walk.Next();
    for (const auto& row : rows)
        Take(row[0].toString(), row[1].toByteArray(), m_batch);
    m_isDone = rows.empty();
}

std::size_t WordSearch::Step(const QDeadlineTimer& until)
{
    Work(until);
    return Merge(std::exchange(m_batch, {}));
}

void WordSearch::Work(const QDeadlineTimer& until)
{
    while (!m_isDone && !until.hasExpired()) {
        if (m_looked == m_candidates.size()) {
            ReadPage();
            continue;
        }
        const std::size_t end = std::min(m_candidates.size(), m_looked + NotesOfLook);
        for (; m_looked < end; ++m_looked)
            if (NoteHit& note = m_candidates[m_looked]; m_query.FirstIn(note.text)) m_batch.push_back(std::move(note));
    }
}

std::size_t WordSearch::Merge(std::vector<NoteHit> batch)
{
    if (batch.empty()) return m_found.size();
    std::ranges::stable_sort(batch, {}, Place);
    const auto first = std::ranges::lower_bound(m_found, Place(batch.front()), {}, Place);
    const auto from = std::size_t(first - m_found.begin());
    const auto middle = std::ptrdiff_t(m_found.size());
    std::ranges::move(batch, std::back_inserter(m_found));
    std::ranges::inplace_merge(m_found.begin() + std::ptrdiff_t(from), m_found.begin() + middle, m_found.end(), {},
                               Place);
    DropFormer(m_found, from);
    return from;
}
