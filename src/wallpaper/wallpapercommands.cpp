#include "wallpaper/wallpapercommands.h"

#include "hall/cells.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/wallpaper.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/plannerstate.h"
#include "wallpaper/desktopkeys.h"
#include "wallpaper/wallpaperform.h"

#include <QDeadlineTimer>
#include <QScopedValueRollback>

namespace {
constexpr int PersonsPatience = 60000; // milliseconds, since a desktop may ask for permission
constexpr int ExitsPatience = 2000;

bool ShowOnDesktop(const QString& wallpaper, const QDeadlineTimer& until)
{
    constexpr int SetDeskWallpaper = 20, UpdateAndTellAll = 3;
    const DesktopPicture picture = {wallpaper, ReadDesktopKeys().Picture().Fit};
    return SystemParametersInfoA(SetDeskWallpaper, 0, picture, UpdateAndTellAll, until);
}

QString PicturePath()
{
    constexpr int ExtensionSize = 4;
    const QString name =
        g_sDBTitle.isEmpty() ? u"planner"_s : g_sDBTitle.chopped(qMin<qsizetype>(ExtensionSize, g_sDBTitle.size()));
    return folders::ApplicationDirectory() + u'/' + name.toLower() + u".bmp"_s;
}

void Tell(const QString& text, const QString& title = messages::HelpWizard)
{
    MsgBox(text, msgbox::Information, title);
}
} // namespace

WallpaperCommands::WallpaperCommands(Cells& cells, const BottomPanel& bottom, const CCalendarView& calendar,
                                     QWidget& lblDateDiff, QWidget& card)
    : m_client(*cells.Client()), m_picture(cells, bottom, calendar, lblDateDiff, card)
{
}

bool WallpaperCommands::SetWallpaper(const QDeadlineTimer& until, QString& trouble)
{
    // While a desktop asks, a signal may end the program; its exit must not start a second picture.
    if (m_isSetting) return false;
    const QScopedValueRollback setting(m_isSetting, true);
    const Hourglass hourglass;
    bool isSet = false;
    ErrorTail{" in MainForm, fnSetWallpaper"_L1}([&] {
        const QImage image = m_picture.Draw(Read(settings::WallpaperSize));
        TakeOver(PresentWallpaper(until));
        WritePreviousKeys(ReadDesktopKeys());
        const QString path = PicturePath();
        trouble = u"The picture could not be written to %1."_s.arg(path);
        SaveBitmap(image, path);
        trouble.clear();
        WriteDesktopKeys(DesktopKeys::Of({path}));
        isSet = ShowOnDesktop(path, until);
    });
    return isSet;
}

bool WallpaperCommands::fnSetWallpaper()
{
    QString trouble;
    const bool isSet = SetWallpaper(QDeadlineTimer(PersonsPatience), trouble);
    if (!isSet) TellFailure(trouble);
    return isSet;
}

void WallpaperCommands::TellFailure(const QString& trouble)
{
    MsgBox(u"Wallpaper setting not successful! Make sure your video resolution is in 16 or 256 colors"_s, 0, QString(),
           trouble);
}

void WallpaperCommands::mnuSetWallpaper_Click()
{
    fnSetWallpaper();
}

void WallpaperCommands::mnuClearWallpaper_Click()
{
    const DesktopKeys cleared = DesktopKeys::Of({wallpaper::None});
    WriteDesktopKeys(cleared);
    if (!ShowOnDesktop(cleared.wallpaper, QDeadlineTimer(PersonsPatience)))
        Tell(u"Wallpaper Clearing Not Successful!"_s);
}

void WallpaperCommands::mnuUpdateWallpaper_Click()
{
    const QDeadlineTimer until(PersonsPatience);
    TakeOver(PresentWallpaper(until, wallpaper::Counts::IfKept));
    const bool isLoaded = ShowOnDesktop(ReadDesktopKeys().wallpaper, until);
    Tell(isLoaded ? u"Successfully Updated Wallpaper!"_s : u"Unable To Update Wallpaper!"_s);
}

void WallpaperCommands::mnuPrevWallpaper_Click()
{
    const Hourglass hourglass;
    const DesktopKeys previous = ReadPreviousKeys();
    WriteDesktopKeys(previous);
    if (ShowOnDesktop(previous.wallpaper, QDeadlineTimer(PersonsPatience)))
        Tell(u"Restored to previous wallpaper!"_s);
    else
        Tell(u"Unable to restore previous wallpaper!"_s, u"Orrelin"_s);
}

void WallpaperCommands::mnuWallpaperOption_Click()
{
    WallpaperForm(m_client.window()).exec();
}

void WallpaperCommands::subWallpaperOnExit(bool isSomebodyThere)
{
    if (Read(settings::WallpaperAutoupdate) != 1) return;
    QWidget& window = *m_client.window();
    if (window.isMinimized()) window.setWindowState(Qt::WindowNoState);
    QString trouble;
    if (!SetWallpaper(QDeadlineTimer(ExitsPatience), trouble) && isSomebodyThere) TellFailure(trouble);
}
