// Asks for a planner's path by the common dialog.
#pragma once

#include <QString>

class CommonDialog;

// acceptText is the word on the button, empty for "Open". The path may name a file that is not there. False: cancelled.
bool AskForPlanner(CommonDialog& dialog, const QString& title, const QString& acceptText = {});
