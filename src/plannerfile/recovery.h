// Offers what the journals of ended programs hold for a planner that has just been opened, and takes what is wanted.
#pragma once

#include "plannerfile/journal.h"
#include "plannerfile/recoveryform.h"

class QMTDB;

class Recovery
{
public:
    Recovery(QMTDB& notes, Journal& journal, QWidget& owner) : m_notes(notes), m_journal(journal), m_owner(owner) {}

    void Offer(); // nothing where nothing was left for the open planner

private:
    struct Found
    {
        QString key;
        UnsavedNote note;
        QByteArray stored;
    };

    static std::vector<Found> NewsIn(const LeftJournal& left);
    bool Ask(const std::vector<Found>& found);   // false: the journal is still needed
    bool Take(const std::vector<Found>& wanted); // false: some of it is in memory alone
    static bool KeepAsFiles(const UnsavedNotes& others);

    QMTDB& m_notes;
    Journal& m_journal;
    QWidget& m_owner;
};
