// What the help window is asked for.
#pragma once

enum class HelpCommand
{
    Contents = 3,
    HowToUseHelp = 4,
    Search = 261
};
