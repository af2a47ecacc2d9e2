#include "shell/mainform.h"

#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/tray.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "shell/rooms.h"
#include "shell/splash.h"
#include "shell/wiring.h"
#include "state/calendarstate.h"
#include "state/moddate.h"
#include "state/modshow.h"
#include "state/plannerstate.h"

#include <QCloseEvent>

namespace {
constexpr int TraysPatience = 5000; // milliseconds; without its answer no alarm would ring
}

Mainform::Mainform() : m_rooms(std::make_unique<Rooms>(*this))
{
    setObjectName(u"Mainform"_s);
    setWindowTitle(u"Orrelin"_s);
    WireHandlers(*m_rooms);
    m_rooms->controls.menus("mnuExit"_L1)
        .OnClick([this] { subExitProgram(CloseBox); }, " in MainForm, mnuExit_Click"_L1);
    m_rooms->controls.client->installEventFilter(this);
    installEventFilter(this);
}

Mainform::~Mainform() = default;

void Mainform::Form_Load(const Progress& progress, const std::function<void()>& stayInFront,
                         const std::optional<HandOver>& back)
{
    Rooms& rooms = *m_rooms;
    const ErrorTail tail(" in MainForm, Form_Load"_L1);
    const Hourglass hourglass;
    GoToToday();
    subSetDaysInMonth(g_iYear);
    tail([&] { rooms.networkMode.subSetNetworkMode(false); });
    tail([&] { rooms.m_pLayout.ShowWindow(rooms.m_pCalendarView.StartsMinimized()); });
    // Also for a minimised window: the cells need their days before notes are read into them.
    tail([&] { rooms.m_pLayout.RefreshLayout(); });
    rooms.foot.ShowMonth();
    // No cell takes the first key: a cell is entered by a click or by Tab.
    rooms.controls.client->setFocus();
    stayInFront();
    if (back) rooms.alarmClock.Continue(back->minute);
    tail([&] { back ? rooms.opening.OpenFollowed(back->planner, back->isShared) : rooms.opening.subAutoload(); });
    tail([&] { rooms.navigation.subSetViewMenus(); });
    tail([&] { rooms.recentList.subLoadMRU(true); });
    tail([&] { rooms.formatting.subInitAllComboBox(); });
    if (!HasPlanner()) rooms.noPlanner.Follow(false);
    if (rooms.m_pSidebar.IsVisible()) rooms.controls.sidebar.tabSidebar->setFocus();
    DoEvents();
    progress(u"Loading Icons..."_s);
    rooms.controls.tmMidnightRefresh.SetEnabled(true);
    rooms.controls.tmAlarm.SetEnabled(true);
    QTimer::singleShot(0, this, Guarded(" in MainForm, Form_Load"_L1, [&rooms] { rooms.recovery.BeginOffering(); }));
}

bool Mainform::eventFilter(QObject* watched, QEvent* event)
{
    // The client area changes with the window and when the menu bar wraps. Minimise and restore send no resize event.
    const auto type = watched == this ? QEvent::WindowStateChange : QEvent::Resize;
    if (event->type() == type && isVisible() && !isMinimized())
        Guarded(" in MainForm, Form_Resize"_L1, [this] { m_rooms->m_pLayout.Form_Resize(); })();
    return QMainWindow::eventFilter(watched, event);
}

void Mainform::closeEvent(QCloseEvent* event)
{
    // On Wayland the toolkit itself closes the window when the desktop asks for it.
    const bool isCloseBox = event->spontaneous() || QGuiApplication::platformName().startsWith(u"wayland"_s);
    Guarded(" in MainForm, Form_QueryUnload"_L1, [&] {
        m_goesToTray = isCloseBox && Read(settings::RingInTray) != 0 && HasTray(TraysPatience);
        subExitProgram(isCloseBox ? CloseBox : ClosedByCode);
    })();
    event->accept();
}

// The person who comes back without a wish writes on in today's cell.
void Mainform::ComeBack(const QStringList& wanted)
{
    const auto day = wanted.isEmpty() ? GridDayOf(desktopclock::Now().date()) : DayOfKey(wanted.front());
    AnswerDesktop(day ? QStringList() : wanted);
    if (day && HasPlanner()) m_rooms->alarmCell.ShowDay(*day);
}

void Mainform::AnswerDesktop(const QStringList& uris)
{
    m_rooms->activation.Answer(uris);
}

void Mainform::subExitProgram(int iUnloadMode)
{
    if (m_ended) return;
    const ErrorTail tail(" in MainForm, subExitProgram"_L1);
    if (iUnloadMode == SessionEnds) {
        setWindowState(Qt::WindowMinimized);
        setWindowState(Qt::WindowNoState);
    }
    tail([&] { m_rooms->dayView.TakeTextAtExit(); });
    tail([&] { m_rooms->wallpaper.subWallpaperOnExit(iUnloadMode == CloseBox); });
    // A hidden window has no place, so it is asked first.
    const auto place = m_rooms->m_pLayout.WindowPlace();
    tail([&] { m_rooms->findWord.Unload(); });
    tail([&] { m_rooms->alarmLists.Unload(); });
    // Hiding moves the focus from a cell to the next one, which a locked day refuses.
    if (QWidget* const focused = focusWidget()) focused->clearFocus();
    hide();
    ExitForm exitForm;
    ShowAndPaint(exitForm); // before the save; the save does not wait for the desktop to show it
    if (iUnloadMode == ClosedByCode) return;
    m_rooms->exitSave.SaveBeforeExit(iUnloadMode == CloseBox);
    if (m_ended) return; // a signal ended it while a question about unsaved notes was open
    const HandOver handOver = HandOver::OfPlanner(m_rooms->alarmClock.LastMinute());
    m_rooms->opening.ClosePlanner();
    CloseErrorLog();
    tail([&] { m_rooms->recentList.subLoadMRU(false); });
    tail([&] { m_rooms->m_pLayout.DestroyWindow(place); });
    m_ended = true;
    const bool isEndedByPerson = iUnloadMode == CloseBox; // not by a signal meanwhile
    if (m_goesToTray && isEndedByPerson) m_next = handOver.ToClock();
    Q_EMIT Ended();
}
