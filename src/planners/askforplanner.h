#pragma once

#include <QString>

class CommonDialog;

// Asks for a planner's path with the common dialog. acceptText is the button's text, empty for "Open". The file need
// not exist. False: cancelled.
bool AskForPlanner(CommonDialog& dialog, const QString& title, const QString& acceptText = {});
