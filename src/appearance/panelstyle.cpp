#include "appearance/panelstyle.h"

#include "platform/controls/sspanel.h"
#include "shell/settings.h"

#include <QFont>

void ApplyStyle(SSPanel& panel, const PanelStyle& style)
{
    QFont font(style.fontName, style.size);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    panel.SetCaptionFont(font);
    panel.SetForeColor(style.color);
}
