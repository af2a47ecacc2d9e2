#include "platform/desktop/windowplace.h"

#include "files.h"
#include "testmain.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

// Two screens: the first at the left, the second higher up at its right.
class WindowPlaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AWindowStaysWhereItsTitleCanBeReached_data()
    {
        QTest::addColumn<QRect>("stored");
        QTest::addColumn<QRect>("place");
        const auto row = [](const char* name, const QRect& stored, const QRect& place) {
            QTest::newRow(name) << stored << place;
        };
        const QRect onSecond(900, -100, 300, 200), across(700, 0, 600, 400), corner(760, 560, 300, 200);
        row("second screen", onSecond, onSecond);
        row("across both", across, across);
        row("its title's corner", corner, corner);
        row("a screen that is gone", {2000, 100, 300, 200}, {250, 200, 300, 200});
        row("beside the second, below it", {1000, 500, 300, 200}, {250, 200, 300, 200});
        row("title above the first", {100, -90, 300, 200}, {250, 200, 300, 200});
        row("larger than one screen", {2000, 0, 1500, 700}, {0, 0, 800, 600});
        row("larger than both", {0, 0, 9000, 9000}, {0, 0, 1600, 800});
        row("too small", {100, 100, 0, -5}, {100, 100, 200, 100});
    }

    void AWindowStaysWhereItsTitleCanBeReached()
    {
        QFETCH(QRect, stored);
        QTEST(ReachablePlace(stored, {200, 100}), "place");
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
