// The list of all notes with the words, filled while the person types.
#pragma once

#include "tools/foundmodel.h"
#include "tools/searchrun.h"

#include <QWidget>

class Exporting;
class HitCell;
class ListPrinting;
class QLabel;
class QListView;
class QPushButton;
class QStackedWidget;

struct HitListNeeds
{
    std::function<UnsavedNotes()> typed; // what is typed and not saved at this moment
    ListPrinting* printing;
    Exporting* exporting;
};

class HitList : public QWidget
{
public:
    HitList(HitCell& cell, const HitListNeeds& needs); // cell: where a row leads

    void Look(const QString& words) { m_run.Look(WordQuery(words)); }
    void FollowPlanner(); // looks again, a moment later, if the planner or what is typed has changed
    void Enter();         // from the words by the keyboard
    void Choose();        // the current row
    bool IsEntered() const;

private:
    QWidget* MakeFoot();
    QString Name() const; // of the list: the count and the words
    void Print();
    void Export();
    void Show(std::size_t from, bool again);
    void ShowProgress();
    void ShowTrouble(const QString& trouble);

    HitCell& m_cell;
    const HitListNeeds m_needs;
    SearchRun m_run;
    FoundModel* m_model = nullptr;
    QStackedWidget* m_pages = nullptr;
    QListView* m_lstFound = nullptr;
    QLabel* m_lblTrouble = nullptr; // in the list's place
    QLabel* m_lblCount = nullptr;
    QPushButton* m_btnStop = nullptr;
    QPushButton* m_btnPrint = nullptr;
    QPushButton* m_btnExport = nullptr;
};

QString CountOf(const std::vector<NoteHit>& notes); // "312 days", "1 day and 2 memos", "No day"
