#include "alarms/alarmform.h"
#include "platform/controls/datebutton.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/optionbutton.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "state/dateorder.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace {
struct Picture
{
    const char* name;
    QString tip;
    QStringList icons; // by element number
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
        button->SetToolTip(element, picture.tip);
    button->SetFramed(true);
    button->ShowElement(picture.shownElement);
    return button;
}

PictureButton* MakeStep(const char* name, const QString& tip, const QString& icon)
{
    PictureButton* button = MakePicture({name, tip, {icon, icon + u"-pressed"_s}});
    button->setFixedSize(28, 28);
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

DialogPart* MakePart(const char* name, const QString& heading, QLayout* layout,
                     DialogPart::Kind kind = DialogPart::Kind::Usual)
{
    auto* part = Named(new DialogPart(heading, kind), name);
    part->setLayout(layout);
    return part;
}

QWidget* MakeBrowse(AlarmControls& controls)
{
    controls.picLeftSpin = MakePicture({"picLeftSpin", u"Previous"_s, {u"left"_s, u"left-pressed"_s, u"left"_s}});
    controls.picRightSpin = MakePicture({"picRightSpin", u"Next"_s, {u"right"_s, u"right-pressed"_s, u"right"_s}});
    auto* previous = Named(new QLabel(u"Previous"_s), "lblPreviousRecord");
    auto* next = Named(new QLabel(u"Next"_s), "lblNextRecord");
    auto* row = DialogRow(Rhythm, {controls.picLeftSpin, previous, nullptr, next, controls.picRightSpin});
    return controls.frBrowseAlarm = MakePart("frBrowseAlarm", u"Browse Alarm Events"_s, row, DialogPart::Kind::Line);
}

QLayout* MakeTime(AlarmControls& controls)
{
    controls.maskHour = MakeMask("maskHour", u"Hour"_s, u"00"_s);
    controls.picHourUp = MakeStep("picHourUp", u"Hour up"_s, u"up"_s);
    controls.picHourDn = MakeStep("picHourDn", u"Hour down"_s, u"down"_s);
    controls.maskMinute = MakeMask("maskMinute", u"Minute"_s, u"00"_s);
    controls.picMinuteUp = MakeStep("picMinuteUp", u"Minute up"_s, u"up"_s);
    controls.picMinuteDn = MakeStep("picMinuteDn", u"Minute down"_s, u"down"_s);
    auto* am = Named(new OptionButton(u"AM"_s), "opAMPM(0)");
    auto* pm = Named(new OptionButton(u"PM"_s), "opAMPM(1)");
    controls.opAMPM->addButton(am, 0);
    controls.opAMPM->addButton(pm, 1);
    auto* row = DialogRow(Rhythm, {controls.maskHour, controls.picHourUp, controls.picHourDn, new QLabel(u"Minute:"_s),
                                   controls.maskMinute, controls.picMinuteUp, controls.picMinuteDn, am, pm, nullptr});
    row->insertSpacing(row->indexOf(am), Rhythm);
    row->insertSpacing(row->indexOf(controls.picHourDn) + 1, Rhythm);
    return row;
}

QWidget* MakeDate(AlarmControls& controls)
{
    controls.lblDateFormat = Named(new QLabel, "lblDateFormat");
    controls.maskAlarmDate = MakeMask("maskAlarmDate", u"Alarm date"_s, u"0000/00/00"_s);
    auto* grid = new QGridLayout;
    grid->addWidget(controls.lblDateFormat, 0, 0);
    auto* pick =
        Named(new DateButton(controls.maskAlarmDate, LocalDateOrder().label, u"Pick the alarm date"_s), "btnPickDate");
    grid->addLayout(DialogRow(Rhythm, {controls.maskAlarmDate, pick, nullptr}), 0, 1);
    grid->addWidget(new QLabel(u"Hour:"_s), 1, 0);
    grid->addLayout(MakeTime(controls), 1, 1);
    return controls.frAlarmDate = MakePart("frAlarmDate", u"Alarm Date and Time"_s, grid);
}

QWidget* MakeTunes(AlarmControls& controls)
{
    constexpr QSize PictureSize(24, 24);
    auto* picTunes = Named(new QLabel, "picTunes");
    picTunes->setPixmap(QIcon(u":/icons/tune.svg"_s).pixmap(PictureSize, controls.frAlarm->devicePixelRatioF()));
    controls.orlcmbTunes = Named(new ORLCombo, "orlcmbTunes");
    controls.orlcmbTunes->setAccessibleName(u"Tune"_s);
    controls.orlcmbTunes->setFocusPolicy(Qt::StrongFocus);
    controls.picPlay = MakePicture({"picPlay", u"Play"_s, {u"play"_s, u"play-pressed"_s}});
    controls.picStop = MakePicture({"picStop", u"Stop"_s, {u"stop-pressed"_s, u"stop"_s}, 0, 1});
    controls.chkSilence = Named(new QCheckBox(u"Silence"_s), "chkSilence");
    auto* row = DialogRow(Rhythm, {picTunes, controls.orlcmbTunes, controls.picPlay, controls.picStop});
    row->setStretchFactor(controls.orlcmbTunes, 1);
    row->addSpacing(Rhythm);
    row->addWidget(controls.chkSilence);
    return controls.frTunes = MakePart("frTunes", u"Tunes"_s, row);
}

QWidget* MakeNotes(AlarmControls& controls)
{
    controls.tbNotes = Named(new RichTextBox, "tbNotes");
    controls.tbNotes->setAccessibleName(u"Notes"_s);
    auto* panel = MakeNotePanel(controls.tbNotes, {400, 64}); // the window fits on a screen of 960 by 540
    return controls.frNotes = MakePart("frNotes", u"Notes"_s, DialogRow(0, {panel}));
}

QDialogButtonBox* MakeButtons(AlarmControls& controls, QDialog& window)
{
    QDialogButtonBox* buttons = MakeButtonBox(window);
    controls.btnOk = Named(buttons->addButton(u"&Ok"_s, QDialogButtonBox::AcceptRole), "btnOk");
    controls.btnDelete = Named(buttons->addButton(u"&Delete"_s, QDialogButtonBox::DestructiveRole), "btnDelete");
    controls.btnCancel = Named(buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole), "btnCancel");
    controls.btnOk->setDefault(true);
    return buttons;
}

// The time is typed in one go, so the arrow pictures come after it.
void OrderTime(const AlarmControls& controls)
{
    QWidget::setTabOrder(controls.maskHour, controls.maskMinute);
    QWidget::setTabOrder(controls.maskMinute, controls.opAMPM->button(0));
    QWidget::setTabOrder(controls.opAMPM->button(0), controls.opAMPM->button(1));
}
} // namespace

AlarmControls MakeAlarmControls(QDialog& window)
{
    AlarmControls controls;
    auto* inner = new QVBoxLayout;
    controls.frAlarm = MakePart("frAlarm", {}, inner, DialogPart::Kind::Whole);
    controls.opAMPM = new QButtonGroup(controls.frAlarm);
    inner->addWidget(MakeBrowse(controls));
    inner->addWidget(MakeDate(controls));
    inner->addWidget(MakeTunes(controls));
    inner->addWidget(MakeNotes(controls), 1);
    auto* column = DialogColumn(window);
    column->addWidget(controls.frAlarm, 1);
    column->addWidget(MakeButtons(controls, window));
    OrderTime(controls);
    return controls;
}
