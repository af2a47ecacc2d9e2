// Makes the main window's controls, in groups.
#pragma once

#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/menus.h"
#include "hall/startcard.h"
#include "platform/desktop/commondialog.h"

class QLabel;
class QMainWindow;
class Timer;

// The window owns all of them, through its client area and menu bar.
struct Controls
{
    explicit Controls(QMainWindow& window);

    QWidget* client; // the area that the layout divides
    Menus menus;
    Cells& cells;
    FormatBar bar;
    Sidebar sidebar;
    BottomPanel bottom;
    NetworkControls network;
    QLabel* lblDateDiff; // lies over the cells
    StartCard& card;     // likewise, while no planner is open
    Timer& tmMidnightRefresh;
    Timer& tmAlarm;
    CommonDialog FontDialog;
};
