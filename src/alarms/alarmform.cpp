#include "alarms/alarmform.h"

#include "alarms/alarmrecords.h"
#include "alarms/alarmrules.h"
#include "alarms/tunes.h"
#include "editing/defaultfont.h"
#include "editing/notemenu.h"
#include "hall/cells.h"
#include "notes/turn.h"
#include "plannerfile/backups.h"
#include "platform/controls/dialogpart.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/notepanel.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/calendarstate.h"
#include "state/dateorder.h"
#include "state/lockedday.h"
#include "state/moddate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"
#include "state/refusals.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr QLatin1StringView LoadLiteral(" in AlarmForm, Form Load");

template <typename Action>
void WirePicture(PictureButton* picture, int pressed, int released, QLatin1StringView literal, Action action)
{
    QObject::connect(picture, &PictureButton::MouseDown, picture, [=] { picture->ShowElement(pressed); });
    QObject::connect(picture, &PictureButton::MouseUp, picture, Guarded(literal, [=] {
                         picture->ShowElement(released);
                         action();
                     }));
}

bool Refuses()
{
    return RefusesWithoutPlanner() || RefusesShared(u"Global alarm settings"_s);
}
} // namespace

AlarmForm::AlarmForm(Mode mode, int cell, Cells& cells, Turn& turn, Timer& tmAlarm)
    : QDialog(cells.Client()->window()), m_mode(mode), m_dateOrder(LocalDateOrder()), m_cells(cells), m_turn(turn),
      m_tmAlarm(tmAlarm), m_controls(MakeAlarmControls(*this))
{
    setObjectName(u"AlarmForm"_s);
    setWindowTitle(u"Alarm Events"_s);
    Wire();
    WirePictures();
    AddNoteMenu(*m_controls.tbNotes, "AlarmForm");
    Form_Load(cell);
    CenterAroundNote(*this, *m_controls.tbNotes);
}

// Music that is tried out ends with the window: nobody could stop it afterwards.
AlarmForm::~AlarmForm()
{
    if (!m_played.isEmpty()) StopTune(m_played);
}

void AlarmForm::Wire()
{
    const auto on = [this](QPushButton* button, QLatin1StringView literal, void (AlarmForm::*click)()) {
        connect(button, &QPushButton::clicked, this, Guarded(literal, [this, click] { (this->*click)(); }));
    };
    on(m_controls.btnOk, OkLiteral, &AlarmForm::btnOk_Click);
    on(m_controls.btnDelete, " in AlarmForm, btnDelete_Click"_L1, &AlarmForm::btnDelete_Click);
    on(m_controls.btnCancel, " in AlarmForm, btnCancel_Click"_L1, &AlarmForm::Close);
}

void AlarmForm::WirePictures()
{
    const auto step = [](PictureButton* picture, MaskEdBox* box, auto change, int first, int last) {
        WirePicture(picture, 1, 0, " in AlarmForm, subSpin"_L1,
                    [=] { box->SetText(change(box->Text(), first, last)); });
    };
    step(m_controls.picHourUp, m_controls.maskHour, OneUp, 1, 12);
    step(m_controls.picHourDn, m_controls.maskHour, OneDown, 1, 12);
    step(m_controls.picMinuteUp, m_controls.maskMinute, OneUp, 0, 59);
    step(m_controls.picMinuteDn, m_controls.maskMinute, OneDown, 0, 59);
    const QLatin1StringView left(" in AlarmForm, PicLeftSpin_MouseUp"), right(" in AlarmForm, PicRightSpin_MouseUp");
    WirePicture(m_controls.picLeftSpin, 1, 2, left, [this, left] { Browse(Toward::Previous, left); });
    WirePicture(m_controls.picRightSpin, 1, 2, right, [this, right] { Browse(Toward::Next, right); });
    const QLatin1StringView play(" in AlarmForm, picPlay_MouseUp");
    WirePicture(m_controls.picPlay, 1, 0, play, [this] { picPlay_MouseUp(); });
    WirePicture(m_controls.picStop, 0, 1, " in AlarmForm, picStop_MouseUp"_L1, [this] { picStop_MouseUp(); });
}

void AlarmForm::Form_Load(int cell)
{
    const ErrorTail tail(LoadLiteral);
    const Hourglass hourglass;
    m_tmAlarm.SetEnabled(false);
    const bool isShown = m_cells.panelDay.Exists(cell);
    const QString key = isShown ? CellKey(m_cells.panelDay(cell).Caption()) : CellKey({});
    m_controls.lblDateFormat->setText(m_dateOrder.label);
    ShowEmptyBoxes();
    tail([&] { m_controls.orlcmbTunes->FillTexts(ListTunes()); });
    tail([&] { GiveDefaultFont(*m_controls.tbNotes, DefaultStyles::None, LoadLiteral); });
    tail([&] {
        if (m_mode == Mode::New)
            PrepareNew(key);
        else
            PrepareBrowse(key);
    });
}

void AlarmForm::ShowEmptyBoxes()
{
    for (MaskEdBox* box : {m_controls.maskAlarmDate, m_controls.maskHour, m_controls.maskMinute}) {
        box->SetMask(QString());
        box->SetText(QString());
        box->SetMask(box == m_controls.maskAlarmDate ? m_dateOrder.mask : u"##"_s);
    }
    SetHalfDay(std::nullopt);
}

void AlarmForm::PrepareNew(const QString& key)
{
    m_controls.frAlarm->setTitle(u"New Alarm Event"_s);
    subHideBrowseControls();
    const bool isDay = fnGetQMTDay(key) > 0; // 0 for a memo
    if (isDay && g_iYear <= LastYearOfBox) m_controls.maskAlarmDate->SetText(m_dateOrder.BoxText(key));
    if (m_controls.orlcmbTunes->ListCount() > 0) m_controls.orlcmbTunes->SetListIndex(0);
    (m_controls.maskAlarmDate->IsComplete() ? m_controls.maskHour : m_controls.maskAlarmDate)->setFocus();
}

void AlarmForm::subHideBrowseControls()
{
    m_controls.frBrowseAlarm->setEnabled(false);
    m_controls.btnDelete->setEnabled(false);
    for (PictureButton* spin : {m_controls.picLeftSpin, m_controls.picRightSpin})
        spin->ShowElement(0);
}

void AlarmForm::SetHalfDay(HalfDay pm)
{
    m_controls.opAMPM->setExclusive(false); // an exclusive group cannot be left without a choice
    m_controls.opAMPM->button(0)->setChecked(pm == false);
    m_controls.opAMPM->button(1)->setChecked(pm == true);
    m_controls.opAMPM->setExclusive(true);
}

QString AlarmForm::fnAlarmTimeText()
{
    const int half = m_controls.opAMPM->checkedId();
    const QString time = AlarmTimeText(m_controls.maskHour->Text(), m_controls.maskMinute->Text(),
                                       half < 0 ? HalfDay() : HalfDay(half == 1));
    if (time.isEmpty()) messages::Tell(u"The time you have entered is not valid"_s);
    return time;
}

void AlarmForm::btnOk_Click()
{
    m_controls.tbNotes->CommitPreedit();
    if (m_mode == Mode::New) return AddAlarm();
    ApplyDeletions();
    Close();
}

void AlarmForm::AddAlarm()
{
    const Alarm alarm = {fnFnGetQMTDate(m_dateOrder.EntryDate(m_controls.maskAlarmDate->Text())), fnAlarmTimeText(),
                         m_controls.tbNotes->TextRTF(), m_controls.orlcmbTunes->Text(),
                         m_controls.chkSilence->isChecked()};
    if (!TellRefusal(alarm) && AskIfOver(alarm) && Store(alarm)) Close();
}

bool AlarmForm::TellRefusal(const Alarm& alarm)
{
    if (alarm.time.isEmpty()) return true; // the time's own message has been shown
    if (m_controls.tbNotes->IsEmpty()) {
        messages::Tell(u"Notes field cannot be empty"_s);
        m_controls.tbNotes->setFocus();
        return true;
    }
    if (m_controls.maskAlarmDate->IsComplete()) return false;
    // An alarm without a date would never ring and never be seen again.
    messages::Tell(u"The date you have entered is not complete"_s);
    m_controls.maskAlarmDate->setFocus();
    return true;
}

bool AlarmForm::AskIfOver(const Alarm& alarm)
{
    if (!IsOver(alarm.date, alarm.time, desktopclock::Now())) return true;
    const QString question = u"This moment is over: %1. An alarm rings only at its own minute, so this one would never "
                             "ring.\n\nDo you want to keep it all the same?"_s;
    if (MsgBox(question.arg(ShownDayAndTime(alarm.date, alarm.time)),
               msgbox::YesNo + msgbox::Question + msgbox::DefaultButton2, messages::HelpWizard) == msgbox::Yes)
        return true;
    m_controls.maskAlarmDate->setFocus();
    return false;
}

// If the planner refuses the alarm, the window stays open with what was entered.
bool AlarmForm::Store(const Alarm& alarm)
{
    bool isStored = false;
    QString problem;
    m_turn(OkLiteral, [&] {
        try {
            BackUpBeforeSave();
            subAddAlarmRecord(g_rsAlarm, alarm);
            isStored = true;
        } catch (const RunTimeError& error) {
            LogError(error, OkLiteral);
            problem = error.Description;
        }
    });
    if (!problem.isEmpty()) messages::Tell(problem, msgbox::Exclamation);
    return isStored;
}

void AlarmForm::Close()
{
    m_tmAlarm.SetEnabled(true);
    accept();
}

void AlarmForm::reject()
{
    const bool isAtWindow = !focusWidget() || focusWidget() == this;
    if (!isAtWindow) m_tmAlarm.SetEnabled(true);
    QDialog::reject();
}

void AlarmForm::closeEvent(QCloseEvent* event)
{
    Guarded(OkLiteral, [this] {
        if (m_mode == Mode::Browse) ApplyDeletions();
        Close();
    })();
    event->accept();
}

void AlarmForm::picPlay_MouseUp()
{
    m_played = m_controls.orlcmbTunes->Text();
    const QString problem = PlayTune(m_played);
    if (!problem.isEmpty()) MsgBox(problem);
}

void AlarmForm::picStop_MouseUp()
{
    StopTune(m_controls.orlcmbTunes->Text());
}

// After a redraw no cell is current, though the caret may still be in one.
int AlarmHandlers::CurrentCell()
{
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    return g_iCurrentPanel;
}

void AlarmHandlers::mnuNewAlarm_Click()
{
    if (!Refuses()) AlarmForm(AlarmForm::Mode::New, CurrentCell(), m_cells, m_turn, m_tmAlarm).exec();
}

void AlarmHandlers::mnuChangeAlarms_Click()
{
    if (!Refuses()) AlarmForm(AlarmForm::Mode::Browse, CurrentCell(), m_cells, m_turn, m_tmAlarm).exec();
}

// Closing the window reads the cells again, so text in a locked day is stored first.
void AlarmHandlers::btnTunes_Click(int Index)
{
    if (RefusesWithoutPlanner()) return;
    if (g_bDBShared && !m_lockedDay.Commit()) return;
    AlarmForm(AlarmForm::Mode::Browse, Index, m_cells, m_turn, m_tmAlarm).exec();
}
