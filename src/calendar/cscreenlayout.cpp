#include "calendar/cscreenlayout.h"

#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "calendar/redraw.h"
#include "notes/turn.h"
#include "platform/desktop/twips.h"
#include "platform/desktop/windowplace.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {
constexpr QSize Smallest(480, 360);

// A stored dimension in pixels, or the default where the key is missing.
int Dimension(const TextSetting& setting, int defaultPixels)
{
    const QString stored = Read(setting);
    if (stored.isEmpty()) return defaultPixels;
    constexpr double Bound = 1e6;
    return static_cast<int>(qBound(-Bound, Val(stored) / TwipsPerPixel, Bound));
}
} // namespace

void CScreenLayout::RestoreRectangle()
{
    constexpr int Inset = 30 / TwipsPerPixel;
    // The stored sizes exclude the window's frame, which is unknown before the window is shown.
    constexpr int FrameSides = 8, FrameHeight = 40;
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    const int left = Dimension(settings::MainLeft, area.left() + Inset);
    const int top = Dimension(settings::MainTop, area.top() + Inset);
    const int right = Dimension(settings::MainRight, area.left() + area.width() - Inset - FrameSides);
    const int bottom = Dimension(settings::MainBottom, area.top() + area.height() - Inset - FrameHeight);
    const QRect window = ReachablePlace(QRect(left, top, right - left, bottom - top), Smallest);
    m_window.resize(window.size());
    if (WindowsKnowTheirPlace()) m_window.move(window.topLeft());
}

void CScreenLayout::ShowWindow(bool minimized)
{
    m_bMoving = true;
    m_window.setMinimumSize(Smallest);
    RestoreRectangle();
    if (minimized) {
        m_window.showMinimized();
    } else {
        m_window.show();
    }
    m_bMoving = false;
}

std::optional<Rectangle> CScreenLayout::WindowPlace() const
{
    if (m_window.isMinimized()) return std::nullopt;
    const QPoint at = m_window.pos();
    return Rectangle{at.x(), at.y(), at.x() + m_window.width(), at.y() + m_window.height()};
}

void CScreenLayout::DestroyWindow(const std::optional<Rectangle>& place)
{
    if (!place) return;
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    // Where windows cannot know their position, the stored one stays and only the size changes.
    const int left = WindowsKnowTheirPlace() ? place->left : Dimension(settings::MainLeft, 0);
    const int top = WindowsKnowTheirPlace() ? place->top : Dimension(settings::MainTop, 0);
    Write(settings::MainLeft, TrimmedStr(ToTwips(left)));
    Write(settings::MainTop, TrimmedStr(ToTwips(top)));
    Write(settings::MainRight, TrimmedStr(ToTwips(left + place->right - place->left)));
    Write(settings::MainBottom, TrimmedStr(ToTwips(top + place->bottom - place->top)));
}

Rectangle CScreenLayout::GetClientRect() const
{
    return {0, 0, m_client.width(), m_client.height()};
}

void CScreenLayout::RefreshLayout()
{
    if (m_bMoving) return;
    const ErrorTail tail(" in CScreenLayout, RefreshLayout"_L1);
    tail([&] { m_toolbar.ShowControl(); });
    const Rectangle client = GetClientRect();
    // A minimised window gets an empty rectangle, so that it is laid out when it is restored.
    m_rcClient = m_window.isMinimized() ? Rectangle{} : client;
    const bool atBottom = m_toolbar.IsVisible() && m_toolbar.GetAlignment() == CToolbarView::AlignBottom;
    const int above = m_toolbar.IsVisible() && !atBottom ? m_toolbar.Height() : 0;
    const int bottom = client.bottom - (atBottom ? m_toolbar.Height() : 0);
    const int barHeight = m_statusbar.Height();
    tail([&] { m_sidebar.ShowControl(0, above, m_sidebar.Width(), bottom - 1); });
    const int left = m_sidebar.IsVisible() ? m_sidebar.Width() : 0;
    // One pixel parts the status bar from a toolbar below it.
    tail([&] { m_statusbar.ShowControl(left, bottom - barHeight, client.right, bottom - 1); });
    tail([&] { m_calendar.Show(left, above, client.right, bottom - barHeight); });
}

void CScreenLayout::LayOutAgain()
{
    // A layout redraws the week of the selected day. If another week was shown, its notes must be saved and read again.
    const bool rowChanges = HasPlanner() && m_calendar.GetViewMode() == ViewMode::Week && m_redraw.ShowsOtherWeek();
    const std::int16_t current = g_iCurrentPanel;
    if (rowChanges) {
        m_turn(" in MainForm, Form_Resize"_L1, [&] { RefreshLayout(); });
    } else {
        RefreshLayout();
    }
    // A day that this user has locked stays current.
    if (g_bDBShared && MarkedCell() != 0) g_iCurrentPanel = current;
}

void CScreenLayout::Form_Resize()
{
    if (GetClientRect() != m_rcClient) LayOutAgain();
}

void CScreenLayout::Form_DragDrop(const QPoint& dropped)
{
    m_toolbar.DragDropReposition(GetClientRect(), dropped.x(), dropped.y());
    LayOutAgain();
}

void CScreenLayout::mnuViewTBVisible_Click()
{
    m_toolbar.SetVisible();
    LayOutAgain();
}

void CScreenLayout::mnuViewTBAlignTop_Click()
{
    m_toolbar.SetAlignment(CToolbarView::AlignTop);
    LayOutAgain();
}

void CScreenLayout::mnuViewTBAlignBottom_Click()
{
    m_toolbar.SetAlignment(CToolbarView::AlignBottom);
    LayOutAgain();
}

void CScreenLayout::mnuViewSBVisible_Click()
{
    m_sidebar.SetVisible();
    LayOutAgain();
}
