#include "platform/desktop/windowplace.h"

#include "files.h"
#include "testmain.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

// Two screens: the second is to the right of the first and higher up.
class WindowPlaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AWindowStaysWhereItsTitleCanBeReached()
    {
        const QRect onSecond(900, -100, 300, 200), across(700, 0, 600, 400), corner(760, 560, 300, 200);
        const std::tuple<const char*, QRect, QRect> rows[] = {
            {"second screen", onSecond, onSecond},
            {"across both", across, across},
            {"its title's corner", corner, corner},
            {"a screen that is gone", {2000, 100, 300, 200}, {250, 200, 300, 200}},
            {"beside the second, below it", {1000, 500, 300, 200}, {250, 200, 300, 200}},
            {"title above the first", {100, -90, 300, 200}, {250, 200, 300, 200}},
            {"larger than one screen", {2000, 0, 1500, 700}, {0, 0, 800, 600}},
            {"larger than both", {0, 0, 9000, 9000}, {0, 0, 1600, 800}},
            {"too small", {100, 100, 0, -5}, {100, 100, 200, 100}},
        };
        for (const auto& [name, stored, place] : rows) {
            const InRow inRow(this, name);
            QCOMPARE(ReachablePlace(stored, {200, 100}), place);
        }
    }
};

static const Runnable runWindowPlaceTest("WindowPlaceTest", [](int argc, char** argv) {
    const QTemporaryDir folder;
    const QString screens = folder.filePath(u"screens.json"_s);
    const QByteArray first = R"({"name": "first", "x": 0, "y": 0, "width": 800, "height": 600})";
    const QByteArray second = R"({"name": "second", "x": 800, "y": -200, "width": 800, "height": 600})";
    SetContent(screens, R"({"screens": [)" + first + ',' + second + "]}");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screens));
    return RunTest<WindowPlaceTest, QGuiApplication>(argc, argv);
});

#include "windowplacetest.moc"
