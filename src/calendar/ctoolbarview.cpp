#include "calendar/ctoolbarview.h"

#include "calendar/ccalendarview.h"
#include "hall/menus.h"
#include "platform/controls/toolbar.h"
#include "platform/profile/profile.h"
#include "settings/settings.h"

CToolbarView::CToolbarView(Toolbar& tbTop, Menus& menus)
    : m_tbTop(tbTop), m_menus(menus), m_bVisible(Read(settings::ToolbarVisible) != 0),
      m_iAlignment(Read(settings::ToolbarAlignment))
{
    UpdateMenus();
}

CToolbarView::~CToolbarView()
{
    WriteSettings();
}

void CToolbarView::WriteSettings() const
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    Write(settings::ToolbarVisible, m_bVisible ? -1 : 0);
    Write(settings::ToolbarAlignment, m_iAlignment);
}

void CToolbarView::SetVisible()
{
    m_bVisible = !m_bVisible;
    WriteSettings();
    UpdateMenus();
}

void CToolbarView::SetAlignment(std::int32_t alignment)
{
    m_iAlignment = alignment;
    WriteSettings();
    UpdateMenus();
}

void CToolbarView::DragDropReposition(const Rectangle& client, std::int32_t x, std::int32_t y)
{
    const auto within = [](int value, int low, int high) { return low < value && value < high; };
    if (!within(x, client.left, client.right)) return;
    if (within(y, client.bottom - Height(), client.bottom)) {
        SetAlignment(AlignBottom);
    } else if (within(y, client.top, client.top + Height())) {
        SetAlignment(AlignTop);
    }
}

int CToolbarView::Height() const
{
    return m_tbTop.sizeHint().height();
}

void CToolbarView::ShowControl()
{
    m_tbTop.setVisible(m_bVisible);
    if (!m_bVisible) return;
    const QRect client = m_tbTop.parentWidget()->rect();
    m_tbTop.SetRoom(client.width());
    m_tbTop.setGeometry(0, m_iAlignment == AlignBottom ? client.height() - Height() : 0, client.width(), Height());
}

void CToolbarView::UpdateMenus()
{
    m_menus("mnuViewTBVisible"_L1).SetChecked(m_bVisible);
    MenuItem& top = m_menus("mnuViewTBAlignTop"_L1);
    MenuItem& bottom = m_menus("mnuViewTBAlignBottom"_L1);
    top.SetEnabled(m_bVisible);
    bottom.SetEnabled(m_bVisible);
    top.SetChecked(m_iAlignment == AlignTop);
    bottom.SetChecked(m_iAlignment != AlignTop);
}
