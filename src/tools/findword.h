// Finds a word in the stored notes, from the last record to the first. Turns the calendar to each hit and selects its
// note. The window stays in front of the main window, which remains usable.
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
        Failed // after a message
    };

    void btnFindNext_Click();   // to the next record with the word
    void btnFindWithin_Click(); // further in the found note, then to the next record
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
    bool m_bWordChanged = false; // the next search starts behind the last record
    bool m_bHitWaits = false;    // it was not shown because a locked day could not be stored
    int m_iPos = 0;              // the last hit's position in the text as read, from 1; 0 for none
    int m_iCell = 0;             // the cell of the hit
    GridDay m_hit;
};

class FindWord
{
public:
    FindWord(Cells& cells, Turn& turn, Redraw& redraw,
             const ViewMode& viewMode); // sets how the engine reads stored notes
    ~FindWord();

    void mnuFindWord_Click(); // opens the only window or brings it to the front
    void Unload();

private:
    Cells& m_cells;
    Turn& m_turn;
    Redraw& m_redraw;
    const ViewMode& m_viewMode;
    QPointer<FindWordForm> m_form;
};
