// Putting a style of the settings on a panel.
#pragma once

class SSPanel;
struct PanelStyle;

void ApplyStyle(SSPanel& panel, const PanelStyle& style); // clears a strikethrough of an earlier drawing
