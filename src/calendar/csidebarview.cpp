#include "calendar/csidebarview.h"

#include "hall/bars.h"
#include "hall/menus.h"
#include "platform/controls/picturestrip.h"
#include "platform/controls/tabstrip.h"
#include "platform/desktop/twips.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QPushButton>

CSidebarView::CSidebarView(const Sidebar& sidebar, Menus& menus)
    : m_sidebar(sidebar), m_menus(menus), m_bVisible(Read(settings::SidebarVisible) != 0)
{
    m_menus("mnuViewSBVisible"_L1).SetChecked(m_bVisible);
}

CSidebarView::~CSidebarView()
{
    WriteSetting();
}

void CSidebarView::WriteSetting() const
{
    Write(settings::SidebarVisible, m_bVisible ? -1 : 0);
}

void CSidebarView::PosTabPages()
{
    constexpr int Inset = 150 / TwipsPerPixel, Margin = 50 / TwipsPerPixel;
    const QRect client = m_sidebar.tabSidebar->ClientRect();
    for (QWidget* page : m_sidebar.fraSidebar)
        page->setGeometry(client);
    const int buttonHeight = m_sidebar.btnReloadIcons->sizeHint().height();
    const int labelWidth = client.width() - 2 * Inset;
    const int labelHeight = m_sidebar.lblPictures->heightForWidth(labelWidth);
    m_sidebar.lblPictures->setGeometry(Inset, Margin, labelWidth, labelHeight);
    const int top = labelHeight + 2 * Margin;
    m_sidebar.tbPictureBox->setGeometry(Inset, top, client.width() - Inset,
                                        qMax(0, client.height() - buttonHeight - Margin - top));
    m_sidebar.btnReloadIcons->setGeometry(0, client.height() - buttonHeight, client.width(), buttonHeight);
    TogglePages();
}

void CSidebarView::TogglePages()
{
    constexpr int Pictures = 1;
    const int front = m_sidebar.tabSidebar->SelectedIndex() == Pictures ? Pictures : 0;
    // A hidden page takes no Tab key.
    for (int page = 0; page < 2; ++page)
        m_sidebar.fraSidebar[static_cast<std::size_t>(page)]->setVisible(page == front);
    m_sidebar.fraSidebar[static_cast<std::size_t>(front)]->raise();
}

void CSidebarView::SetVisible()
{
    m_bVisible = !m_bVisible;
    WriteSetting();
    m_menus("mnuViewSBVisible"_L1).SetChecked(m_bVisible);
}

int CSidebarView::Width() const
{
    return m_sidebar.tabSidebar->width();
}

void CSidebarView::ShowControl(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
{
    const ErrorTail tail(" in CSidebarView, ShowControl"_L1);
    TabStrip& strip = *m_sidebar.tabSidebar;
    const bool shown = m_bVisible && !strip.window()->isMinimized();
    if (shown) {
        strip.setGeometry(left, top, right - left, bottom - top);
        tail([&] { PosTabPages(); });
    }
    strip.setVisible(shown);
    for (QWidget* page : m_sidebar.fraSidebar)
        page->setEnabled(shown);
}
