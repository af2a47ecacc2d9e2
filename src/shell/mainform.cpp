#include "shell/mainform.h"

#include "calendar/calendarstate.h"
#include "calendar/ccalendarview.h"
#include "calendar/cellframes.h"
#include "calendar/cscreenlayout.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/modshow.h"
#include "calendar/navigation.h"
#include "calendar/redraw.h"
#include "editing/cellediting.h"
#include "editing/formatting.h"
#include "editing/shortcutfilter.h"
#include "plannerfile/creation.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerhandlers.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/qmtdb.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "shell/controls.h"
#include "shell/exitform.h"
#include "shell/messages.h"
#include "shell/recentlist.h"
#include "workgroup/networkmode.h"

#include <QApplication>
#include <QCloseEvent>

// In the order of their making; each stands on those above it.
struct Mainform::Rooms
{
    explicit Rooms(QMainWindow& window) : controls(window), m_pLayout(window, *controls.client)
    {
        m_pCalendarView.SetRedraw(redraw);
    }

    Controls controls;
    ShortcutFilter shortcuts{controls.cells, controls.menus};
    CToolbarView m_pToolbar{*controls.bar.tbTop, controls.menus};
    CStatusbarView m_pStatusbar{controls.bottom};
    CCalendarView m_pCalendarView{controls.cells};
    CScreenLayout m_pLayout;
    CellFrames frames{controls.cells};
    Redraw redraw{controls.cells, controls.bottom, m_pCalendarView};
    QMTDB notes{controls.cells, controls.bottom, controls.network, m_pCalendarView};
    NetworkMode networkMode{controls.network, controls.menus, *controls.bar.tbTop};
    RecentList recentList{controls.menus};
    Opening opening{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, recentList};
    Creation creation{controls.cells, controls.bottom, controls.FontDialog, notes, networkMode, opening};
    PlannerHandlers planners{creation, opening, notes, redraw, m_pCalendarView};
    Navigation navigation{notes, redraw, controls.menus, m_pCalendarView};
    Formatting formatting{controls.cells, controls.bar, controls.network};
    CellEditing cellEditing{controls.cells, controls.bar,    controls.network,
                            controls.menus, m_pCalendarView, formatting};
};

Mainform::Mainform() : m_rooms(std::make_unique<Rooms>(*this))
{
    setObjectName(QStringLiteral("Mainform"));
    setWindowTitle(QStringLiteral("Orrelin"));
    WireMenus();
    WireToolbar();
    WireSpins();
    m_rooms->controls.client->installEventFilter(this);
}

Mainform::~Mainform() = default;

void Mainform::WireMenus()
{
    Rooms& rooms = *m_rooms;
    struct Row
    {
        const char* name;
        const char* literal;
        std::function<void()> click;
    };
    const auto planners = [&](auto handler) {
        return [&planners = rooms.planners, handler] { (planners.*handler)(); };
    };
    const auto format = [&](auto handler) { return [&format = rooms.formatting, handler] { (format.*handler)(); }; };
    const auto go = [&](auto handler) { return [&go = rooms.navigation, handler] { (go.*handler)(); }; };
    const Row rows[] = {
        {"mnuNew", " in MainForm, mnuNew_Click", planners(&PlannerHandlers::mnuNew_Click)},
        {"mnuOpen", " in MainForm, mnuOpen_Click", planners(&PlannerHandlers::mnuOpen_Click)},
        {"mnuSave", " in MainForm, mnuSave_Click", planners(&PlannerHandlers::mnuSave_Click)},
        {"mnuExit", " in MainForm, mnuExit_Click", [this] { subExitProgram(CloseBox); }},
        {"mnuPrevMonth", " in MainForm, mnuPrevMonth_Click", go(&Navigation::subActionPrevious)},
        {"mnuNextMonth", " in MainForm, mnuNextMonth_Click", go(&Navigation::subActionNext)},
        {"mnuCut", " in MainForm, mnuCut_Click", format(&Formatting::mnuCut_Click)},
        {"mnuCopy", " in MainForm, mnuCopy_Click", format(&Formatting::mnuCopy_Click)},
        {"mnuPaste", " in MainForm, mnuPaste_Click", format(&Formatting::mnuPaste_Click)},
        {"mnuBold", " in MainForm, mnuBold_Click", format(&Formatting::mnuBold_Click)},
        {"mnuItalic", " in MainForm, mnuItalic_Click", format(&Formatting::mnuItalic_Click)},
        {"mnuUnderline", " in MainForm, mnuUnderline_Click", format(&Formatting::mnuUnderline_Click)},
        {"mnuStrikeThru", " in MainForm, mnuStrikeThru_Click", format(&Formatting::mnuStrikeThru_Click)},
        {"mnuCutR", " in MainForm, mnuCut_Click", format(&Formatting::mnuCut_Click)},
        {"mnuCopyR", " in MainForm, mnuCopy_Click", format(&Formatting::mnuCopy_Click)},
        {"mnuPasteR", " in MainForm, mnuPaste_Click", format(&Formatting::mnuPaste_Click)},
        {"mnuBoldR", " in MainForm, mnuBold_Click", format(&Formatting::mnuBold_Click)},
        {"mnuItalicR", " in MainForm, mnuItalic_Click", format(&Formatting::mnuItalic_Click)},
        {"mnuUnderlineR", " in MainForm, mnuUnderline_Click", format(&Formatting::mnuUnderline_Click)},
        {"mnuStrikeThruR", " in MainForm, mnuStrikeThru_Click", format(&Formatting::mnuStrikeThru_Click)},
        {"mnuLeftJustify", " in MainForm, mnuLeftJustify_Click", format(&Formatting::mnuLeftJustify_Click)},
        {"mnuCenterJustify", " in MainForm, mnuCenterJustify_Click", format(&Formatting::mnuCenterJustify_Click)},
        {"mnuRightJustify", " in MainForm, mnuRightJustify_Click", format(&Formatting::mnuRightJustify_Click)},
    };
    Menus& menus = rooms.controls.menus;
    for (const Row& row : rows)
        menus(QLatin1StringView(row.name)).OnClick(row.click, QLatin1StringView(row.literal));
    for (int entry = 0; entry < 4; ++entry) {
        menus.mnuMRU(entry).OnClick([&rooms, &item = menus.mnuMRU(entry)] { rooms.planners.mnuMRU_Click(item); },
                                    QLatin1StringView(" in MainForm, mnuMRU_Click"));
    }
}

void Mainform::WireToolbar()
{
    Rooms& rooms = *m_rooms;
    // The buttons share the commands of the menu.
    static const QHash<QString, const char*> entryOfKey = {{QStringLiteral("new"), "mnuNew"},
                                                           {QStringLiteral("open"), "mnuOpen"},
                                                           {QStringLiteral("save"), "mnuSave"},
                                                           {QStringLiteral("cut"), "mnuCut"},
                                                           {QStringLiteral("copy"), "mnuCopy"},
                                                           {QStringLiteral("paste"), "mnuPaste"},
                                                           {QStringLiteral("bold"), "mnuBold"},
                                                           {QStringLiteral("italic"), "mnuItalic"},
                                                           {QStringLiteral("underline"), "mnuUnderline"},
                                                           {QStringLiteral("strikethru"), "mnuStrikeThru"}};
    Toolbar* bar = rooms.controls.bar.tbTop;
    connect(bar, &Toolbar::ButtonClick, this, [&rooms](const QString& key) {
        const auto entry = entryOfKey.constFind(key);
        if (entry != entryOfKey.cend()) rooms.controls.menus(QLatin1StringView(*entry)).Action()->trigger();
    });
    bar->Buttons(QStringLiteral("datediff")).setEnabled(false);
    const auto wire = [&](ORLCombo* combo, QLatin1StringView literal, auto change) {
        connect(combo, &ORLCombo::Click, this, [&rooms] { rooms.formatting.fnCanFormatCell(); });
        connect(combo, &ORLCombo::Change, this,
                [&rooms, literal, change] { guard(literal, [&] { (rooms.formatting.*change)(); }); });
    };
    const FormatBar& combos = rooms.controls.bar;
    wire(combos.orlcmbFontname, QLatin1StringView(" in MainForm, orlcmbFontname_Change"),
         &Formatting::orlcmbFontname_Change);
    wire(combos.orlcmbFontsize, QLatin1StringView(" in MainForm, orlcmbFontsize_Change"),
         &Formatting::orlcmbFontsize_Change);
    wire(combos.orlcmbFontcolor, QLatin1StringView(" in MainForm, orlcmbFontcolor_Change"),
         &Formatting::orlcmbFontcolor_Change);
}

void Mainform::WireSpins()
{
    Rooms& rooms = *m_rooms;
    const auto wire = [this](PictureButton* spin, const QString& tip, QLatin1StringView literal, auto action) {
        spin->SetToolTip(0, tip);
        connect(spin, &PictureButton::MouseDown, this, [spin](int) {
            spin->SetVisible(0, false);
            spin->SetVisible(1, true);
        });
        connect(spin, &PictureButton::MouseUp, this, [spin, literal, action](int) {
            guard(literal, action);
            spin->SetVisible(0, true);
            spin->SetVisible(1, false);
        });
    };
    wire(rooms.controls.bottom.imgLeftSpin, QStringLiteral("Previous Month"),
         QLatin1StringView(" in MainForm, imgLeftSpin_MouseUp"), [&rooms] { rooms.navigation.subActionPrevious(); });
    wire(rooms.controls.bottom.imgRightSpin, QStringLiteral("Next Month"),
         QLatin1StringView(" in MainForm, imgRightSpin_MouseUp"), [&rooms] { rooms.navigation.subActionNext(); });
}

void Mainform::Form_Load(const Progress& progress, const std::function<void()>& stayInFront)
{
    Rooms& rooms = *m_rooms;
    const ErrorTail tail(QLatin1StringView(" in MainForm, Form_Load"));
    SetMousePointer(mousepointer::Hourglass);
    const QDate today = desktopclock::Now().date();
    g_iDay = static_cast<std::int16_t>(today.day());
    g_iMonth = static_cast<std::int16_t>(today.month());
    g_iYear = static_cast<std::int16_t>(today.year());
    subSetDaysInMonth(g_iYear);
    tail([&] { rooms.networkMode.subSetNetworkMode(false); });
    tail([&] { rooms.m_pLayout.ShowWindow(rooms.m_pCalendarView.StartsMinimized()); });
    tail([&] { Form_Resize(); });
    rooms.controls.bottom.panelBottom->SetCaption(MonthTitle());
    // No button invites the first key; a cell is entered by a click or by Tab.
    rooms.controls.client->setFocus();
    stayInFront();
    tail([&] { rooms.opening.subAutoload(); });
    tail([&] { rooms.navigation.subSetViewMenus(); });
    tail([&] { rooms.recentList.subLoadMRU(true); });
    tail([&] { rooms.formatting.subInitAllComboBox(); });
    DoEvents();
    progress(QStringLiteral("Loading Icons..."));
    SetMousePointer(mousepointer::Default);
}

void Mainform::Form_Resize()
{
    Rooms& rooms = *m_rooms;
    if (isMinimized() || !rooms.m_pLayout.ClientRectChanged()) return;
    rooms.m_pLayout.RefreshLayout(rooms.m_pToolbar, rooms.m_pStatusbar, rooms.m_pCalendarView);
}

bool Mainform::eventFilter(QObject* watched, QEvent* event)
{
    // The client area changes with the window, and when the menu bar takes another line.
    if (event->type() == QEvent::Resize && isVisible()) {
        guard(QLatin1StringView(" in MainForm, Form_Resize"), [&] { Form_Resize(); });
    }
    return QMainWindow::eventFilter(watched, event);
}

void Mainform::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // Minimize and restore bring no resize.
    if (event->type() == QEvent::WindowStateChange && isVisible()) {
        guard(QLatin1StringView(" in MainForm, Form_Resize"), [&] { Form_Resize(); });
    }
}

void Mainform::closeEvent(QCloseEvent* event)
{
    Form_QueryUnload(event->spontaneous() ? CloseBox : ClosedByCode);
    event->accept();
}

void Mainform::Form_QueryUnload(int UnloadMode)
{
    if (!m_ended) subExitProgram(UnloadMode);
}

void Mainform::SaveBeforeExit()
{
    const ErrorTail tail(QLatin1StringView(" in MainForm, subExitProgram"));
    QMTDB& notes = m_rooms->notes;
    bool changed = !notes.Unsaved().NotesOf(g_sNotesFile).isEmpty();
    for (int cell = 1; cell <= CellCount && !changed; ++cell) {
        tail([&] {
            const bool marked = !g_bDBShared && g_aiLockState[static_cast<std::size_t>(cell - 1)] == 1;
            changed = m_rooms->controls.cells.tbDay(cell).Modified() || marked;
        });
    }
    if (changed && !g_bExitSaved) {
        g_bExitSaved = true;
        SetMousePointer(mousepointer::Hourglass);
        tail([&] { notes.subUpdateQMTDatabase(); });
        SetMousePointer(mousepointer::Default);
    }
    // A full disk or a file that another program holds must not take notes with it in silence.
    while (!notes.Unsaved().IsEmpty()) {
        const int answer = MsgBox(QStringLiteral("These notes could not be saved:\n\n%1\n\nRetry, or lose them?")
                                      .arg(notes.Unsaved().Describe()),
                                  msgbox::RetryCancel + msgbox::Critical, messages::HelpWizard);
        if (answer != msgbox::Retry) return;
        tail([&] { notes.subUpdateQMTDatabase(); });
    }
}

void Mainform::ClosePlanner()
{
    if (g_sDBPath.isEmpty()) return;
    const ErrorTail tail(QLatin1StringView(" in MainForm, subExitProgram"));
    tail([] { g_rsQMT.Close(); });
    tail([] { g_rsRecurse.Close(); });
    tail([] { g_rsAlarm.Close(); });
    tail([] { g_dbPlanner.Close(); });
}

void Mainform::subExitProgram(int iUnloadMode)
{
    if (m_ended) return;
    const ErrorTail tail(QLatin1StringView(" in MainForm, subExitProgram"));
    if (iUnloadMode == SessionEnds) {
        setWindowState(Qt::WindowMinimized);
        setWindowState(Qt::WindowNoState);
    }
    // Where the window stood must be known before it is hidden.
    const auto place = m_rooms->m_pLayout.WindowPlace();
    hide();
    ExitForm exitForm;
    exitForm.show();
    exitForm.raise();
    DoEvents();
    if (iUnloadMode == ClosedByCode) return;
    SaveBeforeExit();
    ClosePlanner();
    CloseErrorLog();
    tail([&] { m_rooms->recentList.subLoadMRU(false); });
    tail([&] { m_rooms->m_pLayout.DestroyWindow(place); });
    m_ended = true;
    Q_EMIT Ended();
}
