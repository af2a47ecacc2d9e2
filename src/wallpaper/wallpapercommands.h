// The main window's wallpaper commands, and the renewal at the exit.
#pragma once

#include "wallpaper/calendarpicture.h"

class QDeadlineTimer;
class QWidget;

class WallpaperCommands
{
public:
    WallpaperCommands(Cells& cells, const BottomPanel& bottom, const CCalendarView& calendar, QWidget& lblDateDiff,
                      QWidget& card);

    void mnuSetWallpaper_Click();
    void mnuClearWallpaper_Click();
    void mnuUpdateWallpaper_Click(); // lets the desktop load the picture again
    void mnuPrevWallpaper_Click();
    void mnuWallpaperOption_Click();

    // Makes the shown calendar the wallpaper. False after a message about the failure.
    bool fnSetWallpaper();
    // Renews the wallpaper if the options say so, waiting at most two seconds for the desktop. A failure is shown only
    // if somebody is there to read it.
    void subWallpaperOnExit(bool isSomebodyThere);

private:
    // trouble is what the message adds; empty if the desktop refused.
    bool SetWallpaper(const QDeadlineTimer& until, QString& trouble);
    static void TellFailure(const QString& trouble);

    QWidget& m_client;
    CalendarPicture m_picture;
    bool m_isSetting = false;
};
