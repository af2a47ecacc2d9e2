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
        files.append(QStringLiteral(":/icons/%1.svg").arg(icon));
    auto* button = Named(new PictureButton(files, picture.pressedElement), picture.name);
    for (int element = 0; element < files.size(); ++element)
        button->SetToolTip(element, QString::fromLatin1(picture.tip));
    button->SetFramed(true);
    button->ShowElement(picture.shownElement);
    return button;
}

PictureButton* MakeStep(const char* name, const char* tip, const QString& icon)
{
    PictureButton* button = MakePicture({name, tip, {icon, icon + QStringLiteral("-pressed")}});
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
    const auto icons = [](const QString& icon) { return QStringList{icon, icon + QStringLiteral("-pressed"), icon}; };
    controls.frBrowseAlarm = Named(new QGroupBox(QStringLiteral("Browse Alarm Events")), "frBrowseAlarm");
    controls.picLeftSpin = MakePicture({"picLeftSpin", "Previous", icons(QStringLiteral("left"))});
    controls.picRightSpin = MakePicture({"picRightSpin", "Next", icons(QStringLiteral("right"))});
    auto* line = new QHBoxLayout(controls.frBrowseAlarm);
    line->setSpacing(Rhythm);
    line->addWidget(controls.picLeftSpin);
    line->addWidget(Named(new QLabel(QStringLiteral("Previous")), "lblPreviousRecord"));
    line->addStretch(1);
    line->addWidget(Named(new QLabel(QStringLiteral("Next")), "lblNextRecord"));
    line->addWidget(controls.picRightSpin);
    return controls.frBrowseAlarm;
}

QLayout* MakeTime(AlarmControls& controls)
{
    const QString widest = QStringLiteral("00");
    controls.maskHour = MakeMask("maskHour", QStringLiteral("Hour"), widest);
    controls.picHourUp = MakeStep("picHourUp", "Hour up", QStringLiteral("up"));
    controls.picHourDn = MakeStep("picHourDn", "Hour down", QStringLiteral("down"));
    controls.maskMinute = MakeMask("maskMinute", QStringLiteral("Minute"), widest);
    controls.picMinuteUp = MakeStep("picMinuteUp", "Minute up", QStringLiteral("up"));
    controls.picMinuteDn = MakeStep("picMinuteDn", "Minute down", QStringLiteral("down"));
    controls.halfDay = new QButtonGroup(controls.frAlarmDate);
    QHBoxLayout* line = Line();
    line->addWidget(controls.maskHour);
    line->addWidget(controls.picHourUp);
    line->addWidget(controls.picHourDn);
    line->addSpacing(Rhythm);
    line->addWidget(new QLabel(QStringLiteral("Minute:")));
    line->addWidget(controls.maskMinute);
    line->addWidget(controls.picMinuteUp);
    line->addWidget(controls.picMinuteDn);
    line->addSpacing(Rhythm);
    for (int half = 0; half < 2; ++half) {
        auto* option = new OptionButton(half == 0 ? QStringLiteral("AM") : QStringLiteral("PM"));
        option->setObjectName(QStringLiteral("opAMPM(%1)").arg(half));
        controls.opAMPM[std::size_t(half)] = option;
        controls.halfDay->addButton(option, half);
        line->addWidget(option);
    }
    line->addStretch(1);
    return line;
}

QGroupBox* MakeDate(AlarmControls& controls)
{
    controls.frAlarmDate = Named(new QGroupBox(QStringLiteral("Alarm Date and Time")), "frAlarmDate");
    controls.lblDateFormat = Named(new QLabel, "lblDateFormat");
    controls.maskAlarmDate = MakeMask("maskAlarmDate", QStringLiteral("Alarm date"), QStringLiteral("0000/00/00"));
    auto* grid = new QGridLayout(controls.frAlarmDate);
    grid->setHorizontalSpacing(Rhythm);
    grid->setVerticalSpacing(Rhythm);
    grid->addWidget(controls.lblDateFormat, 0, 0);
    grid->addWidget(controls.maskAlarmDate, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Hour:")), 1, 0);
    grid->addLayout(MakeTime(controls), 1, 1);
    return controls.frAlarmDate;
}

QGroupBox* MakeTunes(AlarmControls& controls)
{
    constexpr int PictureSize = 24;
    controls.frTunes = Named(new QGroupBox(QStringLiteral("Tunes")), "frTunes");
    auto* picTunes = Named(new QLabel, "picTunes");
    picTunes->setPixmap(QIcon(QStringLiteral(":/icons/tune.svg"))
                            .pixmap(QSize(PictureSize, PictureSize), controls.frAlarm->devicePixelRatioF()));
    controls.orlcmbTunes = Named(new ORLCombo, "orlcmbTunes");
    controls.orlcmbTunes->setAccessibleName(QStringLiteral("Tune"));
    controls.orlcmbTunes->setFocusPolicy(Qt::StrongFocus);
    controls.picPlay = MakePicture({"picPlay", "Play", {QStringLiteral("play"), QStringLiteral("play-pressed")}});
    controls.picStop = MakePicture({"picStop", "Stop", {QStringLiteral("stop-pressed"), QStringLiteral("stop")}, 0, 1});
    controls.chkSilence = Named(new QCheckBox(QStringLiteral("Silence")), "chkSilence");
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
    controls.frNotes = Named(new QGroupBox(QStringLiteral("Notes")), "frNotes");
    controls.tbNotes = Named(new RichTextBox, "tbNotes");
    controls.tbNotes->setAccessibleName(QStringLiteral("Notes"));
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
