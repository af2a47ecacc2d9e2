// Putting a style of the settings on a panel.
#pragma once

#include "shell/settings.h"

#include <optional>

class QWidget;
class SSPanel;

void ApplyStyle(SSPanel& panel, const PanelStyle& style); // clears a strikethrough of an earlier drawing
PanelStyle StyleOf(const SSPanel& panel);

// The font dialog, beginning with the given style; empty if it was cancelled.
std::optional<PanelStyle> ChooseStyle(QWidget* owner, const PanelStyle& style);
