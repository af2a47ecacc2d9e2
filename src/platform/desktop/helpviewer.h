// The program's one help window. What it shows lies in the help file; it knows nothing of what the help is about.
#pragma once

#include <QString>

class QWidget;

enum class HelpCommand
{
    Contents = 3,
    HowToUseHelp = 4,
    Search = 261
};

// Opens the window, or raises it if it is open. It is not modal and closes with the owner's window. False if the help
// file is missing, cannot be read or is damaged; nothing is shown then.
bool ShowHelp(QWidget* owner, const QString& file, HelpCommand command);
