// Finds a word in the stored notes, from the last record back to the first, turns the calendar to each hit and selects
// its note. Stays in front of the main window while the calendar is in use.
#pragma once

#include "state/moddate.h"

#include <QDialog>
#include <QPointer>

class Cells;
class QLineEdit;
class QPushButton;
class Redraw;
class Turn;
class ViewMode;

class FindWordForm : public QDialog
{
    Q_OBJECT

public:
    FindWordForm(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode);
    ~FindWordForm() override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void done(int result) override;

private:
    enum class Found
    {
        Hit,
        Nothing,
        Failed // and the person knows
    };

    void btnFindNext_Click();   // on to the next record that holds the word
    void btnFindWithin_Click(); // on through the note that was found, and then to the next record
    void tbFindWord_Change();

    void MakeControls();
    QPushButton* MakeButton(const char* name, QLatin1StringView literal, void (FindWordForm::*click)());
    void ShowStored();
    void ShowButton(QPushButton* shown, QPushButton* hidden);
    void EnableButtons(bool enabled);

    Found FindDay();
    Found FindRecord(const QString& criterion);
    void StepBack(const QString& criterion);
    bool subGotoRecCalendar(const QByteArray& text, const QString& word, const GridDay& day);
    bool ShowDay(const GridDay& day);
    void FocusCell();
    bool ShowsHit() const;
    int fnFindString(const QByteArray& text, const QString& word);
    void ClearSelections();
    void SelectNote();

    Cells& m_cells;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QLineEdit* m_tbFindWord = nullptr;
    QPushButton* m_btnFindNext = nullptr;
    QPushButton* m_btnFindWithin = nullptr;
    bool m_bSearching = false;   // the first search has run
    bool m_bWordChanged = false; // so that the next search begins behind the last record
    bool m_bHitWaits = false;    // it could not be shown, since a locked day could not be stored
    int m_iPos = 0;              // of the last hit within the record's text as it is read, from 1; 0 is none
    int m_iCell = 0;             // that shows the hit's day
    GridDay m_hit;
};

// The command that opens it.
class FindWord
{
public:
    FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode); // sets how stored notes are read
    ~FindWord();

    void mnuFindWord_Click(); // one window at most; a second time brings it to the front
    void Unload();            // closes the window, if there is one

private:
    Cells& m_cells;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QPointer<FindWordForm> m_form;
};
