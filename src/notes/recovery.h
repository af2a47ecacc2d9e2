// Offers the notes that journals of ended programs hold for the planner just opened, and stores the chosen ones.
#pragma once

#include "notes/journal.h"
#include "notes/recoveryform.h"

class QMTDB;

class Recovery
{
public:
    Recovery(QMTDB& notes, Journal& journal, QWidget& owner) : m_notes(notes), m_journal(journal), m_owner(owner) {}

    // Does nothing before BeginOffering: during the start the splash window would cover the question and the alarm
    // clock would not run.
    void Offer();
    void BeginOffering(); // also offers for the planner already open

private:
    void OfferFrom(LeftJournal& left);
    static bool IsOfOpenPlanner(const QString& planner);
    static std::vector<FoundNote> NewsIn(const QMap<QString, UnsavedNote>& notes);
    bool Ask(const std::vector<FoundNote>& found);   // false: the journal is still needed
    bool Take(const std::vector<FoundNote>& wanted); // false: a note is in memory only
    static bool KeepAsFiles(const UnsavedNotes& others);

    QMTDB& m_notes;
    Journal& m_journal;
    QWidget& m_owner;
    bool m_offers = false;
};
