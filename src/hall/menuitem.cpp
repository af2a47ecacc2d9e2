#include "hall/menuitem.h"

#include "platform/runtime/errortail.h"

#include <QAction>

void MenuItem::SetCaption(const QString& caption)
{
    m_caption = caption;
    QString shown = caption;
    m_action->setText(shown.replace(u'&', u"&&"_s));
}

void MenuItem::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    m_action->setEnabled(Enabled());
}

bool MenuItem::Visible() const
{
    return m_action->isVisible();
}

void MenuItem::SetVisible(bool visible)
{
    m_action->setVisible(visible);
}

void MenuItem::SetChecked(bool checked)
{
    m_action->setChecked(checked);
}

void MenuItem::OnClick(std::function<void()> click, QLatin1StringView literal)
{
    QObject::connect(m_action, &QAction::triggered, m_action, Guarded(literal, std::move(click)));
    m_click = true;
    m_action->setEnabled(m_enabled);
}
