#include "calendar/cstatusbarview.h"

#include "appearance/panelstyle.h"
#include "hall/bottompanel.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/sspanel.h"

int CStatusbarView::Height() const
{
    return m_bottom.imgLeftSpin->height();
}

void CStatusbarView::ShowControl(std::int32_t left, std::int32_t, std::int32_t right, std::int32_t bottom)
{
    SSPanel& panel = *m_bottom.panelBottom;
    if (panel.window()->isMinimized()) return;
    panel.setGeometry(left, bottom - Height(), right - left, Height());
    panel.SetSides(m_bottom.imgLeftSpin->width());
    PlaceLeftSpin();
    PlaceRightSpin();
    StyleTitle(panel);
    panel.setVisible(true);
}

void CStatusbarView::PlaceLeftSpin()
{
    m_bottom.imgLeftSpin->move(0, 0);
}

void CStatusbarView::PlaceRightSpin()
{
    m_bottom.imgRightSpin->move(m_bottom.panelBottom->width() - m_bottom.imgRightSpin->width(), 0);
}
