#pragma once

#include "settings/settings.h"

class SSPanel;

void ApplyStyle(SSPanel& panel, const PanelStyle& style); // clears an earlier strikethrough
PanelStyle StyleOf(const SSPanel& panel);

// The caption is also the name of the section that holds the style.
StyleDefaults HeadingDefaults(QStringView caption);
void StyleHeading(SSPanel& heading); // applies the settings, 3D effect included
void StyleTitle(SSPanel& title);     // likewise, for the month at the foot
