#include "alarms/alarmcontrols.h"

#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/controls/optionbutton.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int Rhythm = 8;
constexpr QSize StepSize(28, 28);

struct Picture
{
    const char* name;
    const char* tip;
    QStringList icons; // by their element
    int pressedElement = 1;
    int shownElement = 0;
};

PictureButton* MakePicture(const Picture& picture)
{
    QStringList files;
    for (const QString& icon : picture.icons)
        files.append(u":/icons/%1.svg"_s.arg(icon));
    auto* button = Named(new PictureButton(files, picture.pressedElement), picture.name);
    for (int element = 0; element < files.size(); ++element)
        button->SetToolTip(element, QString::fromLatin1(picture.tip));
    button->SetFramed(true);
    button->ShowElement(picture.shownElement);
    return button;
}

PictureButton* MakeStep(const char* name, const char* tip, const QString& icon)
{
    PictureButton* button = MakePicture({name, tip, {icon, icon + u"-pressed"_s}});
    button->setFixedSize(StepSize);
    return button;
}

MaskEdBox* MakeMask(const char* name, const QString& accessibleName, const QString& widest)
{
    constexpr int Padding = 20;
    auto* box = Named(new MaskEdBox, name);
    box->setAccessibleName(accessibleName);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(widest) + Padding);
    return box;
}

QHBoxLayout* Line()
{
    auto* line = new QHBoxLayout;
    line->setSpacing(Rhythm);
    return line;
}

QGroupBox* MakeBrowse(AlarmControls& controls)
{
    const auto icons = [](const QString& icon) { return QStringList{icon, icon + u"-pressed"_s, icon}; };
    controls.frBrowseAlarm = Named(new QGroupBox(u"Browse Alarm Events"_s), "frBrowseAlarm");
    controls.picLeftSpin = MakePicture({"picLeftSpin", "Previous", icons(u"left"_s)});
    controls.picRightSpin = MakePicture({"picRightSpin", "Next", icons(u"right"_s)});
    auto* line = new QHBoxLayout(controls.frBrowseAlarm);
    line->setSpacing(Rhythm);
    line->addWidget(controls.picLeftSpin);
    line->addWidget(Named(new QLabel(u"Previous"_s), "lblPreviousRecord"));
    line->addStretch(1);
    line->addWidget(Named(new QLabel(u"Next"_s), "lblNextRecord"));
    line->addWidget(controls.picRightSpin);
    return controls.frBrowseAlarm;
}

QLayout* MakeTime(AlarmControls& controls)
{
    const QString widest = u"00"_s;
    controls.maskHour = MakeMask("maskHour", u"Hour"_s, widest);
    controls.picHourUp = MakeStep("picHourUp", "Hour up", u"up"_s);
    controls.picHourDn = MakeStep("picHourDn", "Hour down", u"down"_s);
    controls.maskMinute = MakeMask("maskMinute", u"Minute"_s, widest);
    controls.picMinuteUp = MakeStep("picMinuteUp", "Minute up", u"up"_s);
    controls.picMinuteDn = MakeStep("picMinuteDn", "Minute down", u"down"_s);
    controls.halfDay = new QButtonGroup(controls.frAlarmDate);
    QHBoxLayout* line = Line();
    line->addWidget(controls.maskHour);
    line->addWidget(controls.picHourUp);
    line->addWidget(controls.picHourDn);
    line->addSpacing(Rhythm);
    line->addWidget(new QLabel(u"Minute:"_s));
    line->addWidget(controls.maskMinute);
    line->addWidget(controls.picMinuteUp);
    line->addWidget(controls.picMinuteDn);
    line->addSpacing(Rhythm);
    for (int half = 0; half < 2; ++half) {
        auto* option = new OptionButton(half == 0 ? u"AM"_s : u"PM"_s);
        option->setObjectName(u"opAMPM(%1)"_s.arg(half));
        controls.opAMPM[std::size_t(half)] = option;
        controls.halfDay->addButton(option, half);
        line->addWidget(option);
    }
    line->addStretch(1);
    return line;
}

QGroupBox* MakeDate(AlarmControls& controls)
{
    controls.frAlarmDate = Named(new QGroupBox(u"Alarm Date and Time"_s), "frAlarmDate");
    controls.lblDateFormat = Named(new QLabel, "lblDateFormat");
    controls.maskAlarmDate = MakeMask("maskAlarmDate", u"Alarm date"_s, u"0000/00/00"_s);
    auto* grid = new QGridLayout(controls.frAlarmDate);
    grid->setHorizontalSpacing(Rhythm);
    grid->setVerticalSpacing(Rhythm);
    grid->addWidget(controls.lblDateFormat, 0, 0);
    grid->addWidget(controls.maskAlarmDate, 0, 1);
    grid->addWidget(new QLabel(u"Hour:"_s), 1, 0);
    grid->addLayout(MakeTime(controls), 1, 1);
    return controls.frAlarmDate;
}

QGroupBox* MakeTunes(AlarmControls& controls)
{
    constexpr int PictureSize = 24;
    controls.frTunes = Named(new QGroupBox(u"Tunes"_s), "frTunes");
    auto* picTunes = Named(new QLabel, "picTunes");
    picTunes->setPixmap(
        QIcon(u":/icons/tune.svg"_s).pixmap(QSize(PictureSize, PictureSize), controls.frAlarm->devicePixelRatioF()));
    controls.orlcmbTunes = Named(new ORLCombo, "orlcmbTunes");
    controls.orlcmbTunes->setAccessibleName(u"Tune"_s);
    controls.orlcmbTunes->setFocusPolicy(Qt::StrongFocus);
    controls.picPlay = MakePicture({"picPlay", "Play", {u"play"_s, u"play-pressed"_s}});
    controls.picStop = MakePicture({"picStop", "Stop", {u"stop-pressed"_s, u"stop"_s}, 0, 1});
    controls.chkSilence = Named(new QCheckBox(u"Silence"_s), "chkSilence");
    auto* line = new QHBoxLayout(controls.frTunes);
    line->setSpacing(Rhythm);
    line->addWidget(picTunes);
    line->addWidget(controls.orlcmbTunes, 1);
    line->addWidget(controls.picPlay);
    line->addWidget(controls.picStop);
    line->addSpacing(Rhythm);
    line->addWidget(controls.chkSilence);
    return controls.frTunes;
}

QGroupBox* MakeNotes(AlarmControls& controls)
{
    constexpr QSize Smallest(400, 48); // the window fits on a screen of 960 by 540
    controls.frNotes = Named(new QGroupBox(u"Notes"_s), "frNotes");
    controls.tbNotes = Named(new RichTextBox, "tbNotes");
    controls.tbNotes->setAccessibleName(u"Notes"_s);
    controls.tbNotes->setMinimumSize(Smallest);
    auto* layout = new QVBoxLayout(controls.frNotes);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(MakeNotePanel(controls.tbNotes));
    return controls.frNotes;
}

QDialogButtonBox* MakeButtons(AlarmControls& controls, QDialog& window)
{
    controls.buttons = new QDialogButtonBox(&window); // which would not hear of its default button otherwise
    const auto add = [&](const char* name, const char* caption, QDialogButtonBox::ButtonRole role) {
        return Named(controls.buttons->addButton(QString::fromLatin1(caption), role), name);
    };
    controls.btnOk = add("btnOk", "&Ok", QDialogButtonBox::AcceptRole);
    controls.btnDelete = add("btnDelete", "&Delete", QDialogButtonBox::DestructiveRole);
    controls.btnCancel = add("btnCancel", "&Cancel", QDialogButtonBox::RejectRole);
    controls.btnOk->setDefault(true);
    return controls.buttons;
}

// The time is typed in one go; the arrows beside it come after it.
void OrderTime(const AlarmControls& controls)
{
    QWidget::setTabOrder(controls.maskHour, controls.maskMinute);
    QWidget::setTabOrder(controls.maskMinute, controls.opAMPM[0]);
    QWidget::setTabOrder(controls.opAMPM[0], controls.opAMPM[1]);
}
} // namespace

AlarmControls MakeAlarmControls(QDialog& window)
{
    AlarmControls controls;
    controls.frAlarm = Named(new QGroupBox(&window), "frAlarm");
    auto* inner = new QVBoxLayout(controls.frAlarm);
    inner->setSpacing(Rhythm);
    inner->addWidget(MakeBrowse(controls));
    inner->addWidget(MakeDate(controls));
    inner->addWidget(MakeTunes(controls));
    inner->addWidget(MakeNotes(controls), 1);
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(2 * Rhythm, 2 * Rhythm, 2 * Rhythm, 2 * Rhythm);
    column->setSpacing(2 * Rhythm);
    column->addWidget(controls.frAlarm, 1);
    column->addWidget(MakeButtons(controls, window));
    OrderTime(controls);
    return controls;
}
