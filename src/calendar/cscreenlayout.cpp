#include "calendar/cscreenlayout.h"

#include "calendar/csidebarview.h"
#include "calendar/cstatusbarview.h"
#include "calendar/ctoolbarview.h"
#include "platform/desktop/twips.h"
#include "platform/desktop/windowplace.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"

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
    // The sizes kept are those inside the window's frame, which is not known before the window is shown.
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
    // Where windows cannot know their place, the one stored elsewhere stays, with the new size.
    const int left = WindowsKnowTheirPlace() ? place->left : Dimension(settings::MainLeft, 0);
    const int top = WindowsKnowTheirPlace() ? place->top : Dimension(settings::MainTop, 0);
    Write(settings::MainLeft, TrimmedStr(ToTwips(left)));
    Write(settings::MainTop, TrimmedStr(ToTwips(top)));
    Write(settings::MainRight, TrimmedStr(ToTwips(left + place->right - place->left)));
    Write(settings::MainBottom, TrimmedStr(ToTwips(top + place->bottom - place->top)));
}

void CScreenLayout::GetClientRect(std::int32_t& left, std::int32_t& top, std::int32_t& right,
                                  std::int32_t& bottom) const
{
    left = top = 0;
    right = m_client.width();
    bottom = m_client.height();
}

bool CScreenLayout::ClientRectChanged() const
{
    Rectangle now;
    GetClientRect(now.left, now.top, now.right, now.bottom);
    return !(now == m_rcClient);
}

void CScreenLayout::RefreshLayout(CToolbarView& toolbar, CSidebarView& sidebar, CStatusbarView& statusbar,
                                  CCalendarView& calendar)
{
    if (m_bMoving) return;
    const ErrorTail tail(" in CScreenLayout, RefreshLayout"_L1);
    tail([&] { toolbar.ShowControl(); });
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    GetClientRect(left, top, right, bottom);
    // What a minimised window leaves out is placed when it comes back.
    m_rcClient = m_window.isMinimized() ? Rectangle{} : Rectangle{left, top, right, bottom};
    const bool atBottom = toolbar.IsVisible() && toolbar.GetAlignment() == CToolbarView::AlignBottom;
    const int above = toolbar.IsVisible() && !atBottom ? toolbar.Height() : 0;
    const int below = atBottom ? toolbar.Height() : 0;
    const int barHeight = statusbar.Height();
    tail([&] { sidebar.ShowControl(left, top + above, sidebar.Width(), bottom - below - 1); });
    if (sidebar.IsVisible()) left = sidebar.Width();
    // The bar under the status bar takes a line of its own; above the calendar it takes none.
    tail([&] { statusbar.ShowControl(left, bottom - below - barHeight, right, bottom - below - 1); });
    tail([&] { calendar.Show(left, top + above, right, bottom - barHeight - below); });
}
