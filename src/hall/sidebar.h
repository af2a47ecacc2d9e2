// The controls of the sidebar. No behaviour.
#pragma once

#include <array>

class PictureButton;
class PictureStrip;
class QPushButton;
class QWidget;
class TabStrip;

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
