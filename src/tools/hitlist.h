// The list of all notes with the words, filled while the person types. It reads the open planner, and instead of its
// notes those that are typed but not saved.
#pragma once

#include "notes/unsavednotes.h"
#include "tools/foundmodel.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>

class Exporting;
class HitCell;
class ListPrinting;
class QLabel;
class QListView;
class QPushButton;
class QStackedWidget;
struct RunTimeError;

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

    void Look(const QString& words);
    void FollowPlanner(); // looks again, a moment later, if the planner or what is typed has changed
    void Enter();         // from the words by the keyboard
    void Choose();        // the current row
    bool IsEntered() const;

private:
    // What the list was made of.
    struct Source
    {
        QString planner;
        std::pair<int, qint64> revision;
        WordSearch::Unsaved unsaved;
        bool operator==(const Source&) const = default;
    };

    QWidget* MakeFoot();
    QString Name() const; // of the list: the count and the words
    void Print();
    void Export();
    const WordQuery& Query() const { return m_search.Query(); }
    Source Present() const;
    void Begin(const Source& source, const WordQuery& query, bool again);
    void Follow();
    void Slice();
    void Show(std::size_t from);
    void ShowProgress();
    void Fail(const RunTimeError& error);
    void Stop();
    template <typename Step>
    void Try(Step step);

    HitCell& m_cell;
    const HitListNeeds m_needs;
    QString m_words;
    WordSearch m_search;
    Source m_source;
    QTimer m_slices, m_following;
    QElapsedTimer m_since;    // the beginning
    bool m_isShown = true;    // the list shows this search, not the one before
    bool m_isAgain = false;   // the same words: the list stays until all is found
    bool m_isStopped = false; // by the person or by an error
    int m_tries = 0;          // after somebody else's save was in the way
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
