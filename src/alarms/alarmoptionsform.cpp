#include "alarms/alarmoptionsform.h"

#include "alarms/clockword.h"
#include "alarms/tunes.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/sessionstart.h"
#include "platform/desktop/tray.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QSlider>

namespace {
constexpr QLatin1StringView Literal(" in AlarmOptionsForm");

struct Option
{
    const char* name;
    const char* caption;
    const IntSetting& setting;
};
constexpr Option Options[] = {
    {"chkAll", "&Ring all alarms of the same minute, one after another", settings::AllAlarms},
    {"chkMissed", "&List alarms that rang while nobody could hear them", settings::ListMissed},
    {"chkNotify", "Show a &message of the desktop, too, if the alarm's window is not in front",
     settings::NotifyOfAlarms},
    {"chkRepeat", "R&epeat the tune until the alarm is answered", settings::RepeatTune},
    {"chkTray", "&Keep ringing in the tray when the window is closed", settings::RingInTray},
};
} // namespace

AlarmOptionsForm::AlarmOptionsForm(QWidget* owner) : QDialog(owner)
{
    setObjectName(u"AlarmOptionsForm"_s);
    setWindowTitle(u"Alarm Options"_s);
    auto* column = DialogColumn(*this);
    for (const Option& option : Options) {
        auto* box = AddTo<QCheckBox>(*column, option.name, QString::fromLatin1(option.caption));
        box->setChecked(Read(option.setting) != 0);
        m_ticks.push_back({&option.setting, box});
    }
    AddTray(*column);
    AddSound(*column);
    column->addWidget(MakeOkCancel(*this));
    CenterOnScreen(*this);
}

// Without a tray here, the choice stays for the person's other desktop.
void AlarmOptionsForm::AddTray(QVBoxLayout& column)
{
    auto& tray = *findChild<QCheckBox*>(u"chkTray"_s);
    tray.setEnabled(HasTray());
    if (!tray.isEnabled()) {
        tray.setChecked(false);
        tray.setText(tray.text() + u" (this desktop shows no tray)"_s);
    }
    m_chkSession = AddTo<QCheckBox>(column, "chkSession", u"&Start with the session"_s);
    m_chkSession->setChecked(sessionstart::IsOn());
}

// With the tray the window stays closed.
bool AlarmOptionsForm::SetSessionStart() const
{
    return sessionstart::Set(m_chkSession->isChecked(), Read(settings::RingInTray) != 0 ? ClockWord : QString());
}

void AlarmOptionsForm::AddSound(QVBoxLayout& column)
{
    constexpr int Step = 10;
    m_sldVolume = Named(new QSlider(Qt::Horizontal), "sldVolume");
    m_sldVolume->setRange(0, 100);
    m_sldVolume->setPageStep(Step);
    m_sldVolume->setSingleStep(Step);
    m_sldVolume->setValue(Read(settings::TuneVolume));
    auto* listen = Named(new QPushButton(u"L&isten"_s), "btnListen");
    listen->setAutoDefault(false);
    connect(listen, &QPushButton::clicked, this, Guarded(Literal, [this] { btnListen_Click(); }));
    auto* row = DialogRow(Rhythm, {LabelOf(u"&Volume of tunes:"_s, m_sldVolume), m_sldVolume, listen});
    row->setStretchFactor(m_sldVolume, 1);
    column.addLayout(row);
}

// Music, since it can be ended.
void AlarmOptionsForm::btnListen_Click()
{
    const QStringList tunes = ListTunes();
    m_played = tunes.isEmpty() ? QString() : tunes.last();
    const QString problem = PlayTune(m_played, {m_sldVolume->value(), false});
    if (!problem.isEmpty()) messages::Tell(problem, msgbox::Exclamation);
}

void AlarmOptionsForm::accept()
{
    ErrorTail{Literal}([this] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        for (const Tick& tick : m_ticks)
            if (tick.box->isEnabled()) Write(*tick.setting, tick.box->isChecked() ? 1 : 0);
        Write(settings::TuneVolume, m_sldVolume->value());
    });
    QDialog::accept();
    if (!SetSessionStart())
        messages::Tell(u"The entry for the start with the session cannot be changed."_s, msgbox::Exclamation);
}

void AlarmOptionsForm::done(int result)
{
    if (!m_played.isEmpty()) StopTune(m_played);
    QDialog::done(result);
}
