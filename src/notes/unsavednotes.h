// Notes on their way from a cell to the file, by planner and date key. A save empties the cells at once; what could
// not be written, because the disk was full or another program held the file, stays here, is shown again where its day
// is read, and goes with the next save.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <optional>

struct UnsavedNote
{
    QByteArray rtf;                 // empty: the day was emptied
    std::optional<QByteArray> base; // what the file held when the typing began, if that is known
    QByteArray former;              // an earlier text of the same typing, which may have been stored unheard

    // What is to be stored where the file holds this by now. Where somebody else has written meanwhile both notes stay,
    // theirs above.
    QByteArray Over(const QByteArray& stored) const;
};

class UnsavedNotes
{
public:
    using ByPlanner = QMap<QString, QMap<QString, UnsavedNote>>;

    UnsavedNotes() = default;
    explicit UnsavedNotes(const ByPlanner& notes) : m_notes(notes) {}

    // Of a note that is kept already what it was typed upon stays.
    void Keep(const QString& planner, const QString& key, const UnsavedNote& note);
    void Forget(const QString& planner, const QString& key);
    void Forget(const QString& planner) { m_notes.remove(planner); }
    std::optional<UnsavedNote> Find(const QString& planner, const QString& key) const;
    QMap<QString, UnsavedNote> NotesOf(const QString& planner) const { return m_notes.value(planner); }
    QStringList Planners() const { return m_notes.keys(); }
    const ByPlanner& All() const { return m_notes; }
    bool IsEmpty() const { return m_notes.isEmpty(); }
    QString Describe() const; // a line for each planner: its path and the days

private:
    ByPlanner m_notes;
};
