#include "hall/foot.h"

#include "hall/bars.h"
#include "platform/controls/sspanel.h"
#include "state/modshow.h"

Foot::Foot(const BottomPanel& bottom) : m_panel(*bottom.panelBottom) {}

void Foot::ShowMonth()
{
    QString text = MonthTitle();
    if (!m_notKept.isEmpty()) text += u" - What you type cannot be kept aside: "_s + m_notKept;
    if (!m_notSaved.isEmpty()) text += u" - Notes not saved yet: "_s + m_notSaved;
    m_panel.SetCaption(text);
}

void Foot::Say(const QString& text)
{
    m_panel.SetCaption(text);
    m_panel.repaint();
}

void Foot::SayBeside(const QString& text)
{
    ShowMonth();
    Say(Said() + u" - "_s + text);
}

QString Foot::Said() const
{
    return m_panel.Caption();
}

void Foot::ShowConnection(bool isThere)
{
    if (isThere || !m_notSaved.isEmpty()) return ShowMonth();
    Say(u"There is no connection to the planner's server."_s);
}

void Foot::SetNotSaved(const QString& reasons)
{
    if (std::exchange(m_notSaved, reasons) != reasons) ShowMonth();
}

void Foot::SetNotKept(const QString& reason)
{
    m_notKept = reason;
    ShowMonth();
}
