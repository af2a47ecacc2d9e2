#include "hall/panelstyle.h"

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

StyleDefaults HeadingDefaults(QStringView caption)
{
    StyleDefaults defaults = settings::DayOfWeek;
    defaults.section = caption;
    return defaults;
}

void StyleHeading(SSPanel& heading)
{
    const QString caption = heading.Caption();
    ApplyStyle(heading, ReadStyle(HeadingDefaults(caption)));
    heading.SetFont3D(Read(settings::DayOfWeekFont3D));
}

void StyleTitle(SSPanel& title)
{
    ApplyStyle(title, ReadStyle(settings::DisplayMonth));
    title.SetFont3D(Read(settings::DisplayMonthFont3D));
}
