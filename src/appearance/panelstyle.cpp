#include "appearance/panelstyle.h"

#include "platform/controls/fontdialog.h"
#include "platform/controls/sspanel.h"

#include <QFont>

void ApplyStyle(SSPanel& panel, const PanelStyle& style)
{
    QFont font(style.fontName, style.size);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    panel.SetCaptionFont(font);
    panel.SetForeColor(style.color);
}

PanelStyle StyleOf(const SSPanel& panel)
{
    const QFont font = panel.CaptionFont();
    return {font.family(), font.bold(), font.pointSize(), font.italic(), panel.ForeColor()};
}

std::optional<PanelStyle> ChooseStyle(QWidget* owner, const PanelStyle& style)
{
    FontChoice choice = {style.fontName, style.size, style.bold, style.italic, style.color};
    if (!ChooseFont(owner, choice)) return std::nullopt;
    return PanelStyle{choice.name, choice.bold, choice.size, choice.italic, choice.color};
}
