// Finds a word in the stored notes, from the last record to the first. Turns the calendar to each hit and selects its
// note. Below, a list of all notes with the words can be unfolded. The window stays in front of the main window, which
// remains usable.
#pragma once

#include "tools/hitcell.h"

#include <QDialog>

class HitList;
struct HitListNeeds;
class QLineEdit;
class QPushButton;
class QToolButton;

class FindWordForm : public QDialog
{
    Q_OBJECT

public:
    FindWordForm(QWidget* owner, const HitCell& cell, const HitListNeeds& needs);
    ~FindWordForm() override;

    void ShowAllDays(); // unfolds the list
    void FollowPlanner();

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
    QToolButton* MakeFold();
    void Fold(bool folded);
    void KeepSize() const;
    void ShowStored();
    void ShowButton(QPushButton* shown, QPushButton* hidden);
    void EnableButtons(bool enabled);

    Found FindDay();
    Found FindRecord(const QString& criterion);
    void StepBack(const QString& criterion);
    bool subGotoRecCalendar(const QByteArray& text, const QString& word, const GridDay& day);
    int fnFindString(const QByteArray& text, const QString& word);

    HitCell m_cell;
    QLineEdit* m_tbFindWord = nullptr;
    QPushButton* m_btnFindNext = nullptr;
    QPushButton* m_btnFindWithin = nullptr;
    QToolButton* m_btnAllDays = nullptr;
    HitList* m_list = nullptr;
    bool m_bSearching = false;   // the first search has run
    bool m_bWordChanged = false; // the next search starts behind the last record
    bool m_bHitWaits = false;    // it was not shown because a locked day could not be stored
    int m_iPos = 0;              // the last hit's position in the text as read, from 1; 0 for none
    GridDay m_hit;
};
