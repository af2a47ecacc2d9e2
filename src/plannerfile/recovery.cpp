#include "plannerfile/recovery.h"

#include "calendar/moddate.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "plannerfile/rescuefiles.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "workgroup/dayrecord.h"

namespace {
constexpr QLatin1StringView RecoveryTail(" in Recovery, Offer");

QByteArray Stored(const QString& key)
{
    g_rsQMT.Seek(QStringLiteral("="), key);
    return g_rsQMT.NoMatch() ? QByteArray() : g_rsQMT.Fields(QStringLiteral("qmtText")).toByteArray();
}

// A workgroup's day is written under its lock, as it would have been.
void StoreUnderLock(const QString& key, const UnsavedNote& note)
{
    DayRecord record;
    record.Seek(key, RecoveryTail);
    record.Edit();
    record.Commit(note.Over(record.Text()));
}
} // namespace

void Recovery::Offer()
{
    if (!HasPlanner()) return;
    const ErrorTail tail(RecoveryTail);
    for (LeftJournal& left : LeftJournal::FindAll()) {
        tail([&] {
            const std::vector<Found> found = NewsIn(left);
            if (found.empty() || Ask(found)) left.Forget(g_sNotesFile);
        });
    }
}

// What was saved after all, as by a save whose end the program did not see, is no news.
std::vector<Recovery::Found> Recovery::NewsIn(const LeftJournal& left)
{
    std::vector<Found> news;
    const auto notes = left.NotesOf(g_sNotesFile);
    for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
        const QByteArray stored = Stored(note.key());
        if (note->Over(stored) != stored) news.push_back({note.key(), *note, stored});
    }
    return news;
}

bool Recovery::Ask(const std::vector<Found>& found)
{
    std::vector<FoundNote> shown;
    for (const Found& day : found)
        shown.push_back({day.key, day.stored, day.note.Over(day.stored)});
    RecoveryForm form(shown, &m_owner);
    if (form.exec() != QDialog::Accepted) return false;
    std::vector<Found> wanted;
    UnsavedNotes::ByPlanner others;
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (form.Takes(i)) {
            wanted.push_back(found[i]);
        } else {
            others[g_sNotesFile].insert(found[i].key, found[i].note);
        }
    }
    const bool isKept = Take(wanted);
    return KeepAsFiles(UnsavedNotes(others)) && isKept;
}

bool Recovery::KeepAsFiles(const UnsavedNotes& others)
{
    try {
        WriteRescueFiles(others);
        return true;
    } catch (const RunTimeError& error) {
        LogError(error, RecoveryTail);
        MsgBox(QStringLiteral("The days that you did not tick could not be kept as files: %1\n\nThey will be offered "
                              "again when the planner is next opened.")
                   .arg(error.Description),
               msgbox::Exclamation, messages::HelpWizard);
        return false;
    }
}

// What the planner does not take now waits like any other note that could not be saved, and is journalled again before
// the journal that it came from goes.
bool Recovery::Take(const std::vector<Found>& wanted)
{
    QStringList waiting;
    for (const Found& day : wanted) {
        const bool stored = g_bDBShared && ErrorTail{RecoveryTail}([&] { StoreUnderLock(day.key, day.note); });
        if (!stored) m_notes.PutNote(day.key, day.note.rtf, day.note.base);
        if (m_notes.Unsaved().Find(g_sNotesFile, day.key)) waiting << fnFormatDateKey(day.key);
        m_notes.ReadDay(day.key);
    }
    const bool isKept = m_journal.Write();
    if (waiting.isEmpty()) return true;
    MsgBox(QStringLiteral("These days cannot be saved now, since the planner or the day is in use or the disk takes no "
                          "more:\n\n%1\n\nTheir text is shown and goes with the next save.")
               .arg(waiting.join(QStringLiteral("; "))),
           msgbox::Exclamation, messages::HelpWizard);
    return isKept;
}
