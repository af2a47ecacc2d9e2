// What former imports have written into a planner, so that a later one changes it and doubles nothing. It is a table of
// the planner, so it goes wherever the planner goes. Programs that do not know the table leave it alone.
#pragma once

#include "platform/engine/database.h"

#include <map>
#include <set>
#include <tuple>

// A text in the note of a day, an alarm, or the record of a recurring event.
struct ImportedPiece
{
    enum class Kind
    {
        Note,
        Alarm,
        Event
    };
    Kind kind = Kind::Note;
    QString key;    // of the day, or of an event's first day
    QString detail; // an alarm's time; an event's frequency and last day
    QString text;   // without its form

    friend bool operator<(const ImportedPiece& a, const ImportedPiece& b)
    {
        return std::tie(a.kind, a.key, a.detail, a.text) < std::tie(b.kind, b.key, b.detail, b.text);
    }
    friend bool operator==(const ImportedPiece& a, const ImportedPiece& b) = default;
};
using ImportedPieces = std::set<ImportedPiece>;

class ImportMemory
{
public:
    explicit ImportMemory(const Database& planner); // the table is made with the first Keep

    ImportedPieces Of(const QString& entryId);
    void Keep(const QString& entryId, const ImportedPieces& pieces);

private:
    Database m_planner;
    Recordset m_records;
};
