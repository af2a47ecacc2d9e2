#include "shell/wiring.h"

#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/picturestrip.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/controls/toolbar.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "shell/rooms.h"
#include "state/plannerstate.h"

#include <QMenu>
#include <QPushButton>

#include <functional>
#include <set>

namespace {
// The routine's literal in the error log. The text lives as long as the program.
QLatin1StringView InMainForm(const QByteArray& routine)
{
    static std::set<QByteArray> literals;
    return QLatin1StringView(*literals.insert(" in MainForm, " + routine).first);
}

// Connects the signal to the action; errors go to the log.
template <typename Sender, typename Signal, typename Action>
void On(Sender* sender, Signal signal, const QByteArray& routine, Action action)
{
    QObject::connect(sender, signal, sender, Guarded(InMainForm(routine), std::move(action)));
}

// Connects the signal to a routine of a room, which takes the signal's arguments or none.
template <typename Sender, typename Signal, typename Room, typename Handler>
void On(Sender* sender, Signal signal, const QByteArray& routine, Room& room, Handler handler)
{
    On(sender, signal, routine, std::bind_front(handler, &room));
}

using Command = void (*)(Rooms& rooms);

template <auto Room, auto Handler>
void Run(Rooms& rooms)
{
    ((rooms.*Room).*Handler)();
}

struct MenuRow
{
    const char* name;
    Command click;
    bool isInNoteMenu = false; // also in the context menu, with an R after its name
};

constexpr MenuRow MenuRows[] = {
    {"mnuNew", Run<&Rooms::creation, &Creation::subNewPlanner>},
    {"mnuOpen", Run<&Rooms::opening, &Opening::subOpenPlanner>},
    {"mnuSave", Run<&Rooms::notes, &QMTDB::mnuSave_Click>},
    {"mnuCompact", Run<&Rooms::maintenance, &Maintenance::mnuCompact_Click>},
    {"mnuRepair", Run<&Rooms::maintenance, &Maintenance::mnuRepair_Click>},
    {"mnuExport", Run<&Rooms::exporting, &Exporting::mnuExport_Click>},
    {"mnuImport", Run<&Rooms::importing, &Importing::mnuImport_Click>},
    {"mnuPageSetup", Run<&Rooms::printing, &Printing::mnuPageSetup_Click>},
    {"mnuPrintSetup", Run<&Rooms::printing, &Printing::mnuPrintSetup_Click>},
    {"mnuPrint", Run<&Rooms::printing, &Printing::mnuPrint_Click>},
    {"mnuRefresh", Run<&Rooms::workgroup, &WorkgroupHandlers::subRefreshCells>},
    {"mnuLockDay", Run<&Rooms::heldDay, &HeldDay::subLockDay>},
    {"mnuNetworkOptions", Run<&Rooms::workgroup, &WorkgroupHandlers::mnuNetworkOptions_Click>},
    {"mnuMonthView", Run<&Rooms::navigation, &Navigation::subSwitchToMonthView>},
    {"mnuWeekView", Run<&Rooms::navigation, &Navigation::subSwitchToWeekView>},
    {"mnuDayView", Run<&Rooms::dayView, &DayView::subZoomView>},
    {"mnuViewTBVisible", Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBVisible_Click>},
    {"mnuViewTBAlignTop", Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBAlignTop_Click>},
    {"mnuViewTBAlignBottom", Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBAlignBottom_Click>},
    {"mnuViewSBVisible", Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewSBVisible_Click>},
    {"mnuNewAlarm", Run<&Rooms::alarms, &AlarmHandlers::mnuNewAlarm_Click>},
    {"mnuChangeAlarms", Run<&Rooms::alarms, &AlarmHandlers::mnuChangeAlarms_Click>},
    {"mnuComingAlarms", Run<&Rooms::alarmLists, &AlarmLists::mnuComingAlarms_Click>},
    {"mnuMissedAlarms", Run<&Rooms::alarmLists, &AlarmLists::mnuMissedAlarms_Click>},
    {"mnuAlarmOptions",
     [](Rooms& rooms) {
         rooms.alarmClock.mnuAlarmOptions_Click();
         TellClocks();
     }},
    {"mnuPrevWeek", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuCurrentWeek", Run<&Rooms::navigation, &Navigation::mnuCurrentWeek_Click>},
    {"mnuNextWeek", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuPrevMonth", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuThisMonth", Run<&Rooms::navigation, &Navigation::mnuThisMonth_Click>},
    {"mnuNextMonth", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuRecurse", Run<&Rooms::recurringEvents, &RecurringEvents::mnuRecurse_Click>},
    {"mnuDateSearch", Run<&Rooms::dateSearch, &DateSearch::mnuDateSearch_Click>},
    {"mnuDateSearchWeek", Run<&Rooms::dateSearch, &DateSearch::mnuDateSearch_Click>},
    {"mnuFindWord", Run<&Rooms::findWord, &FindWord::mnuFindWord_Click>},
    {"mnuFindAll", Run<&Rooms::findWord, &FindWord::mnuFindAll_Click>},
    {"mnuDateDiffShow", Run<&Rooms::dateDifference, &DateDifference::mnuDateDiffShow_Click>},
    {"mnuDateDiffCustomize", Run<&Rooms::dateDifference, &DateDifference::mnuDateDiffCustomize_Click>},
    {"mnuInitialFont", Run<&Rooms::appearance, &Appearance::mnuInitialFont_Click>},
    {"mnuNumberDlg", Run<&Rooms::appearance, &Appearance::mnuNumberDlg_Click>},
    {"mnuWeekAppearance", Run<&Rooms::appearance, &Appearance::mnuWeekAppearance_Click>},
    {"mnuMonthDisplay", Run<&Rooms::appearance, &Appearance::mnuMonthDisplay_Click>},
    {"mnuMonToSun", Run<&Rooms::appearance, &Appearance::mnuMonToSun_Click>},
    {"mnuSpelling", Run<&Rooms::spelling, &Spelling::mnuSpelling_Click>},
    {"mnuAutoload", Run<&Rooms::shellHandlers, &ShellHandlers::mnuAutoload_Click>},
    {"mnuSetWallpaper", Run<&Rooms::wallpaper, &WallpaperCommands::mnuSetWallpaper_Click>},
    {"mnuClearWallpaper", Run<&Rooms::wallpaper, &WallpaperCommands::mnuClearWallpaper_Click>},
    {"mnuUpdateWallpaper", Run<&Rooms::wallpaper, &WallpaperCommands::mnuUpdateWallpaper_Click>},
    {"mnuPrevWallpaper", Run<&Rooms::wallpaper, &WallpaperCommands::mnuPrevWallpaper_Click>},
    {"mnuWallpaperOption", Run<&Rooms::wallpaper, &WallpaperCommands::mnuWallpaperOption_Click>},
    {"mnuContents", Run<&Rooms::shellHandlers, &ShellHandlers::mnuContents_Click>},
    {"mnuHelpSearch", Run<&Rooms::shellHandlers, &ShellHandlers::mnuHelpSearch_Click>},
    {"mnuHelpHow", Run<&Rooms::shellHandlers, &ShellHandlers::mnuHelpHow_Click>},
    {"mnuAbout", Run<&Rooms::shellHandlers, &ShellHandlers::mnuAbout_Click>},
    {"mnuCut", Run<&Rooms::formatting, &Formatting::mnuCut_Click>, true},
    {"mnuCopy", Run<&Rooms::formatting, &Formatting::mnuCopy_Click>, true},
    {"mnuPaste", Run<&Rooms::formatting, &Formatting::mnuPaste_Click>, true},
    {"mnuUndo", Run<&Rooms::formatting, &Formatting::mnuUndo_Click>},
    {"mnuRedo", Run<&Rooms::formatting, &Formatting::mnuRedo_Click>},
    {"mnuSelectAll", Run<&Rooms::formatting, &Formatting::mnuSelectAll_Click>},
    {"mnuVersions", Run<&Rooms::earlierVersions, &EarlierVersions::mnuVersions_Click>},
    {"mnuBold", Run<&Rooms::formatting, &Formatting::mnuBold_Click>, true},
    {"mnuItalic", Run<&Rooms::formatting, &Formatting::mnuItalic_Click>, true},
    {"mnuUnderline", Run<&Rooms::formatting, &Formatting::mnuUnderline_Click>, true},
    {"mnuStrikeThru", Run<&Rooms::formatting, &Formatting::mnuStrikeThru_Click>, true},
    {"mnuColorSizeFonts", Run<&Rooms::formatting, &Formatting::mnuColorSizeFonts_Click>, true},
    {"mnuLeftJustify", Run<&Rooms::formatting, &Formatting::mnuLeftJustify_Click>},
    {"mnuCenterJustify", Run<&Rooms::formatting, &Formatting::mnuCenterJustify_Click>},
    {"mnuRightJustify", Run<&Rooms::formatting, &Formatting::mnuRightJustify_Click>},
    {"mnuOpenLinkR", Run<&Rooms::formatting, &Formatting::mnuOpenLinkR_Click>},
};

void WireMenus(Rooms& rooms)
{
    Menus& menus = rooms.controls.menus;
    for (const MenuRow& row : MenuRows) {
        const QByteArray name = row.name;
        const auto wire = [&](const QByteArray& entry) {
            menus(QLatin1StringView(entry))
                .OnClick([&rooms, click = row.click] { click(rooms); }, InMainForm(name + "_Click"));
        };
        wire(name);
        if (row.isInNoteMenu) wire(name + 'R');
    }
    On(menus("mnuEdit"_L1).Action()->menu(), &QMenu::aboutToShow, "mnuEdit_Click",
       [&rooms] { rooms.formatting.ShowWhatCanBeUndone(rooms.controls.menus); });
    On(&menus.mnuRightMouse(), &QMenu::aboutToShow, "tbDay_MouseDown",
       [&rooms] { rooms.formatting.ShowWhetherOnLink(rooms.controls.menus); });
    for (int entry = 0; entry < settings::RecentPlanners; ++entry) {
        MenuItem& item = menus.mnuMRU(entry);
        item.OnClick([&rooms, &item] { rooms.opening.mnuMRU_Click(item); }, InMainForm("mnuMRU_Click"));
    }
}

// Pictures of the sidebar that have no state: they look pressed while the mouse presses them. Without a planner they do
// not; the command then says so.
struct PressedPicture
{
    PictureButton* Sidebar::*picture;
    QByteArray name;
    const char* clickEvent; // in the error log
    Command command;
    bool needsPlanner = true;
};

void WirePicture(Rooms& rooms, const PressedPicture& row)
{
    PictureButton* picture = rooms.controls.sidebar.*row.picture;
    const auto canRun = [needsPlanner = row.needsPlanner] { return !needsPlanner || HasPlanner(); };
    On(picture, &PictureButton::Click, row.name + row.clickEvent, [&rooms, canRun, command = row.command] {
        if (canRun()) command(rooms);
    });
    On(picture, &PictureButton::MouseDown, row.name + "_MouseDown", [&rooms, canRun, picture, command = row.command] {
        if (!canRun()) return command(rooms);
        picture->ShowElement(1);
    });
    On(picture, &PictureButton::MouseUp, row.name + "_MouseUp", [picture] { picture->ShowElement(0); });
}

void WireSidebar(Rooms& rooms)
{
    const Sidebar& sidebar = rooms.controls.sidebar;
    const PressedPicture rows[] = {
        {&Sidebar::picDay, "picDay", "_Click", Run<&Rooms::dayView, &DayView::subZoomView>},
        {&Sidebar::picRecurse, "picRecurse", "_MouseUp",
         Run<&Rooms::recurringEvents, &RecurringEvents::mnuRecurse_Click>},
        {&Sidebar::picAlarm, "picAlarm", "_MouseUp", Run<&Rooms::alarms, &AlarmHandlers::mnuNewAlarm_Click>},
        {&Sidebar::picPrint, "picPrint", "_MouseUp", Run<&Rooms::printing, &Printing::mnuPrint_Click>, false},
    };
    for (const PressedPicture& row : rows)
        WirePicture(rooms, row);
    On(sidebar.picWeek, &PictureButton::Click, "picWeek_Click", rooms.navigation, &Navigation::picWeek_Click);
    On(sidebar.picMonth, &PictureButton::Click, "picMonth_Click", rooms.navigation, &Navigation::subSwitchToMonthView);
    On(sidebar.tabSidebar, &TabStrip::Click, "tabSidebar_Click", rooms.m_pSidebar, &CSidebarView::TogglePages);
}

void WireNetwork(Rooms& rooms)
{
    const NetworkControls& network = rooms.controls.network;
    On(network.picLock, &PictureButton::Click, "picLock_Click", rooms.heldDay, &HeldDay::subLockDay);
    On(network.picRefresh, &PictureButton::MouseDown, "picRefresh", rooms.workgroup,
       &WorkgroupHandlers::picRefresh_MouseDown);
    On(network.picRefresh, &PictureButton::MouseUp, "picRefresh_Click", rooms.workgroup,
       &WorkgroupHandlers::picRefresh_MouseUp);
}

void WirePictureBar(Rooms& rooms)
{
    PictureStrip* strip = rooms.controls.sidebar.tbPictureBox;
    PictureBar& bar = rooms.pictureBar;
    On(strip, &PictureStrip::Shown, "subLoadIcons", bar, &PictureBar::tbPictureBox_Shown);
    On(strip, &PictureStrip::OLECompleteDrag, "tbPictureBox_OLECompleteDrag", bar,
       &PictureBar::tbPictureBox_OLECompleteDrag);
    On(strip, &PictureStrip::OLEDragDrop, "tbPictureBox_OLEDragDrop", bar, &PictureBar::tbPictureBox_OLEDragDrop);
    On(strip, &PictureStrip::OLEStartDrag, "tbPictureBox_OLEStartDrag", bar, &PictureBar::tbPictureBox_OLEStartDrag);
    On(rooms.controls.sidebar.btnReloadIcons, &QPushButton::clicked, "btnReloadIcons_Click", bar,
       &PictureBar::btnReloadIcons_Click);
}

struct ButtonRow
{
    const char* key;
    const char* entry;
};

constexpr ButtonRow ButtonRows[] = {
    {"new", "mnuNew"},
    {"open", "mnuOpen"},
    {"save", "mnuSave"},
    {"cut", "mnuCut"},
    {"copy", "mnuCopy"},
    {"paste", "mnuPaste"},
    {"bold", "mnuBold"},
    {"italic", "mnuItalic"},
    {"underline", "mnuUnderline"},
    {"strikethru", "mnuStrikeThru"},
    {"datediff", "mnuDateDiffShow"},
};

void WireToolbar(Rooms& rooms)
{
    Toolbar* bar = rooms.controls.bar.tbTop;
    On(bar, &Toolbar::ButtonClick, "tbTop_ButtonClick", [&rooms](const QString& key) {
        for (const ButtonRow& row : ButtonRows) {
            if (key == QLatin1StringView(row.key))
                rooms.controls.menus(QLatin1StringView(row.entry)).Action()->trigger();
        }
    });
    On(bar, &Toolbar::Dropped, "Form_DragDrop", rooms.m_pLayout, &CScreenLayout::Form_DragDrop);
}

void WireCombos(Rooms& rooms)
{
    const auto wire = [&](ORLCombo* combo, const char* routine, auto change) {
        On(combo, &ORLCombo::Click, routine, [&rooms] { rooms.formatting.fnCanFormatCell(); });
        On(combo, &ORLCombo::Change, routine, rooms.formatting, change);
    };
    const FormatBar& bar = rooms.controls.bar;
    wire(bar.orlcmbFontname, "orlcmbFontname_Change", &Formatting::orlcmbFontname_Change);
    wire(bar.orlcmbFontsize, "orlcmbFontsize_Change", &Formatting::orlcmbFontsize_Change);
    wire(bar.orlcmbFontcolor, "orlcmbFontcolor_Change", &Formatting::orlcmbFontcolor_Change);
}

void WireSpins(Rooms& rooms)
{
    const auto wire = [&](PictureButton* spin, const char* routine, void (Navigation::*action)()) {
        On(spin, &PictureButton::MouseDown, routine, [spin] { spin->ShowElement(1); });
        On(spin, &PictureButton::MouseMove, routine, rooms.navigation, &Navigation::SpinTips);
        On(spin, &PictureButton::MouseUp, routine, rooms.navigation, action);
        On(spin, &PictureButton::MouseUp, routine, [spin] { spin->ShowElement(0); });
    };
    const BottomPanel& bottom = rooms.controls.bottom;
    wire(bottom.imgLeftSpin, "imgLeftSpin_MouseUp", &Navigation::subActionPrevious);
    wire(bottom.imgRightSpin, "imgRightSpin_MouseUp", &Navigation::subActionNext);
    rooms.navigation.SpinTips(); // now, not at the first hover: screen readers read the tips as names
}

void WireCalendar(Rooms& rooms)
{
    Cells* cells = &rooms.controls.cells;
    QObject::connect(cells, &Cells::Change, cells,
                     Guarded(QLatin1StringView(" in Journal, Touch"), [&rooms] { rooms.journal.Touch(); }));
    On(cells, &Cells::Change, "tbDay_Change", rooms.dayView, &DayView::EndNotice);
    On(cells, &Cells::GotFocus, "tbDay_GotFocus", rooms.dayView, &DayView::FollowFocus);
    On(cells, &Cells::HeadingDblClick, "lblDayOfWeek_DblClick", rooms.appearance, &Appearance::lblDayOfWeek_DblClick);
    On(cells, &Cells::PanelDblClick, "panelDay_DblClick", rooms.dayView, &DayView::panelDay_DblClick);
    On(cells, &Cells::BlankDblClick, "tbDay_DblClick", rooms.dayView, &DayView::panelDay_DblClick);
    On(cells, &Cells::AlarmMarkClick, "btnTunes_Click", rooms.alarms, &AlarmHandlers::btnTunes_Click);
    On(cells, &Cells::MouseMove, "tbDay_MouseMove", rooms.dateDifference, &DateDifference::tbDay_MouseMove);
    On(cells, &Cells::Redrawn, "tbDay_MouseMove", rooms.dateDifference, &DateDifference::FollowCell);
    On(cells, &Cells::GotFocus, "tbDay_MouseMove", rooms.dateDifference, &DateDifference::tbDay_GotFocus);
    On(rooms.controls.bottom.panelBottom, &SSPanel::DblClick, "PanelBottom_DblClick", rooms.dateSearch,
       &DateSearch::PanelBottom_DblClick);
}

void WireTimers(Rooms& rooms)
{
    const Controls& controls = rooms.controls;
    On(&controls.tmMidnightRefresh, &Timer::Tick, "tmMidnightRefresh_Timer", rooms.navigation,
       &Navigation::tmMidnightRefresh_Timer);
    On(&controls.tmAlarm, &Timer::Tick, "tmAlarm_Timer", rooms.alarmClock, &AlarmClock::tmAlarm_Timer);
    On(controls.network.tmUnLock, &Timer::Tick, "tmUnLock_Timer", rooms.workgroup, &WorkgroupHandlers::tmUnLock_Timer);
    On(controls.network.tmAutoRefresh, &Timer::Tick, "tmAutoRefresh_Timer", rooms.workgroup,
       &WorkgroupHandlers::tmAutoRefresh_Timer);
}
} // namespace

void WireHandlers(Rooms& rooms)
{
    WireMenus(rooms);
    WireSidebar(rooms);
    WireNetwork(rooms);
    WirePictureBar(rooms);
    WireToolbar(rooms);
    WireCombos(rooms);
    WireSpins(rooms);
    WireCalendar(rooms);
    WireTimers(rooms);
}
