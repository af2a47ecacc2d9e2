#include "shell/wiring.h"

#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/controls/toolbar.h"
#include "platform/runtime/errortail.h"
#include "shell/rooms.h"

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
    {"mnuNew", " in MainForm, mnuNew_Click", Run<&Rooms::planners, &PlannerHandlers::mnuNew_Click>},
    {"mnuOpen", " in MainForm, mnuOpen_Click", Run<&Rooms::planners, &PlannerHandlers::mnuOpen_Click>},
    {"mnuSave", " in MainForm, mnuSave_Click", Run<&Rooms::planners, &PlannerHandlers::mnuSave_Click>},
    {"mnuCompact", " in MainForm, mnuCompact_Click", Run<&Rooms::maintenance, &Maintenance::mnuCompact_Click>},
    {"mnuRepair", " in MainForm, mnuRepair_Click", Run<&Rooms::maintenance, &Maintenance::mnuRepair_Click>},
    {"mnuMonthView", " in MainForm, mnuMonthView_Click", Run<&Rooms::navigation, &Navigation::subSwitchToMonthView>},
    {"mnuWeekView", " in MainForm, mnuWeekView_Click", Run<&Rooms::navigation, &Navigation::subSwitchToWeekView>},
    {"mnuViewTBVisible", " in MainForm, mnuViewTBVisible_Click", Run<&Rooms::bars, &Bars::mnuViewTBVisible_Click>},
    {"mnuViewTBAlignTop", " in MainForm, mnuViewTBAlignTop_Click", Run<&Rooms::bars, &Bars::mnuViewTBAlignTop_Click>},
    {"mnuViewTBAlignBottom", " in MainForm, mnuViewTBAlignBottom_Click",
     Run<&Rooms::bars, &Bars::mnuViewTBAlignBottom_Click>},
    {"mnuViewSBVisible", " in MainForm, mnuViewSBVisible_Click", Run<&Rooms::bars, &Bars::mnuViewSBVisible_Click>},
    {"mnuPrevWeek", " in MainForm, mnuPrevWeek_Click", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuCurrentWeek", " in MainForm, mnuCurrentWeek_Click",
     Run<&Rooms::navigation, &Navigation::mnuCurrentWeek_Click>},
    {"mnuNextWeek", " in MainForm, mnuNextWeek_Click", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuPrevMonth", " in MainForm, mnuPrevMonth_Click", Run<&Rooms::navigation, &Navigation::subActionPrevious>},
    {"mnuThisMonth", " in MainForm, mnuThisMonth_Click", Run<&Rooms::navigation, &Navigation::mnuThisMonth_Click>},
    {"mnuNextMonth", " in MainForm, mnuNextMonth_Click", Run<&Rooms::navigation, &Navigation::subActionNext>},
    {"mnuDateSearch", " in MainForm, mnuDateSearch_Click", Run<&Rooms::dateSearch, &DateSearch::mnuDateSearch_Click>},
    {"mnuInitialFont", " in MainForm, mnuInitialFont_Click",
     Run<&Rooms::appearance, &Appearance::mnuInitialFont_Click>},
    {"mnuNumberDlg", " in MainForm, mnuNumberDlg_Click", Run<&Rooms::appearance, &Appearance::mnuNumberDlg_Click>},
    {"mnuWeekAppearance", " in MainForm, mnuWeekAppearance_Click",
     Run<&Rooms::appearance, &Appearance::mnuWeekAppearance_Click>},
    {"mnuMonthDisplay", " in MainForm, mnuMonthDisplay_Click",
     Run<&Rooms::appearance, &Appearance::mnuMonthDisplay_Click>},
    {"mnuMonToSun", " in MainForm, mnuMonToSun_Click", Run<&Rooms::appearance, &Appearance::mnuMonToSun_Click>},
    {"mnuAutoload", " in MainForm, mnuAutoload_Click", Run<&Rooms::shellHandlers, &ShellHandlers::mnuAutoload_Click>},
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
};

void WireMenus(Rooms& rooms)
{
    Menus& menus = rooms.controls.menus;
    for (const MenuRow& row : MenuRows)
        menus(QLatin1StringView(row.name))
            .OnClick([&rooms, &row] { row.click(rooms); }, QLatin1StringView(row.literal));
    for (int entry = 0; entry < 4; ++entry) {
        menus.mnuMRU(entry).OnClick([&rooms, &item = menus.mnuMRU(entry)] { rooms.planners.mnuMRU_Click(item); },
                                    QLatin1StringView(" in MainForm, mnuMRU_Click"));
    }
}

void WireButtons(Rooms& rooms)
{
    Toolbar& bar = *rooms.controls.bar.tbTop;
    QObject::connect(&bar, &Toolbar::ButtonClick, &bar, [&rooms](const QString& key) {
        for (const ButtonRow& row : ButtonRows) {
            if (key == QLatin1StringView(row.key))
                rooms.controls.menus(QLatin1StringView(row.entry)).Action()->trigger();
        }
    });
    bar.Buttons(QStringLiteral("datediff")).setEnabled(false); // with its command
    QObject::connect(&bar, &Toolbar::Dropped, &bar, [&rooms](const QPoint& at) {
        guard(QLatin1StringView(" in MainForm, Form_DragDrop"), [&] { rooms.bars.Form_DragDrop(at); });
    });
}

void WireCombos(Rooms& rooms)
{
    const auto wire = [&](ORLCombo* combo, QLatin1StringView literal, auto change) {
        QObject::connect(combo, &ORLCombo::Click, combo, [&rooms] { rooms.formatting.fnCanFormatCell(); });
        QObject::connect(combo, &ORLCombo::Change, combo,
                         [&rooms, literal, change] { guard(literal, [&] { (rooms.formatting.*change)(); }); });
    };
    const FormatBar& bar = rooms.controls.bar;
    wire(bar.orlcmbFontname, QLatin1StringView(" in MainForm, orlcmbFontname_Change"),
         &Formatting::orlcmbFontname_Change);
    wire(bar.orlcmbFontsize, QLatin1StringView(" in MainForm, orlcmbFontsize_Change"),
         &Formatting::orlcmbFontsize_Change);
    wire(bar.orlcmbFontcolor, QLatin1StringView(" in MainForm, orlcmbFontcolor_Change"),
         &Formatting::orlcmbFontcolor_Change);
}

void WireSpins(Rooms& rooms)
{
    const auto wire = [&](PictureButton* spin, QLatin1StringView literal, auto action) {
        QObject::connect(spin, &PictureButton::MouseDown, spin, [spin](int) {
            spin->SetVisible(0, false);
            spin->SetVisible(1, true);
        });
        QObject::connect(spin, &PictureButton::MouseMove, spin, [&rooms] { rooms.navigation.SpinTips(); });
        QObject::connect(spin, &PictureButton::MouseUp, spin, [&rooms, spin, literal, action](int) {
            guard(literal, [&] { (rooms.navigation.*action)(); });
            spin->SetVisible(0, true);
            spin->SetVisible(1, false);
        });
    };
    const BottomPanel& bottom = rooms.controls.bottom;
    wire(bottom.imgLeftSpin, QLatin1StringView(" in MainForm, imgLeftSpin_MouseUp"), &Navigation::subActionPrevious);
    wire(bottom.imgRightSpin, QLatin1StringView(" in MainForm, imgRightSpin_MouseUp"), &Navigation::subActionNext);
    rooms.navigation.SpinTips(); // before the mouse comes: the tips are the names by which the buttons are read out
    QObject::connect(bottom.panelBottom, &SSPanel::DblClick, bottom.panelBottom, [&rooms] {
        guard(QLatin1StringView(" in MainForm, PanelBottom_DblClick"),
              [&] { rooms.dateSearch.PanelBottom_DblClick(); });
    });
}

void WireSidebar(Rooms& rooms)
{
    const Sidebar& sidebar = rooms.controls.sidebar;
    QObject::connect(sidebar.tabSidebar, &TabStrip::Click, sidebar.tabSidebar, [&rooms] {
        guard(QLatin1StringView(" in MainForm, tabSidebar_Click"), [&] { rooms.m_pSidebar.TogglePages(); });
    });
    QObject::connect(sidebar.picWeek, &PictureButton::Click, sidebar.picWeek, [&rooms](int Index) {
        guard(QLatin1StringView(" in MainForm, picWeek_Click"), [&] { rooms.navigation.picWeek_Click(Index); });
    });
    QObject::connect(sidebar.picMonth, &PictureButton::Click, sidebar.picMonth, [&rooms] {
        guard(QLatin1StringView(" in MainForm, picMonth_Click"), [&] { rooms.navigation.subSwitchToMonthView(); });
    });
}

void WireHeadings(Rooms& rooms)
{
    QObject::connect(&rooms.controls.cells, &Cells::HeadingDblClick, &rooms.controls.cells, [&rooms](int Index) {
        guard(QLatin1StringView(" in MainForm, lblDayOfWeek_DblClick"),
              [&] { rooms.appearance.lblDayOfWeek_DblClick(Index); });
    });
}

void WireTimers(Rooms& rooms)
{
    Timer& midnight = rooms.controls.tmMidnightRefresh;
    QObject::connect(&midnight, &Timer::Tick, &midnight, [&rooms] {
        guard(QLatin1StringView(" in MainForm, tmMidnightRefresh_Timer"),
              [&] { rooms.navigation.tmMidnightRefresh_Timer(); });
    });
}
} // namespace

void WireHandlers(Rooms& rooms)
{
    WireMenus(rooms);
    WireButtons(rooms);
    WireCombos(rooms);
    WireSpins(rooms);
    WireSidebar(rooms);
    WireHeadings(rooms);
    WireTimers(rooms);
}
