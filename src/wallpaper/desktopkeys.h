// The desktop's picture as WIN.INI has it, and the one before the last as PLANNER.INI has it.
#pragma once

#include "platform/desktop/wallpaper.h"

struct DesktopKeys
{
    QString wallpaper; // a path or "(None)"
    int tileWallPaper; // 1: repeated
    int style;         // a wallpaper::Fit, for what is not repeated

    static DesktopKeys Of(const DesktopPicture& picture);
    DesktopPicture Picture() const; // a style that there is not counts as the nearest one
};

DesktopKeys ReadDesktopKeys();
void WriteDesktopKeys(const DesktopKeys& keys);
// What another program has set since counts, where the desktop tells it: WIN.INI takes it over.
void TakeOver(const std::optional<DesktopPicture>& shown);

DesktopKeys ReadPreviousKeys();
void WritePreviousKeys(const DesktopKeys& keys);
