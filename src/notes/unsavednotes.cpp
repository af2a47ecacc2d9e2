#include "notes/unsavednotes.h"

#include "platform/richtext/notejoin.h"
#include "state/moddate.h"

#include <QStringList>

QByteArray UnsavedNote::Over(const QByteArray& stored) const
{
    const bool isOfOthers = base && stored != *base && stored != rtf && stored != former;
    if (!isOfOthers || stored.trimmed().isEmpty()) return rtf;
    return rtf.isEmpty() ? stored : JoinedNotes(stored, rtf);
}

void UnsavedNotes::Keep(const QString& planner, const QString& key, const UnsavedNote& note)
{
    auto& notes = m_notes[planner];
    const auto former = notes.constFind(key);
    const bool goesOn = former != notes.cend();
    notes.insert(key, goesOn ? UnsavedNote{note.rtf, former->base, former->rtf} : note);
}

void UnsavedNotes::Forget(const QString& planner, const QString& key)
{
    const auto notes = m_notes.find(planner);
    if (notes == m_notes.end()) return;
    notes->remove(key);
    if (notes->isEmpty()) m_notes.erase(notes);
}

std::optional<UnsavedNote> UnsavedNotes::Find(const QString& planner, const QString& key) const
{
    const auto notes = NotesOf(planner);
    const auto note = notes.constFind(key);
    return note == notes.cend() ? std::nullopt : std::optional(note.value());
}

QString UnsavedNotes::Describe() const
{
    constexpr qsizetype MostDays = 10;
    QStringList lines;
    for (auto planner = m_notes.cbegin(); planner != m_notes.cend(); ++planner) {
        QStringList days;
        for (const QString& key : planner->keys().first(qMin(MostDays, planner->size())))
            days << fnFormatDateKey(key);
        const QString more = planner->size() > MostDays ? u", ..."_s : QString();
        lines << planner.key() + u": "_s + days.join(u"; "_s) + more;
    }
    return lines.join(u'\n');
}
