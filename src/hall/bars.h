// The controls around the cells. No behaviour.
#pragma once

#include <array>

class ORLCombo;
class PictureButton;
class PictureStrip;
class QLabel;
class QPushButton;
class QWidget;
class SSPanel;
class TabStrip;
class Timer;
class Toolbar;

struct Sidebar
{
    TabStrip* tabSidebar = nullptr;
    std::array<QWidget*, 2> fraSidebar = {}; // the pages of the tabs, children of tabSidebar
    PictureButton* picDay = nullptr;
    PictureButton* picWeek = nullptr; // element 1 visible: the view that is shown
    PictureButton* picMonth = nullptr;
    PictureButton* picPrint = nullptr;
    PictureButton* picRecurse = nullptr;
    PictureButton* picAlarm = nullptr;
    QWidget* lblPictures = nullptr;
    PictureStrip* tbPictureBox = nullptr;
    QPushButton* btnReloadIcons = nullptr;
};

// Shown for a workgroup's planner.
struct NetworkControls
{
    PictureButton* picRefresh = nullptr;
    PictureButton* picLock = nullptr; // element 0 visible: no day is locked; 1: this user holds a lock
    QLabel* lblNetwork = nullptr;
    Timer* tmUnLock = nullptr;
    Timer* tmAutoRefresh = nullptr;
};

struct FormatBar
{
    Toolbar* tbTop = nullptr;
    ORLCombo* orlcmbFontcolor = nullptr; // children of tbTop
    ORLCombo* orlcmbFontsize = nullptr;
    ORLCombo* orlcmbFontname = nullptr;
};

// The month's title and its two spin pictures.
struct BottomPanel
{
    SSPanel* panelBottom = nullptr;
    PictureButton* imgLeftSpin = nullptr; // children of panelBottom
    PictureButton* imgRightSpin = nullptr;
};
