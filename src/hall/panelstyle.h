// Putting a style of the settings on a panel.
#pragma once

#include "settings/settings.h"

class SSPanel;

void ApplyStyle(SSPanel& panel, const PanelStyle& style); // clears a strikethrough of an earlier drawing
PanelStyle StyleOf(const SSPanel& panel);

// A heading's caption is also the name of the section that holds its style.
StyleDefaults HeadingDefaults(QStringView caption);
void StyleHeading(SSPanel& heading); // as the settings have it, 3D effect included
void StyleTitle(SSPanel& title);     // likewise, of the month at the foot
