// The keys of the desktop's wallpaper in WIN.INI, and of the previous wallpaper in PLANNER.INI.
#pragma once

#include "platform/desktop/wallpaper.h"

struct DesktopKeys
{
    QString wallpaper; // a path or "(None)"
    int tileWallPaper; // 1: repeated
    int style;         // a wallpaper::Fit, unless repeated

    static DesktopKeys Of(const DesktopPicture& picture);
    DesktopPicture Picture() const; // an unknown style counts as the nearest one
};

DesktopKeys ReadDesktopKeys();
void WriteDesktopKeys(const DesktopKeys& keys);
// Stores in WIN.INI what the desktop shows, if it tells, since another program may have set it.
void TakeOver(const std::optional<DesktopPicture>& shown);

DesktopKeys ReadPreviousKeys();
void WritePreviousKeys(const DesktopKeys& keys);
