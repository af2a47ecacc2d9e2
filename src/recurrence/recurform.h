// Recurring Events: enters an event, or browses the stored ones and deletes one. Once it browses, the window does
// nothing else.
#pragma once

#include "recurrence/recurrence.h"

#include <QDialog>

struct DateOrder;
class Cells;
class ErrorTail;
class FontCommand;
class MaskEdBox;
class PictureButton;
class QButtonGroup;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QMTDB;
class RichTextBox;
class ViewMode;

class RecurForm : public QDialog
{
    Q_OBJECT

public:
    RecurForm(QWidget* owner, Cells& cells, QMTDB& notes, const ViewMode& viewMode, FontCommand& fontCommand);

private:
    QWidget* MakeOptions();
    QLayout* MakeDates();
    QWidget* MakeBrowser();
    QLayout* MakeMethods();
    QWidget* MakeInterval();
    QWidget* MakeText();
    QLabel* MakeDays();
    void FollowChanges();
    QLayout* MakeFoot();
    MaskEdBox* MakeDateBox(QGridLayout& grid, int row, const char* name, const char* caption, const char* pickTip);

    void Form_Load();
    void ShowDefaultDate();
    void btnOk_Click();
    void btnDelete_Click();
    void btnFonts_Click();
    void picRightSpin_MouseDown();
    void picRightSpin_MouseUp();

    struct Refusal
    {
        QString text; // empty if the dates are valid
        MaskEdBox* box = nullptr;
        int icon = 0;
    };
    Refusal RefusalOfDates() const;
    QString MethodProblem() const; // what is missing at the options, or empty
    QString StartDate() const;     // entry dates
    QString EndDate() const;
    bool LeadsToNotes() const; // the shown record has dates and a method
    QString DaysToWrite() const;
    QString StoredDays() const;
    void ShowDays();
    bool AskToDelete() const;

    bool HaveValidDates();
    bool SaveCells();
    bool SaveEvent(const QString& sStart, const QString& sEnd);
    bool fnRecurseSpecial(Recurrence& event, const QString& sStart, const QString& sEnd);
    std::int16_t Step(const ErrorTail& tail) const; // 0 if it cannot be read
    void Browse();
    void ShowRecord();
    void ShowMethod(const QString& frequency);
    void EndOfRecords();
    void DeleteShown();
    void ShowCells();
    void ReopenRecords();
    Recurrence Event();

    static constexpr int Special = 4; // the method that takes its number and unit from the lists

    Cells& m_cells;
    QMTDB& m_notes;
    const ViewMode& m_viewMode;
    FontCommand& m_fontCommand;
    const DateOrder& m_iDateFormat;

    MaskEdBox* m_maskStartDate = nullptr;
    MaskEdBox* m_maskUntil = nullptr;
    QButtonGroup* m_opMethod;
    QComboBox* m_cmbRecurDays = nullptr;
    QComboBox* m_cmbRecurSpecial = nullptr;
    PictureButton* m_picRightSpin = nullptr;
    QLabel* m_lblNextRecord = nullptr;
    RichTextBox* m_tbRecurse = nullptr;
    QLabel* m_lblDays = nullptr;
    QPushButton* m_btnOk = nullptr;
    QPushButton* m_btnCancel = nullptr;
    QPushButton* m_btnDelete = nullptr;
    QPushButton* m_btnFonts = nullptr;
    bool m_isPressed = false; // the shown record is the current one, not the one before it
};

class RecurringEvents
{
public:
    RecurringEvents(Cells& cells, QMTDB& notes, const ViewMode& viewMode, FontCommand& fontCommand)
        : m_cells(cells), m_notes(notes), m_viewMode(viewMode), m_fontCommand(fontCommand)
    {
    }

    void mnuRecurse_Click(); // personal planners only; otherwise a message says so

private:
    Cells& m_cells;
    QMTDB& m_notes;
    const ViewMode& m_viewMode;
    FontCommand& m_fontCommand;
};
