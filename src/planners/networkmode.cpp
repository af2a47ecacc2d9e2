#include "planners/networkmode.h"

#include "hall/bars.h"
#include "hall/menus.h"
#include "notes/heldday.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "platform/controls/toolbar.h"
#include "state/plannerstate.h"
#include "state/workgroupstate.h"

#include <QLabel>

void NetworkMode::subSetNetworkMode(bool bOn)
{
    m_heldDay.Close();
    m_menus("mnuNetworkOptions"_L1).SetEnabled(bOn);
    if (!bOn) m_controls.tmUnLock->SetEnabled(false);
    for (PictureButton* picture : {m_controls.picRefresh, m_controls.picLock})
        picture->ShowElement(bOn ? 0 : PictureButton::NoElement);
    m_controls.lblNetwork->setVisible(bOn);
    m_menus("mnuRefresh"_L1).SetEnabled(bOn);
    m_menus("mnuLockDay"_L1).SetEnabled(bOn);
    // In a workgroup's planner each day is saved by its own lock, so there is no general save.
    ToolbarButton& save = m_toolbar.Buttons(u"save"_s);
    if (!bOn) save.SetValue(0);
    save.setEnabled(!bOn);
    save.SetMixedState(bOn);
    m_menus("mnuSave"_L1).SetEnabled(!bOn);
    g_bDBShared = bOn;
}

void NetworkMode::ApplyTimers()
{
    if (!bGeneralUnlockEnable) m_controls.tmUnLock->SetEnabled(false);
    m_controls.tmAutoRefresh->SetEnabled(g_bAutoRefresh);
}
