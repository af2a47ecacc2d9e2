#include "calendar/cstatusbarview.h"

#include "hall/bars.h"
#include "hall/panelstyle.h"
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
    m_bottom.imgLeftSpin->move(0, 0);
    m_bottom.imgRightSpin->move(panel.width() - m_bottom.imgRightSpin->width(), 0);
    StyleTitle(panel);
    panel.setVisible(true);
}
