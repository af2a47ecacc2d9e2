// Makes the main window's controls and hands them out in groups.
#pragma once

#include "calendar/bottompanel.h"
#include "calendar/cells.h"
#include "calendar/sidebar.h"
#include "editing/formatbar.h"
#include "platform/desktop/commondialog.h"
#include "shell/menus.h"
#include "workgroup/networkcontrols.h"

class QMainWindow;
class Timer;

// Everything is owned by the window, by way of its client area and menu bar.
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
    Timer& tmMidnightRefresh;
    CommonDialog FontDialog;
};
