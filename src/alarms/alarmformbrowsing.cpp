// The Browse mode of the editor.
#include "alarms/alarmform.h"
#include "alarms/alarmrecords.h"
#include "alarms/alarmrules.h"
#include "notes/alarmmarks.h"
#include "notes/turn.h"
#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/controls/dialogpart.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/softtext.h"
#include "platform/engine/database.h"
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/dateorder.h"
#include "state/plannerstate.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>

namespace {
constexpr QLatin1StringView DisplayLiteral(" in AlarmForm, subDisplayAlarmData");
} // namespace

void AlarmForm::PrepareBrowse(const QString& key)
{
    m_controls.frAlarm->setTitle(u"Browse/Edit Alarm Event"_s);
    // A disabled frame disables its controls.
    for (DialogPart* frame : {m_controls.frAlarmDate, m_controls.frTunes, m_controls.frNotes}) {
        frame->setEnabled(false);
        KeepReadable(*frame);
    }
    for (PictureButton* spin : {m_controls.picLeftSpin, m_controls.picRightSpin})
        spin->ShowElement(2);
    m_controls.btnCancel->hide();
    m_controls.picRightSpin->setFocus();
    m_sAlarmDate = key;
    subDisplayAlarmData();
}

void AlarmForm::subDisplayAlarmData()
{
    ErrorTail{DisplayLiteral}([this] {
        m_alarms = schema::OpenAlarms(g_dbPlanner);
        m_alarms.Seek(u"="_s, m_sAlarmDate);
        if (!m_alarms.NoMatch()) ShowAlarm(CurrentAlarm(m_alarms));
    });
}

void AlarmForm::ShowAlarm(const Alarm& alarm)
{
    const ErrorTail tail(DisplayLiteral);
    tail([&] { m_controls.maskAlarmDate->SetText(m_dateOrder.BoxText(m_sAlarmDate)); });
    tail([&] {
        const ShownTime time = ShownTimeOf(alarm.time);
        m_controls.maskHour->SetText(time.hour);
        m_controls.maskMinute->SetText(time.minute);
        SetHalfDay(time.pm);
    });
    ORLCombo& tunes = *m_controls.orlcmbTunes;
    tunes.SetListIndex(-1);
    for (int index = 0; index < tunes.ListCount(); ++index) {
        if (tunes.List(index) == alarm.tune) tunes.SetListIndex(index);
    }
    m_controls.chkSilence->setChecked(alarm.silence);
    m_controls.tbNotes->SetTextRTF(alarm.note);
}

void AlarmForm::Browse(Toward direction, QLatin1StringView literal)
{
    ErrorTail{literal}([&] {
        const auto step = [&] {
            const ReadTransaction reading(g_dbPlanner);
            return StepToAlarm(m_alarms, m_sAlarmDate, direction);
        };
        if (step()) return ShowAlarm(CurrentAlarm(m_alarms));
        messages::Tell(u"No more alarm events for the date "_s + m_controls.maskAlarmDate->Text());
    });
}

// The cells are saved first, since reading the planner again would replace their text.
void AlarmForm::ApplyDeletions()
{
    m_turn(OkLiteral, [this] { subUnloadAlarmIcons(m_cells); });
    ErrorTail{OkLiteral}([] {
        const Recordset alarms = schema::OpenAlarms(g_dbPlanner);
        g_rsAlarm.Close();
        g_rsAlarm = alarms;
    });
}

void AlarmForm::btnDelete_Click()
{
    if (!m_controls.maskAlarmDate->IsComplete()) return; // no alarm is shown
    const ErrorTail tail(" in AlarmForm, btnDelete_Click"_L1);
    Alarm shown = {
        m_sAlarmDate, fnAlarmTimeText(), {}, m_controls.orlcmbTunes->Text(), m_controls.chkSilence->isChecked()};
    if (shown.time.isEmpty()) return;
    bool isFound = false;
    tail([&] {
        const ReadTransaction reading(g_dbPlanner);
        isFound = GoToAlarmLike(m_alarms, shown);
    });
    if (!isFound) return;
    BackUpBeforeSave();
    QString problem;
    tail([&] {
        try {
            m_alarms.Delete();
        } catch (const RunTimeError& error) {
            problem = error.Description;
            throw;
        }
    });
    if (!problem.isEmpty()) return messages::Tell(problem, msgbox::Exclamation);
    tail([&] { m_alarms.MoveFirst(); });
    ShowEmptyBoxes();
    m_controls.chkSilence->setChecked(false);
    m_controls.orlcmbTunes->SetListIndex(-1);
    m_controls.tbNotes->SetTextRTF({});
}

// A disabled box takes neither wheel nor keys, but a long note must be readable.
QScrollBar* AlarmForm::ScrollBarOfBrowsedNote() const
{
    return m_mode == Mode::Browse ? m_controls.tbNotes->verticalScrollBar() : nullptr;
}

void AlarmForm::wheelEvent(QWheelEvent* event)
{
    QScrollBar* bar = ScrollBarOfBrowsedNote();
    if (!bar) return QDialog::wheelEvent(event);
    constexpr int Notch = 120;
    bar->setValue(bar->value() -
                  event->angleDelta().y() * QApplication::wheelScrollLines() * bar->singleStep() / Notch);
}

void AlarmForm::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* bar = ScrollBarOfBrowsedNote();
    const int pages = event->key() == Qt::Key_PageDown ? 1 : event->key() == Qt::Key_PageUp ? -1 : 0;
    if (!bar || pages == 0) return QDialog::keyPressEvent(event); // Esc closes
    bar->setValue(bar->value() + pages * bar->pageStep());
}
