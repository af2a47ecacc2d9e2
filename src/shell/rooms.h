// What the main window consists of: its controls, the views, and the classes that hold its handlers.
#pragma once

#include "alarms/alarmclock.h"
#include "alarms/alarmform.h"
#include "appearance/appearance.h"
#include "calendar/bars.h"
#include "calendar/ccalendarview.h"
#include "calendar/cellframes.h"
#include "calendar/cellnames.h"
#include "calendar/cscreenlayout.h"
#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/modshow.h"
#include "calendar/navigation.h"
#include "calendar/redraw.h"
#include "calendar/turn.h"
#include "editing/cellediting.h"
#include "editing/dayview.h"
#include "editing/fontcommand.h"
#include "editing/formatting.h"
#include "editing/picturebar.h"
#include "editing/shortcutfilter.h"
#include "plannerfile/creation.h"
#include "plannerfile/exitsave.h"
#include "plannerfile/journal.h"
#include "plannerfile/maintenance.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerhandlers.h"
#include "plannerfile/qmtdb.h"
#include "plannerfile/recentlist.h"
#include "plannerfile/recovery.h"
#include "plannerfile/reopening.h"
#include "platform/desktop/systemprinter.h"
#include "platform/engine/waiting.h"
#include "platform/print/qmtprn32.h"
#include "printing/printing.h"
#include "recurrence/recurform.h"
#include "shell/activation.h"
#include "shell/controls.h"
#include "shell/shellhandlers.h"
#include "tools/datedifference.h"
#include "tools/datesearch.h"
#include "tools/findword.h"
#include "wallpaper/wallpapercommands.h"
#include "workgroup/daylock.h"
#include "workgroup/dayrecord.h"
#include "workgroup/networkmode.h"
#include "workgroup/networkoptions.h"
#include "workgroup/refresh.h"
#include "workgroup/servermove.h"

#include <QLabel>
#include <QMainWindow>

// In the order of their making; each stands on those above it.
struct Rooms
{
    explicit Rooms(QMainWindow& window) : controls(window), m_pLayout(window, *controls.client)
    {
        m_pCalendarView.SetRedraw(redraw);
        turn.SetLockedDay(dayLock);
        creation.SetLockedDay(dayLock);
        opening.SetLockedDay(dayLock);
        journal.SetOnTrouble([this](const QString& reason) {
            const QString trouble = u"What you type cannot be kept aside: "_s;
            g_sNotKept = reason.isEmpty() ? reason : trouble + reason;
            controls.bottom.panelBottom->SetCaption(FootTitle());
        });
        journal.SetSource([this] {
            UnsavedNotes typed = notes.Typed();
            dayLock.AddTyped(typed);
            dayView.AddTyped(typed);
            return typed;
        });
        waiting::SetBefore([this] { journal.Hurry(); });
    }
    ~Rooms() { waiting::SetBefore(nullptr); }
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    Controls controls;
    ShortcutFilter shortcuts{controls.cells, controls.menus};
    CToolbarView m_pToolbar{*controls.bar.tbTop, controls.menus};
    CSidebarView m_pSidebar{controls.sidebar, controls.menus};
    CStatusbarView m_pStatusbar{controls.bottom};
    CCalendarView m_pCalendarView{controls.cells, controls.sidebar};
    CScreenLayout m_pLayout;
    CellNames names{controls.cells};
    Redraw redraw{controls.cells, controls.bottom, m_pCalendarView};
    Journal journal;
    QMTDB notes{controls.cells, controls.bottom, m_pCalendarView, journal};
    Turn turn{notes};
    Bars bars{m_pLayout, m_pToolbar, m_pSidebar, m_pStatusbar, m_pCalendarView, redraw, turn};
    DayRecord dayRecord;
    NetworkMode networkMode{controls.network, controls.menus, *controls.bar.tbTop, dayRecord};
    RecentList recentList{controls.menus};
    Recovery recovery{notes, journal, *controls.client};
    Opening opening{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, recentList, recovery};
    Creation creation{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, opening};
    PlannerHandlers planners{creation, opening, notes, redraw, m_pCalendarView};
    Activation activation{*controls.client, planners};
    Navigation navigation{controls.cells, controls.bottom, turn, redraw, controls.menus, m_pCalendarView, bars};
    Appearance appearance{controls.cells, controls.bottom, turn, redraw};
    DateSearch dateSearch{controls.bottom, turn, redraw, m_pCalendarView, *controls.client};
    FindWord findWord{controls.cells, turn, redraw, m_pCalendarView};
    DateDifference dateDifference{controls.cells, *controls.bar.tbTop, controls.menus, *controls.lblDateDiff};
    ShellHandlers shellHandlers{*controls.client};
    FontCommand fontCommand;
    Formatting formatting{controls.cells, controls.bar, controls.network, fontCommand};
    DayView dayView{controls.cells, controls.sidebar, controls.network, controls.bottom, notes,
                    dayRecord,      m_pCalendarView,  fontCommand,      journal};
    Refresh refresh{controls.cells, controls.network, turn};
    DayLock dayLock{controls.cells, controls.sidebar, controls.network, dayRecord, dayView, refresh, notes};
    RecurringEvents recurringEvents{controls.cells, notes, m_pCalendarView, fontCommand};
    AlarmHandlers alarms{controls.cells, controls.tmAlarm, turn, dayLock};
    AlarmClock alarmClock{*controls.client};
    PictureBar pictureBar{controls.sidebar};
    ExitSave exitSave{controls.cells, notes, dayRecord, journal, dayLock};
    Reopening reopening{exitSave, opening};
    Maintenance maintenance{controls.FontDialog, notes, dayLock, reopening};
    ServerMove serverMove{controls.FontDialog, reopening, dayLock};
    WallpaperCommands wallpaper{controls.cells, controls.bottom, m_pCalendarView, *controls.lblDateDiff};
    SystemPrinter printer;
    QMTPrn32 printLibrary{printer};
    Printing printing{
        {controls.cells, controls.bottom, m_pCalendarView}, dayLock, controls.FontDialog, printer, printLibrary};
    NetworkOptions networkOptions{*controls.client, controls.network, serverMove};
    CellEditing cellEditing{controls.cells, controls.bar,    controls.network,
                            controls.menus, m_pCalendarView, formatting};
    // Behind the handler that may refuse a cell the focus: what has put it back has left no cell.
    CellFrames frames{controls.cells, controls.bar, controls.sidebar};
};
