// The help window. It shows the help file and knows nothing of its content.
#pragma once

#include <QString>

class QWidget;

enum class HelpCommand
{
    Contents = 3,
    HowToUseHelp = 4,
    Search = 261
};

// Opens the window or raises it. It is not modal and closes with the owner's window. False if the file is missing,
// unreadable or damaged.
bool ShowHelp(QWidget* owner, const QString& file, HelpCommand command);
