// The editor of alarms. New makes an alarm; Browse steps through the alarms of one day and deletes. The alarm clock is
// stopped while it is open. Esc cancels; if no control has the focus, Esc leaves the clock stopped until an editor is
// closed in another way.
#pragma once

#include "alarms/alarmrules.h"
#include "platform/engine/recordset.h"

#include <QDialog>

class Cells;
class LockedDay;
struct Alarm;
struct DateOrder;
class DialogPart;
class MaskEdBox;
class ORLCombo;
class PictureButton;
class QButtonGroup;
class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;
class RichTextBox;
class Timer;
class Turn;
enum class Toward;

struct AlarmControls
{
    DialogPart* frAlarm = nullptr;
    DialogPart* frBrowseAlarm = nullptr;
    PictureButton* picLeftSpin = nullptr; // 0 idle in New mode, 1 pressed, 2 released in Browse mode
    PictureButton* picRightSpin = nullptr;
    DialogPart* frAlarmDate = nullptr;
    QLabel* lblDateFormat = nullptr;
    MaskEdBox* maskAlarmDate = nullptr;
    MaskEdBox* maskHour = nullptr;
    PictureButton* picHourUp = nullptr; // 0 released, 1 pressed
    PictureButton* picHourDn = nullptr;
    MaskEdBox* maskMinute = nullptr;
    PictureButton* picMinuteUp = nullptr;
    PictureButton* picMinuteDn = nullptr;
    QButtonGroup* opAMPM = nullptr; // 0 AM, 1 PM
    DialogPart* frTunes = nullptr;
    ORLCombo* orlcmbTunes = nullptr;
    PictureButton* picPlay = nullptr; // 0 released, 1 pressed
    PictureButton* picStop = nullptr; // 0 pressed, 1 released
    QCheckBox* chkSilence = nullptr;
    DialogPart* frNotes = nullptr;
    RichTextBox* tbNotes = nullptr;
    QPushButton* btnOk = nullptr;
    QPushButton* btnDelete = nullptr;
    QPushButton* btnCancel = nullptr;
};

AlarmControls MakeAlarmControls(QDialog& window); // children of the window

class AlarmForm : public QDialog
{
    Q_OBJECT

public:
    enum class Mode
    {
        New,
        Browse
    };

    // The day of this cell is proposed for a new alarm, or its alarms are shown; 0 for none.
    AlarmForm(Mode mode, int cell, Cells& cells, Turn& turn, Timer& tmAlarm);
    ~AlarmForm() override;

    void reject() override; // by Esc

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Form_Load(int cell);
    void Wire();
    void WirePictures();
    void PrepareNew(const QString& key);
    void PrepareBrowse(const QString& key);
    void subHideBrowseControls();
    void ShowEmptyBoxes();

    void subDisplayAlarmData();
    void ShowAlarm(const Alarm& alarm);
    void Browse(Toward direction, QLatin1StringView literal);

    void btnOk_Click();
    void btnDelete_Click();
    void AddAlarm();
    bool TellRefusal(const Alarm& alarm); // true if the alarm cannot be stored as it is
    bool AskIfOver(const Alarm& alarm);   // false if the person does not want a moment that is past
    bool Store(const Alarm& alarm);
    void ApplyDeletions();
    void picPlay_MouseUp();
    void picStop_MouseUp();

    QString fnAlarmTimeText();
    void SetHalfDay(HalfDay pm);
    QScrollBar* ScrollBarOfBrowsedNote() const;
    void Close();

    static constexpr QLatin1StringView OkLiteral{" in AlarmForm, btnOk_Click"};

    const Mode m_mode;
    const DateOrder& m_dateOrder; // the machine's date order
    Cells& m_cells;
    Turn& m_turn;
    Timer& m_tmAlarm;
    AlarmControls m_controls;
    // Browsing has its own recordset, since drawing the alarm marks moves the shared one.
    Recordset m_alarms;
    QString m_sAlarmDate; // key of the browsed day
    QString m_played;     // the tune last started here
};

// The main window's alarm commands.
class AlarmHandlers
{
public:
    AlarmHandlers(Cells& cells, Timer& tmAlarm, Turn& turn, LockedDay& lockedDay)
        : m_cells(cells), m_tmAlarm(tmAlarm), m_turn(turn), m_lockedDay(lockedDay)
    {
    }

    // Personal planners only; otherwise a message says so.
    void mnuNewAlarm_Click();
    void mnuChangeAlarms_Click();
    void btnTunes_Click(int Index); // in a workgroup's planner too

private:
    int CurrentCell();

    Cells& m_cells;
    Timer& m_tmAlarm;
    Turn& m_turn;
    LockedDay& m_lockedDay;
};
