// The editor of alarms, in two modes. New makes an alarm; Browse goes through the alarms of one day and deletes. While
// it is open the alarm clock stands still. Esc is Cancel; at the window itself, with no control in the focus, it leaves
// the clock so until the editor is closed in another way.
#pragma once

#include "alarms/alarmcontrols.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/recordset.h"

#include <QDialog>

#include <optional>

class Cells;
struct Alarm;
struct DateOrder;
class QScrollBar;
class Timer;
class Turn;
enum class Toward;

class AlarmForm : public QDialog
{
    Q_OBJECT

public:
    enum class Mode
    {
        New,
        Browse
    };

    // cell is the one whose day is proposed for a new alarm, or whose alarms are shown; 0 for none.
    AlarmForm(Mode mode, int cell, Cells& cells, Turn& turn, Timer& tmAlarm);
    ~AlarmForm() override;

    void reject() override; // Esc

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Form_Load(int cell);
    void Wire();
    void WirePictures();
    void PrepareNew(const QString& caption);
    void PrepareBrowse(const QString& caption);
    void subHideBrowseControls();
    void ProposeDate(const QString& caption);
    void ShowEmptyBoxes();

    void subDisplayAlarmData(const QString& caption);
    void ShowAlarm(const Alarm& alarm);
    void Browse(Toward direction, QLatin1StringView literal);

    void btnOk_Click();
    void btnDelete_Click();
    void btnCancel_Click();
    void AddAlarm();
    bool TellRefusal(const Alarm& alarm); // true if the alarm cannot be stored as it is
    bool Store(const Alarm& alarm);
    void ApplyDeletions();
    void picPlay_MouseUp();
    void picStop_MouseUp();

    std::optional<bool> HalfDay() const;
    QString fnAlarmTimeText();
    void SetHalfDay(std::optional<bool> pm);
    QScrollBar* ScrollBarOfBrowsedNote() const;
    static void Tell(const QString& text, int icon = msgbox::Information);
    void Close();

    const Mode m_mode;
    const DateOrder& m_dateOrder; // the machine's
    Cells& m_cells;
    Turn& m_turn;
    Timer& m_tmAlarm;
    AlarmControls m_controls;
    // Of this window alone, while it browses: marks that are drawn anew look through the shared one.
    Recordset m_alarms;
    QString m_sAlarmDate; // the key of the day that is browsed
    QString m_played;     // the tune that was started here last
};
