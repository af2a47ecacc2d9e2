// The controls of the alarm editor, made and laid out. No behaviour.
#pragma once

#include <array>

class MaskEdBox;
class ORLCombo;
class PictureButton;
class QButtonGroup;
class QCheckBox;
class QDialog;
class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class RichTextBox;

struct AlarmControls
{
    QGroupBox* frAlarm = nullptr;
    QGroupBox* frBrowseAlarm = nullptr;
    PictureButton* picLeftSpin = nullptr; // 0 idle in New mode, 1 pressed, 2 released in Browse mode
    PictureButton* picRightSpin = nullptr;
    QGroupBox* frAlarmDate = nullptr;
    QLabel* lblDateFormat = nullptr;
    MaskEdBox* maskAlarmDate = nullptr;
    MaskEdBox* maskHour = nullptr;
    PictureButton* picHourUp = nullptr; // 0 released, 1 pressed
    PictureButton* picHourDn = nullptr;
    MaskEdBox* maskMinute = nullptr;
    PictureButton* picMinuteUp = nullptr;
    PictureButton* picMinuteDn = nullptr;
    std::array<QRadioButton*, 2> opAMPM = {};
    QButtonGroup* halfDay = nullptr; // of the two
    QGroupBox* frTunes = nullptr;
    ORLCombo* orlcmbTunes = nullptr;
    PictureButton* picPlay = nullptr; // 0 released, 1 pressed
    PictureButton* picStop = nullptr; // 0 pressed, 1 released
    QCheckBox* chkSilence = nullptr;
    QGroupBox* frNotes = nullptr;
    RichTextBox* tbNotes = nullptr;
    QDialogButtonBox* buttons = nullptr;
    QPushButton* btnOk = nullptr;
    QPushButton* btnDelete = nullptr;
    QPushButton* btnCancel = nullptr;
};

AlarmControls MakeAlarmControls(QDialog& window); // all become children of the window
