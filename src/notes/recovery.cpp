#include "notes/recovery.h"

#include "notes/dayrecord.h"
#include "notes/qmtdb.h"
#include "notes/rescuefiles.h"
#include "plannerfile/schema.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/moddate.h"
#include "state/plannerstate.h"

#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace {
constexpr QLatin1StringView RecoveryTail(" in Recovery, Offer");

QByteArray Stored(const QString& key)
{
    g_rsQMT.Seek(schema::Equal, key);
    return g_rsQMT.NoMatch() ? QByteArray() : g_rsQMT.Fields(schema::TextField).toByteArray();
}

// Days by date; memos follow the days of their month.
std::tuple<int, int, int, QString> OrderOf(const QString& key)
{
    constexpr int BehindTheDays = 99;
    const QStringList parts = key.split(u'/');
    bool isDay = false;
    const int day = parts.value(2).toInt(&isDay);
    return {parts.value(0).toInt(), parts.value(1).toInt(), isDay ? day : BehindTheDays, key};
}

// A workgroup's day is written under its lock only.
void StoreUnderLock(const QString& key, const UnsavedNote& note)
{
    DayRecord record;
    record.Seek(key, RecoveryTail);
    record.Edit();
    record.Commit(note.Over(record.Text()));
}
} // namespace

// The path may be another name of the same file. If it is gone, only the person knows whether the planner was moved.
bool Recovery::IsOfOpenPlanner(const QString& planner)
{
    const QFileInfo left(planner);
    if (planner == g_sNotesFile) return true;
    if (left.exists()) return left.canonicalFilePath() == QFileInfo(g_sNotesFile).canonicalFilePath();
    return MsgBox(u"What was typed into\n\n%1\n\nhas not been saved, and that planner is no longer "
                  "there. Is it the one that is open now, in another place or under another "
                  "name?\n\nYes offers what was typed for this planner. No keeps it until the next "
                  "opening."_s.arg(planner),
                  msgbox::YesNo + msgbox::Question + msgbox::DefaultButton2, messages::HelpWizard) == msgbox::Yes;
}

void Recovery::BeginOffering()
{
    m_offers = true;
    Offer();
}

void Recovery::Offer()
{
    if (!m_offers || !HasPlanner()) return;
    const ErrorTail tail(RecoveryTail);
    LeftJournal::All all = LeftJournal::FindAll();
    for (const QString& path : all.damaged) {
        MsgBox(u"Orrelin ended before it could save what was typed, and the file that keeps it is "
               "damaged. It lies in\n\n%1"_s.arg(path),
               msgbox::Exclamation, messages::HelpWizard);
    }
    for (LeftJournal& left : all.whole)
        tail([&] { OfferFrom(left); });
}

void Recovery::OfferFrom(LeftJournal& left)
{
    for (const QString& planner : left.Notes().Planners()) {
        if (!IsOfOpenPlanner(planner)) continue;
        const std::vector<FoundNote> found = NewsIn(left.Notes().NotesOf(planner));
        if (found.empty() || Ask(found)) left.Forget(planner);
    }
}

// Sorted by day. A note that was saved after all, by a save whose end the program did not see, is left out.
std::vector<FoundNote> Recovery::NewsIn(const QMap<QString, UnsavedNote>& notes)
{
    std::vector<FoundNote> news;
    for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
        const QByteArray stored = Stored(note.key());
        if (note->Over(stored) != stored) news.push_back({note.key(), *note, stored});
    }
    std::ranges::stable_sort(news,
                             [](const FoundNote& a, const FoundNote& b) { return OrderOf(a.key) < OrderOf(b.key); });
    return news;
}

bool Recovery::Ask(const std::vector<FoundNote>& found)
{
    RecoveryForm form(found, &m_owner);
    if (form.exec() != QDialog::Accepted) return false;
    std::vector<FoundNote> wanted;
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
    const QString reason = WriteRescueFiles(others, RecoveryTail);
    if (reason.isEmpty()) return true;
    MsgBox(u"The days that you did not tick could not be kept as files: %1\n\nThey will be offered again when the "
           "planner is next opened."_s.arg(reason),
           msgbox::Exclamation, messages::HelpWizard);
    return false;
}

// A note that the planner does not take becomes an unsaved note. It is journalled again before its old journal is
// deleted.
bool Recovery::Take(const std::vector<FoundNote>& wanted)
{
    QStringList waiting;
    for (const FoundNote& day : wanted) {
        const bool stored = g_bDBShared && ErrorTail{RecoveryTail}([&] { StoreUnderLock(day.key, day.note); });
        if (!stored) m_notes.PutNote(day.key, day.note);
        if (m_notes.Unsaved().Find(g_sNotesFile, day.key)) waiting << fnFormatDateKey(day.key);
        m_notes.ReadDay(day.key);
    }
    const bool isKept = m_journal.Write();
    if (waiting.isEmpty()) return true;
    MsgBox(u"These days cannot be saved now, since the planner or the day is in use or the disk takes no "
           "more:\n\n%1\n\nTheir text is shown and goes %2."_s.arg(
               waiting.join(u"; "_s), g_bDBShared ? u"by locking and unlocking the day, or at "
                                                    "the end of Orrelin"_s
                                                  : u"with the next save"_s),
           msgbox::Exclamation, messages::HelpWizard);
    return isKept;
}
