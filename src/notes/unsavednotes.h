// Notes on their way from a cell to the file, by planner and date key. A save takes them out of the cells at once. A
// note that cannot be written stays here, is shown when its day is read, and is tried again by the next save.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <optional>

struct UnsavedNote
{
    QByteArray rtf;                 // empty: the day was emptied
    std::optional<QByteArray> base; // the stored text when the typing began, if known
    QByteArray former; // an earlier text of this typing, which may have been stored before a connection broke

    // The text to store where the file now holds this. If somebody else has written meanwhile, both notes stay, theirs
    // on top.
    QByteArray Over(const QByteArray& stored) const;
};

class UnsavedNotes
{
public:
    using ByPlanner = QMap<QString, QMap<QString, UnsavedNote>>;

    UnsavedNotes() = default;
    explicit UnsavedNotes(const ByPlanner& notes) : m_notes(notes) {}

    // A note that is already kept retains its base.
    void Keep(const QString& planner, const QString& key, const UnsavedNote& note);
    void Forget(const QString& planner, const QString& key);
    void Forget(const QString& planner) { m_notes.remove(planner); }
    std::optional<UnsavedNote> Find(const QString& planner, const QString& key) const;
    QMap<QString, UnsavedNote> NotesOf(const QString& planner) const { return m_notes.value(planner); }
    QStringList Planners() const { return m_notes.keys(); }
    const ByPlanner& All() const { return m_notes; }
    bool IsEmpty() const { return m_notes.isEmpty(); }
    QString Describe() const; // one line per planner: its path and days

private:
    ByPlanner m_notes;
};
