// The controls of the workgroup. No behaviour.
#pragma once

class PictureButton;
class QLabel;
class Timer;

struct NetworkControls
{
    PictureButton* picRefresh = nullptr;
    PictureButton* picLock = nullptr; // element 0 visible: no day is locked; 1: this user holds a lock
    QLabel* lblNetwork = nullptr;
    Timer* tmUnLock = nullptr;
    Timer* tmAutoRefresh = nullptr;
};
