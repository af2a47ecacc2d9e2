// The main window's commands on the desktop's wallpaper, and its renewal at the exit.
#pragma once

#include "wallpaper/calendarpicture.h"

class QDeadlineTimer;
class QWidget;

class WallpaperCommands
{
public:
    WallpaperCommands(Cells& cells, const BottomPanel& bottom, const CCalendarView& calendar, QWidget& lblDateDiff);

    void mnuSetWallpaper_Click();
    void mnuClearWallpaper_Click();
    void mnuUpdateWallpaper_Click(); // the desktop loads the picture again
    void mnuPrevWallpaper_Click();
    void mnuWallpaperOption_Click();

    // Makes the shown calendar the wallpaper; true if the desktop took it. Says so if it did not.
    bool fnSetWallpaper();
    // If the options want it. Takes no longer than two seconds for the desktop; a failure is told only to somebody who
    // is there to read it.
    void subWallpaperOnExit(bool isSomebodyThere);

private:
    // trouble: what to say beside the failure; empty if it was the desktop that refused
    bool SetWallpaper(const QDeadlineTimer& until, QString& trouble);
    static void TellFailure(const QString& trouble);

    QWidget& m_client;
    CalendarPicture m_picture;
    bool m_isSetting = false;
};
