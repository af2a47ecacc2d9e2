#include "platform/controls/workwindow.h"

#include "platform/engine/longwork.h"
#include "platform/runtime/runtimeerror.h"
#include "testmain.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class WorkWindowTest : public QObject
{
    Q_OBJECT

    static QDialog* Shown() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

private Q_SLOTS:
    // The engine must not be used inside the work, so timers wait until it has ended.
    void LongWorkIsShownAndEndsByItsButtonWhileTimersWait()
    {
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { ++ticks; });
        {
            const WorkWindow window(u"Compact"_s, u"Nothing is changed."_s);
            timer.start(0);
            longwork::Reached(1, 4);
            QVERIFY(!Shown()); // not at once: most work is short
            const longwork::Part half(0.5, 1);
            bool isPressed = false, isEnded = false;
            for (const QDeadlineTimer limit(20000); !isEnded && !limit.hasExpired();) {
                try {
                    longwork::Reached(1, 2);
                } catch (const RunTimeError&) {
                    isEnded = true;
                }
                if (!Shown() || std::exchange(isPressed, true)) continue;
                QCOMPARE(Shown()->windowTitle(), u"Compact"_s);
                const auto* bar = Shown()->findChild<QProgressBar*>();
                QCOMPARE(bar->value(), bar->maximum() * 3 / 4);
                Shown()->findChild<QPushButton*>()->animateClick(); // as its key does
            }
            QVERIFY(isEnded);
            QVERIFY_THROWS_EXCEPTION(RunTimeError, longwork::Goes());
            QCOMPARE(ticks, 0);
        }
        QVERIFY(!Shown());
        longwork::Goes();
        QTRY_VERIFY(ticks > 0);
    }
};

ORRELIN_TEST(WorkWindowTest)
#include "workwindowtest.moc"
