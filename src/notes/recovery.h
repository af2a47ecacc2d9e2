// Offers what the journals of ended programs hold for a planner that has just been opened, and takes what is wanted.
#pragma once

#include "notes/journal.h"
#include "notes/recoveryform.h"

class QMTDB;

class Recovery
{
public:
    Recovery(QMTDB& notes, Journal& journal, QWidget& owner) : m_notes(notes), m_journal(journal), m_owner(owner) {}

    // Nothing where nothing was left for the open planner, and nothing before the program has started: the window of
    // the start would stand over the question, and the clock of the alarms not run behind it.
    void Offer();
    void BeginOffering(); // offers what waited for it

private:
    void OfferFrom(LeftJournal& left);
    static bool IsOfOpenPlanner(const QString& planner);
    static std::vector<FoundNote> NewsIn(const QMap<QString, UnsavedNote>& notes);
    bool Ask(const std::vector<FoundNote>& found);   // false: the journal is still needed
    bool Take(const std::vector<FoundNote>& wanted); // false: some of it is in memory alone
    static bool KeepAsFiles(const UnsavedNotes& others);

    QMTDB& m_notes;
    Journal& m_journal;
    QWidget& m_owner;
    bool m_offers = false;
};
