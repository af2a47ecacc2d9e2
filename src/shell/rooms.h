// The parts of the main window: controls, views and handler classes.
#pragma once

#include "alarms/alarmclock.h"
#include "alarms/alarmfiles.h"
#include "alarms/alarmform.h"
#include "alarms/alarmlists.h"
#include "alarms/openplanneralarms.h"
#include "appearance/appearance.h"
#include "calendar/ccalendarview.h"
#include "calendar/cellframes.h"
#include "calendar/cellnames.h"
#include "calendar/cscreenlayout.h"
#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/navigation.h"
#include "calendar/redraw.h"
#include "calendar/travel.h"
#include "editing/cellediting.h"
#include "editing/cellzoom.h"
#include "editing/dayview.h"
#include "editing/earlierversions.h"
#include "editing/fontcommand.h"
#include "editing/formatting.h"
#include "editing/picturebar.h"
#include "editing/shortcutfilter.h"
#include "editing/spelling.h"
#include "hall/foot.h"
#include "notes/exitsave.h"
#include "notes/heldday.h"
#include "notes/journal.h"
#include "notes/qmtdb.h"
#include "notes/recovery.h"
#include "notes/turn.h"
#include "planners/creation.h"
#include "planners/exporting.h"
#include "planners/importing.h"
#include "planners/maintenance.h"
#include "planners/networkmode.h"
#include "planners/noplanner.h"
#include "planners/opening.h"
#include "planners/recentlist.h"
#include "planners/servermove.h"
#include "platform/desktop/systemprinter.h"
#include "platform/engine/waiting.h"
#include "platform/print/qmtprn32.h"
#include "printing/printing.h"
#include "recurrence/recurform.h"
#include "shell/activation.h"
#include "shell/controls.h"
#include "shell/focusreturn.h"
#include "shell/handover.h"
#include "shell/redokey.h"
#include "shell/shellhandlers.h"
#include "tools/datedifference.h"
#include "tools/datesearch.h"
#include "tools/findword.h"
#include "tools/listprinting.h"
#include "wallpaper/wallpapercommands.h"
#include "workgroup/workgrouphandlers.h"

#include <QLabel>
#include <QMainWindow>

// In the order of construction: each depends only on those above it.
struct Rooms
{
    explicit Rooms(QMainWindow& window) : controls(window), focusReturn(window)
    {
        m_pCalendarView.SetRedraw(redraw);
        opening.SetOnChange([this](bool isOpen) {
            noPlanner.Follow(isOpen);
            findWord.FollowPlanner();
            alarmLists.Unload();
            alarmClock.FollowPlanner();
            TellClocks();
        });
        notes.SetOnWritten([this] { findWord.FollowPlanner(); });
        journal.SetOnTrouble([this](const QString& reason) { foot.SetNotKept(reason); });
        journal.SetSource([this] { return Typed(); });
        waiting::SetBefore([this] { journal.Hurry(); });
    }
    ~Rooms() { waiting::SetBefore(nullptr); }
    Rooms(const Rooms&) = delete;
    Rooms& operator=(const Rooms&) = delete;

    // All that is typed and not in its planner yet.
    UnsavedNotes Typed() const
    {
        UnsavedNotes typed = notes.Typed();
        heldDay.AddTyped(typed);
        dayView.AddTyped(typed);
        return typed;
    }

    Controls controls;
    ShortcutFilter shortcuts{controls.cells, controls.menus};
    RedoKey redoKey;
    FocusReturn focusReturn;
    CToolbarView m_pToolbar{*controls.bar.tbTop, controls.menus};
    CSidebarView m_pSidebar{controls.sidebar, controls.menus};
    CStatusbarView m_pStatusbar{controls.bottom};
    CCalendarView m_pCalendarView{controls.cells, controls.sidebar};
    CellNames names{controls.cells};
    Foot foot{controls.bottom};
    Redraw redraw{controls.cells, foot, m_pCalendarView};
    Journal journal;
    QMTDB notes{controls.cells, foot, m_pCalendarView, journal};
    HeldDay heldDay{controls.cells, controls.sidebar, controls.network, notes};
    Turn turn{notes, heldDay};
    CScreenLayout m_pLayout{*controls.client, m_pToolbar, m_pSidebar, m_pStatusbar, m_pCalendarView, redraw, turn};
    NetworkMode networkMode{controls.network, controls.menus, *controls.bar.tbTop, heldDay};
    RecentList recentList{controls.menus};
    Recovery recovery{notes, journal, *controls.client};
    Opening opening{controls.cells, foot,  controls.FontDialog, notes, networkMode, recentList, recovery,
                    heldDay,        redraw};
    Creation creation{controls.cells, foot, controls.FontDialog, notes, opening, heldDay};
    Activation activation{*controls.client, opening};
    Navigation navigation{controls.cells, controls.bottom, foot,      turn,   redraw,
                          controls.menus, m_pCalendarView, m_pLayout, heldDay};
    Travel travel{controls.cells, controls.bottom, m_pCalendarView, navigation};
    Appearance appearance{controls.cells, controls.bottom, turn, redraw};
    DateSearch dateSearch{foot, turn, redraw, m_pCalendarView, *controls.client};
    DateDifference dateDifference{controls.cells, *controls.bar.tbTop, controls.menus, *controls.lblDateDiff};
    ShellHandlers shellHandlers{*controls.client};
    FontCommand fontCommand;
    Formatting formatting{controls.cells, controls.bar, heldDay, fontCommand};
    DayView dayView{controls.cells, controls.sidebar, controls.network, foot,   notes,
                    heldDay,        m_pCalendarView,  fontCommand,      journal};
    EarlierVersions earlierVersions{controls.cells, heldDay, dayView};
    RecurringEvents recurringEvents{controls.cells, notes, m_pCalendarView, fontCommand};
    AlarmHandlers alarms{controls.cells, controls.tmAlarm, turn, heldDay};
    PictureBar pictureBar{controls.sidebar};
    ExitSave exitSave{controls.cells, notes, journal, heldDay};
    Maintenance maintenance{controls.FontDialog, notes, heldDay, opening};
    Exporting exporting{controls.cells, foot, m_pCalendarView, notes, heldDay};
    Importing importing{foot, notes, heldDay};
    ServerMove serverMove{controls.FontDialog, opening, heldDay};
    WorkgroupHandlers workgroup{controls.cells, controls.network, turn, heldDay, dayView, serverMove};
    WallpaperCommands wallpaper{controls.cells, controls.bottom, m_pCalendarView, *controls.lblDateDiff, controls.card};
    SystemPrinter printer;
    QMTPrn32 printLibrary{printer};
    Printing printing{
        {controls.cells, controls.bottom, foot, m_pCalendarView}, heldDay, controls.FontDialog, printer, printLibrary};
    ListPrinting listPrinting{printer, foot};
    HitCell alarmCell{controls.cells, turn, redraw, m_pCalendarView, navigation};
    PutOffAlarms putOffAlarms{alarmfiles::PutOff()};
    OpenPlannerAlarms alarmSource;
    MissedAlarms missedAlarms{alarmSource, alarmfiles::Heard()};
    AlarmLists alarmLists{*controls.client, alarmCell, listPrinting, putOffAlarms, missedAlarms};
    AlarmClock alarmClock{alarmSource, controls.client, putOffAlarms, missedAlarms};
    FindWord findWord{controls.cells,  turn,       redraw,
                      m_pCalendarView, navigation, {[this] { return Typed(); }, &listPrinting, &exporting}};
    CellEditing cellEditing{controls.cells, controls.bar, heldDay, controls.menus, m_pCalendarView, formatting};
    NoPlanner noPlanner{controls.cells, controls.menus, controls.card, opening};
    // After the handler that can refuse the focus: a refused move must not count as leaving a cell.
    CellFrames frames{controls.cells, controls.bar, controls.sidebar};
    Spelling spelling{controls.cells};
    CellZoom zoom{controls.cells, m_pCalendarView, foot};
};
