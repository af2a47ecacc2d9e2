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

#include <QPushButton>

#include <optional>

namespace {
struct MenuRow
{
    const char* name;
    const char* literal;
    void (*click)(Rooms& rooms);
};

template <auto Room, auto Handler>
void Run(Rooms& rooms)
{
    ((rooms.*Room).*Handler)();
}

constexpr MenuRow MenuRows[] = {
    {"mnuNew", " in MainForm, mnuNew_Click", Run<&Rooms::creation, &Creation::subNewPlanner>},
    {"mnuOpen", " in MainForm, mnuOpen_Click", Run<&Rooms::opening, &Opening::subOpenPlanner>},
    {"mnuSave", " in MainForm, mnuSave_Click", Run<&Rooms::notes, &QMTDB::mnuSave_Click>},
    {"mnuCompact", " in MainForm, mnuCompact_Click", Run<&Rooms::maintenance, &Maintenance::mnuCompact_Click>},
    {"mnuRepair", " in MainForm, mnuRepair_Click", Run<&Rooms::maintenance, &Maintenance::mnuRepair_Click>},
    {"mnuPageSetup", " in MainForm, mnuPageSetup_Click", Run<&Rooms::printing, &Printing::mnuPageSetup_Click>},
    {"mnuPrintSetup", " in MainForm, mnuPrintSetup_Click", Run<&Rooms::printing, &Printing::mnuPrintSetup_Click>},
    {"mnuPrint", " in MainForm, mnuPrint_Click", Run<&Rooms::printing, &Printing::mnuPrint_Click>},
    {"mnuRefresh", " in MainForm, mnuRefresh_Click", Run<&Rooms::workgroup, &WorkgroupHandlers::subRefreshCells>},
    {"mnuLockDay", " in MainForm, mnuLockDay_Click", Run<&Rooms::heldDay, &HeldDay::subLockDay>},
    {"mnuNetworkOptions", " in MainForm, mnuNetworkOptions_Click",
     Run<&Rooms::workgroup, &WorkgroupHandlers::mnuNetworkOptions_Click>},
    {"mnuMonthView", " in MainForm, mnuMonthView_Click", Run<&Rooms::navigation, &Navigation::subSwitchToMonthView>},
    {"mnuWeekView", " in MainForm, mnuWeekView_Click", Run<&Rooms::navigation, &Navigation::subSwitchToWeekView>},
    {"mnuDayView", " in MainForm, mnuDayView_Click", Run<&Rooms::dayView, &DayView::subZoomView>},
    {"mnuViewTBVisible", " in MainForm, mnuViewTBVisible_Click",
     Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBVisible_Click>},
    {"mnuViewTBAlignTop", " in MainForm, mnuViewTBAlignTop_Click",
     Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBAlignTop_Click>},
    {"mnuViewTBAlignBottom", " in MainForm, mnuViewTBAlignBottom_Click",
     Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewTBAlignBottom_Click>},
    {"mnuViewSBVisible", " in MainForm, mnuViewSBVisible_Click",
     Run<&Rooms::m_pLayout, &CScreenLayout::mnuViewSBVisible_Click>},
    {"mnuNewAlarm", " in MainForm, mnuNewAlarm_Click", Run<&Rooms::alarms, &AlarmHandlers::mnuNewAlarm_Click>},
    {"mnuChangeAlarms", " in MainForm, mnuChangeAlarms_Click",
     Run<&Rooms::alarms, &AlarmHandlers::mnuChangeAlarms_Click>},
    {"mnuPrevWeek", " in MainForm, mnuPrevWeek_Click", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuCurrentWeek", " in MainForm, mnuCurrentWeek_Click",
     Run<&Rooms::navigation, &Navigation::mnuCurrentWeek_Click>},
    {"mnuNextWeek", " in MainForm, mnuNextWeek_Click", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuPrevMonth", " in MainForm, mnuPrevMonth_Click", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuThisMonth", " in MainForm, mnuThisMonth_Click", Run<&Rooms::navigation, &Navigation::mnuThisMonth_Click>},
    {"mnuNextMonth", " in MainForm, mnuNextMonth_Click", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuRecurse", " in MainForm, mnuRecurse_Click", Run<&Rooms::recurringEvents, &RecurringEvents::mnuRecurse_Click>},
    {"mnuDateSearch", " in MainForm, mnuDateSearch_Click", Run<&Rooms::dateSearch, &DateSearch::mnuDateSearch_Click>},
    {"mnuFindWord", " in MainForm, mnuFindWord_Click", Run<&Rooms::findWord, &FindWord::mnuFindWord_Click>},
    {"mnuDateDiffShow", " in MainForm, mnuDateDiffShow_Click",
     Run<&Rooms::dateDifference, &DateDifference::mnuDateDiffShow_Click>},
    {"mnuDateDiffCustomize", " in MainForm, mnuDateDiffCustomize_Click",
     Run<&Rooms::dateDifference, &DateDifference::mnuDateDiffCustomize_Click>},
    {"mnuInitialFont", " in MainForm, mnuInitialFont_Click",
     Run<&Rooms::appearance, &Appearance::mnuInitialFont_Click>},
    {"mnuNumberDlg", " in MainForm, mnuNumberDlg_Click", Run<&Rooms::appearance, &Appearance::mnuNumberDlg_Click>},
    {"mnuWeekAppearance", " in MainForm, mnuWeekAppearance_Click",
     Run<&Rooms::appearance, &Appearance::mnuWeekAppearance_Click>},
    {"mnuMonthDisplay", " in MainForm, mnuMonthDisplay_Click",
     Run<&Rooms::appearance, &Appearance::mnuMonthDisplay_Click>},
    {"mnuMonToSun", " in MainForm, mnuMonToSun_Click", Run<&Rooms::appearance, &Appearance::mnuMonToSun_Click>},
    {"mnuAutoload", " in MainForm, mnuAutoload_Click", Run<&Rooms::shellHandlers, &ShellHandlers::mnuAutoload_Click>},
    {"mnuSetWallpaper", " in MainForm, mnuSetWallpaper_Click",
     Run<&Rooms::wallpaper, &WallpaperCommands::mnuSetWallpaper_Click>},
    {"mnuClearWallpaper", " in MainForm, mnuClearWallpaper_Click",
     Run<&Rooms::wallpaper, &WallpaperCommands::mnuClearWallpaper_Click>},
    {"mnuUpdateWallpaper", " in MainForm, mnuUpdateWallpaper_Click",
     Run<&Rooms::wallpaper, &WallpaperCommands::mnuUpdateWallpaper_Click>},
    {"mnuPrevWallpaper", " in MainForm, mnuPrevWallpaper_Click",
     Run<&Rooms::wallpaper, &WallpaperCommands::mnuPrevWallpaper_Click>},
    {"mnuWallpaperOption", " in MainForm, mnuWallpaperOption_Click",
     Run<&Rooms::wallpaper, &WallpaperCommands::mnuWallpaperOption_Click>},
    {"mnuContents", " in MainForm, mnuContents_Click", Run<&Rooms::shellHandlers, &ShellHandlers::mnuContents_Click>},
    {"mnuHelpSearch", " in MainForm, mnuHelpSearch_Click",
     Run<&Rooms::shellHandlers, &ShellHandlers::mnuHelpSearch_Click>},
    {"mnuHelpHow", " in MainForm, mnuHelpHow_Click", Run<&Rooms::shellHandlers, &ShellHandlers::mnuHelpHow_Click>},
    {"mnuAbout", " in MainForm, mnuAbout_Click", Run<&Rooms::shellHandlers, &ShellHandlers::mnuAbout_Click>},
    {"mnuCut", " in MainForm, mnuCut_Click", Run<&Rooms::formatting, &Formatting::mnuCut_Click>},
    {"mnuCopy", " in MainForm, mnuCopy_Click", Run<&Rooms::formatting, &Formatting::mnuCopy_Click>},
    {"mnuPaste", " in MainForm, mnuPaste_Click", Run<&Rooms::formatting, &Formatting::mnuPaste_Click>},
    {"mnuBold", " in MainForm, mnuBold_Click", Run<&Rooms::formatting, &Formatting::mnuBold_Click>},
    {"mnuItalic", " in MainForm, mnuItalic_Click", Run<&Rooms::formatting, &Formatting::mnuItalic_Click>},
    {"mnuUnderline", " in MainForm, mnuUnderline_Click", Run<&Rooms::formatting, &Formatting::mnuUnderline_Click>},
    {"mnuStrikeThru", " in MainForm, mnuStrikeThru_Click", Run<&Rooms::formatting, &Formatting::mnuStrikeThru_Click>},
    {"mnuColorSizeFonts", " in MainForm, mnuColorSizeFonts_Click",
     Run<&Rooms::formatting, &Formatting::mnuColorSizeFonts_Click>},
    {"mnuColorSizeFontsR", " in MainForm, mnuColorSizeFonts_Click",
     Run<&Rooms::formatting, &Formatting::mnuColorSizeFonts_Click>},
    {"mnuCutR", " in MainForm, mnuCut_Click", Run<&Rooms::formatting, &Formatting::mnuCut_Click>},
    {"mnuCopyR", " in MainForm, mnuCopy_Click", Run<&Rooms::formatting, &Formatting::mnuCopy_Click>},
    {"mnuPasteR", " in MainForm, mnuPaste_Click", Run<&Rooms::formatting, &Formatting::mnuPaste_Click>},
    {"mnuBoldR", " in MainForm, mnuBold_Click", Run<&Rooms::formatting, &Formatting::mnuBold_Click>},
    {"mnuItalicR", " in MainForm, mnuItalic_Click", Run<&Rooms::formatting, &Formatting::mnuItalic_Click>},
    {"mnuUnderlineR", " in MainForm, mnuUnderline_Click", Run<&Rooms::formatting, &Formatting::mnuUnderline_Click>},
    {"mnuStrikeThruR", " in MainForm, mnuStrikeThru_Click", Run<&Rooms::formatting, &Formatting::mnuStrikeThru_Click>},
    {"mnuLeftJustify", " in MainForm, mnuLeftJustify_Click",
     Run<&Rooms::formatting, &Formatting::mnuLeftJustify_Click>},
    {"mnuCenterJustify", " in MainForm, mnuCenterJustify_Click",
     Run<&Rooms::formatting, &Formatting::mnuCenterJustify_Click>},
    {"mnuRightJustify", " in MainForm, mnuRightJustify_Click",
     Run<&Rooms::formatting, &Formatting::mnuRightJustify_Click>},
};

// The buttons share the commands of the menu.
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

void WireMenus(Rooms& rooms)
{
    Menus& menus = rooms.controls.menus;
    for (const MenuRow& row : MenuRows)
        menus(QLatin1StringView(row.name))
            .OnClick([&rooms, &row] { row.click(rooms); }, QLatin1StringView(row.literal));
    for (int entry = 0; entry < settings::RecentPlanners; ++entry) {
        menus.mnuMRU(entry).OnClick([&rooms, &item = menus.mnuMRU(entry)] { rooms.opening.mnuMRU_Click(item); },
                                    " in MainForm, mnuMRU_Click"_L1);
    }
}

// What an event does goes through the error log like the rest of the window's handlers.
template <typename Sender, typename Signal, typename Action>
void On(Sender* sender, Signal signal, const char* literal, Action action)
{
    QObject::connect(sender, signal, sender, Guarded(QLatin1StringView(literal), std::move(action)));
}

// What a picture does when it is pressed and let go, beside its command.
struct PictureEvent
{
    const char* literal;
    void (*run)(Rooms& rooms);
};

// The pictures of the sidebar. One whose command is not here stays disabled.
struct PictureRow
{
    PictureButton* Sidebar::*picture;
    const char* literal;
    void (*click)(Rooms& rooms, int Index); // Index: the element that was visible
    std::optional<PictureEvent> down = {};
    std::optional<PictureEvent> up = {};
};

constexpr PictureRow PictureRows[] = {
    {&Sidebar::picDay, " in MainForm, picDay_Click", [](Rooms& rooms, int) { rooms.dayView.picDay_Click(); },
     PictureEvent{" in MainForm, picDay_MouseDown", Run<&Rooms::dayView, &DayView::picDay_MouseDown>},
     PictureEvent{" in MainForm, picDay_MouseUp", Run<&Rooms::dayView, &DayView::picDay_MouseUp>}},
    {&Sidebar::picWeek, " in MainForm, picWeek_Click",
     [](Rooms& rooms, int Index) { rooms.navigation.picWeek_Click(Index); }},
    {&Sidebar::picMonth, " in MainForm, picMonth_Click",
     [](Rooms& rooms, int) { rooms.navigation.subSwitchToMonthView(); }},
    {&Sidebar::picRecurse, " in MainForm, picRecurse_MouseUp",
     [](Rooms& rooms, int) { rooms.recurringEvents.picRecurse_Click(); },
     PictureEvent{" in MainForm, picRecurse_MouseDown",
                  Run<&Rooms::recurringEvents, &RecurringEvents::picRecurse_MouseDown>},
     PictureEvent{" in MainForm, picRecurse_MouseUp",
                  Run<&Rooms::recurringEvents, &RecurringEvents::picRecurse_MouseUp>}},
    {&Sidebar::picAlarm, " in MainForm, picAlarm_MouseUp", [](Rooms& rooms, int) { rooms.alarms.picAlarm_Click(); },
     PictureEvent{" in MainForm, picAlarm_MouseDown", Run<&Rooms::alarms, &AlarmHandlers::picAlarm_MouseDown>},
     PictureEvent{" in MainForm, picAlarm_MouseUp", Run<&Rooms::alarms, &AlarmHandlers::picAlarm_MouseUp>}},
    {&Sidebar::picPrint, " in MainForm, picPrint_MouseUp", [](Rooms& rooms, int) { rooms.printing.picPrint_Click(); },
     PictureEvent{" in MainForm, picPrint_MouseDown", Run<&Rooms::printing, &Printing::picPrint_MouseDown>},
     PictureEvent{" in MainForm, picPrint_MouseUp", Run<&Rooms::printing, &Printing::picPrint_MouseUp>}},
};

void WirePictures(Rooms& rooms)
{
    const Sidebar& sidebar = rooms.controls.sidebar;
    const auto wire = [&rooms](PictureButton* picture, auto signal, const std::optional<PictureEvent>& event) {
        if (event) On(picture, signal, event->literal, [&rooms, run = event->run](int) { run(rooms); });
    };
    for (const PictureRow& row : PictureRows) {
        PictureButton* picture = sidebar.*row.picture;
        On(picture, &PictureButton::Click, row.literal, [&rooms, &row](int Index) { row.click(rooms, Index); });
        wire(picture, &PictureButton::MouseDown, row.down);
        wire(picture, &PictureButton::MouseUp, row.up);
        picture->setEnabled(true);
    }
    On(sidebar.tabSidebar, &TabStrip::Click, " in MainForm, tabSidebar_Click",
       [&rooms] { rooms.m_pSidebar.TogglePages(); });
}

void WireNetwork(Rooms& rooms)
{
    const NetworkControls& network = rooms.controls.network;
    On(network.picLock, &PictureButton::Click, " in MainForm, picLock_Click",
       [&rooms](int) { rooms.heldDay.subLockDay(); });
    On(network.picRefresh, &PictureButton::MouseDown, " in MainForm, picRefresh",
       [&rooms](int) { rooms.workgroup.picRefresh_MouseDown(); });
    On(network.picRefresh, &PictureButton::MouseUp, " in MainForm, picRefresh_Click",
       [&rooms](int) { rooms.workgroup.picRefresh_MouseUp(); });
    for (PictureButton* picture : {network.picLock, network.picRefresh})
        picture->setEnabled(true);
}

void WirePictureBar(Rooms& rooms)
{
    const Sidebar& sidebar = rooms.controls.sidebar;
    PictureStrip* strip = sidebar.tbPictureBox;
    PictureBar& bar = rooms.pictureBar;
    On(strip, &PictureStrip::Shown, " in MainForm, subLoadIcons", [&bar] { bar.tbPictureBox_Shown(); });
    On(strip, &PictureStrip::OLECompleteDrag, " in MainForm, tbPictureBox_OLECompleteDrag",
       [&bar] { bar.tbPictureBox_OLECompleteDrag(); });
    On(strip, &PictureStrip::OLEDragDrop, " in MainForm, tbPictureBox_OLEDragDrop",
       [&bar](const QStringList& files) { bar.tbPictureBox_OLEDragDrop(files); });
    On(strip, &PictureStrip::OLEStartDrag, " in MainForm, tbPictureBox_OLEStartDrag",
       [&bar](QMimeData& data, QPixmap& cursor) { bar.tbPictureBox_OLEStartDrag(data, cursor); });
    On(sidebar.btnReloadIcons, &QPushButton::clicked, " in MainForm, btnReloadIcons_Click",
       [&bar](bool) { bar.btnReloadIcons_Click(); });
    sidebar.btnReloadIcons->setEnabled(true);
}

void WireToolbar(Rooms& rooms)
{
    Toolbar* bar = rooms.controls.bar.tbTop;
    for (const ButtonRow& row : ButtonRows)
        bar->Buttons(QString::fromLatin1(row.key)).setEnabled(true);
    On(bar, &Toolbar::ButtonClick, " in MainForm, tbTop_ButtonClick", [&rooms](const QString& key) {
        for (const ButtonRow& row : ButtonRows) {
            if (key == QLatin1StringView(row.key))
                rooms.controls.menus(QLatin1StringView(row.entry)).Action()->trigger();
        }
    });
    On(bar, &Toolbar::Dropped, " in MainForm, Form_DragDrop",
       [&rooms](const QPoint& at) { rooms.m_pLayout.Form_DragDrop(at); });
}

void WireCombos(Rooms& rooms)
{
    const auto wire = [&](ORLCombo* combo, const char* literal, auto change) {
        On(combo, &ORLCombo::Click, literal, [&rooms] { rooms.formatting.fnCanFormatCell(); });
        On(combo, &ORLCombo::Change, literal, [&rooms, change] { (rooms.formatting.*change)(); });
    };
    const FormatBar& bar = rooms.controls.bar;
    wire(bar.orlcmbFontname, " in MainForm, orlcmbFontname_Change", &Formatting::orlcmbFontname_Change);
    wire(bar.orlcmbFontsize, " in MainForm, orlcmbFontsize_Change", &Formatting::orlcmbFontsize_Change);
    wire(bar.orlcmbFontcolor, " in MainForm, orlcmbFontcolor_Change", &Formatting::orlcmbFontcolor_Change);
}

void WireSpins(Rooms& rooms)
{
    const auto wire = [&](PictureButton* spin, const char* literal, auto action) {
        On(spin, &PictureButton::MouseDown, literal, [spin](int) { spin->ShowElement(1); });
        On(spin, &PictureButton::MouseMove, literal, [&rooms] { rooms.navigation.SpinTips(); });
        On(spin, &PictureButton::MouseUp, literal, [&rooms, action](int) { (rooms.navigation.*action)(); });
        On(spin, &PictureButton::MouseUp, literal, [spin](int) { spin->ShowElement(0); });
    };
    const BottomPanel& bottom = rooms.controls.bottom;
    wire(bottom.imgLeftSpin, " in MainForm, imgLeftSpin_MouseUp", &Navigation::subActionPrevious);
    wire(bottom.imgRightSpin, " in MainForm, imgRightSpin_MouseUp", &Navigation::subActionNext);
    rooms.navigation.SpinTips(); // before the mouse comes: the tips are the names by which the buttons are read out
}

void WireCalendar(Rooms& rooms)
{
    On(&rooms.controls.cells, &Cells::Change, " in Journal, Touch", [&rooms](int) { rooms.journal.Touch(); });
    On(&rooms.controls.cells, &Cells::Change, " in MainForm, tbDay_Change",
       [&rooms](int) { rooms.dayView.EndNotice(); });
    On(&rooms.controls.cells, &Cells::GotFocus, " in MainForm, tbDay_GotFocus",
       [&rooms](int Index) { rooms.dayView.FollowFocus(Index); });
    On(&rooms.controls.cells, &Cells::HeadingDblClick, " in MainForm, lblDayOfWeek_DblClick",
       [&rooms](int Index) { rooms.appearance.lblDayOfWeek_DblClick(Index); });
    On(&rooms.controls.cells, &Cells::PanelDblClick, " in MainForm, panelDay_DblClick",
       [&rooms](int Index) { rooms.dayView.panelDay_DblClick(Index); });
    On(&rooms.controls.cells, &Cells::AlarmMarkClick, " in MainForm, btnTunes_Click",
       [&rooms](int Index) { rooms.alarms.btnTunes_Click(Index); });
    On(&rooms.controls.cells, &Cells::MouseMove, " in MainForm, tbDay_MouseMove",
       [&rooms](int Index) { rooms.dateDifference.tbDay_MouseMove(Index); });
    On(&rooms.controls.cells, &Cells::Redrawn, " in MainForm, tbDay_MouseMove",
       [&rooms] { rooms.dateDifference.FollowCell(); });
    On(&rooms.controls.cells, &Cells::GotFocus, " in MainForm, tbDay_MouseMove",
       [&rooms](int Index) { rooms.dateDifference.tbDay_GotFocus(Index); });
    On(rooms.controls.bottom.panelBottom, &SSPanel::DblClick, " in MainForm, PanelBottom_DblClick",
       [&rooms] { rooms.dateSearch.PanelBottom_DblClick(); });
}

void WireTimers(Rooms& rooms)
{
    On(&rooms.controls.tmMidnightRefresh, &Timer::Tick, " in MainForm, tmMidnightRefresh_Timer",
       [&rooms] { rooms.navigation.tmMidnightRefresh_Timer(); });
    On(&rooms.controls.tmAlarm, &Timer::Tick, " in MainForm, tmAlarm_Timer",
       [&rooms] { rooms.alarmClock.tmAlarm_Timer(); });
    On(rooms.controls.network.tmUnLock, &Timer::Tick, " in MainForm, tmUnLock_Timer",
       [&rooms] { rooms.workgroup.tmUnLock_Timer(); });
    On(rooms.controls.network.tmAutoRefresh, &Timer::Tick, " in MainForm, tmAutoRefresh_Timer",
       [&rooms] { rooms.workgroup.tmAutoRefresh_Timer(); });
}
} // namespace

void WireHandlers(Rooms& rooms)
{
    WireMenus(rooms);
    WirePictures(rooms);
    WireNetwork(rooms);
    WirePictureBar(rooms);
    WireToolbar(rooms);
    WireCombos(rooms);
    WireSpins(rooms);
    WireCalendar(rooms);
    WireTimers(rooms);
}
