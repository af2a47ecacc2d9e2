#include "platform/desktop/folders.h"
#include "rows.h"
#include "settings/settings.h"
#include "state/plannerstate.h"
#include "wallpaper/calendarpicture.h"

#include <QDir>
#include <QImageReader>

namespace {
constexpr QSize Screen(3840, 2160);
constexpr Turns SomeTurns{15};

QString FileBeside(const QString& planner)
{
    return QFileInfo(planner).path() + u"/floor.bmp"_s;
}

bool IsWritten(const QString& file)
{
    return QImageReader(file).size() == Screen;
}

// The month's notes in bare boxes that fill the screen.
BareWindow& LargeWindow()
{
    static BareWindow* window = nullptr; // kept for the rest of the run
    if (window) return *window;
    window = new BareWindow{QPoint()};
    window->resize(Screen);
    for (int cell = 1; cell <= BoxCount; ++cell) {
        QTextEdit& box = *window->Boxes()[std::size_t(cell - 1)];
        Build({MakeNote(NoteNumber(ThisMonth(), cell))}, *box.document());
    }
    return *window;
}
} // namespace

void AddWallpaperRows(const TakeRow& add, PlannerWindow& ours, const QString& planner)
{
    // Leaves the real desktop alone: the picture goes to the root of the virtual screen.
    qunsetenv("XDG_CURRENT_DESKTOP");
    const auto picture = [] {
        return folders::ApplicationDirectory() + u'/' + QFileInfo(g_sDBTitle).completeBaseName() + u".bmp"_s;
    };
    const QString file = FileBeside(planner);
    add({"wallpaper, full screen of 4K",
         {[&ours] { ours.Trigger("mnuSetWallpaper"); },
          [&ours, picture] {
              ours.ShowMonth();
              Write(settings::WallpaperSize, calendarpicture::Stretched);
              QFile::remove(picture());
          },
          [picture] { return IsWritten(picture()); }},
         {[file] { LargeWindow().grab().save(file, "BMP"); }, [file] { LargeWindow(), QFile::remove(file); },
          [file] { return IsWritten(file); }},
         SomeTurns});
}
