#include "alarmtesting.h"
#include "privatebus.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QDBusConnection>
#include <QDBusMessage>

// What the desktop's services have heard, and what they answer.
class PlayedNotifications : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    using QObject::QObject;
    QString shown; // summary, body
    QStringList actions;
    uint replaced = 0, closed = 0;

public Q_SLOTS:
    uint Notify(const QString&, uint replaces, const QString&, const QString& summary, const QString& body,
                const QStringList& offered, const QVariantMap&, int)
    {
        shown = summary + u": "_s + body;
        actions = offered;
        replaced = replaces;
        return 7;
    }
    void CloseNotification(uint id) { closed = id; }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
};

class PlayedScreenSaver : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    using QObject::QObject;
    bool isLocked = false;

public Q_SLOTS:
    bool GetActive() const { return isLocked; }

Q_SIGNALS:
    void ActiveChanged(bool isActive);
};

// The message of the desktop beside the window of an alarm, over a real bus. Today is 17 March 1999, 9:30.
class AlarmNoticeTest : public QObject
{
    Q_OBJECT

    PlayedNotifications m_desktop;
    PlayedScreenSaver m_saver;
    std::unique_ptr<Program> m_program;

    // Lets the alarm ring while another window is in front, or its own.
    void Ring(bool isCovered, const std::function<void(AlarmEventForm& form)>& act)
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "Dr <Who> & Co\nfloor 2")});
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            QWidget other;
            if (isCovered) {
                QTRY_VERIFY(form.isActiveWindow()); // the calendar leads the keyboard to the form as long as it has it
                other.show();
                other.activateWindow();
                QTRY_VERIFY(!form.isActiveWindow());
            }
            act(form);
            form.close();
        });
        m_program->Tick("tmAlarm");
        QCOMPARE(WaitingAnswers(), 0);
    }

public:
    explicit AlarmNoticeTest(const QString& address)
    {
        QDBusConnection bus = QDBusConnection::connectToBus(address, u"played"_s);
        const auto all = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals;
        bus.registerObject(u"/org/freedesktop/Notifications"_s, &m_desktop, all);
        bus.registerObject(u"/org/freedesktop/ScreenSaver"_s, &m_saver, all);
        bus.registerService(u"org.freedesktop.Notifications"_s);
        bus.registerService(u"org.freedesktop.ScreenSaver"_s);
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"mine.mdb"_s);
        m_desktop.shown.clear();
        m_desktop.closed = 0;
        m_saver.isLocked = false;
    }
    void cleanup() { m_program.reset(); }

    void ShowsWhatIsWantedAlone()
    {
        const QString note = u"Alarm: Mar 17, 1999, 9:30 AM: Dr &lt;Who&gt; &amp; Co"_s, hidden = u"Alarm: An alarm"_s;
        for (const auto& [what, isOn, isCovered, isLocked, shown] : Rows<bool, bool, bool, QString>{
                 {"off", false, true, false, {}},
                 {"in front", true, false, false, {}},
                 {"in front of a locked screen", true, false, true, hidden},
                 {"covered", true, true, false, note},
                 {"locked screen", true, true, true, hidden},
             }) {
            const InRow row(this, what);
            SetIni("ALARMS", "NOTIFY", QString::number(isOn));
            m_saver.isLocked = isLocked;
            Ring(isCovered, [&, &shown = shown](AlarmEventForm&) {
                if (shown.isEmpty())
                    QTest::qWait(700);
                else
                    QTRY_COMPARE(m_desktop.shown, shown);
                if (shown != note) return;
                m_saver.isLocked = true; // the person goes away
                Q_EMIT m_saver.ActiveChanged(true);
                QTRY_COMPARE(m_desktop.shown, hidden);
                QCOMPARE(m_desktop.replaced, 7u);
            });
            QCOMPARE(m_desktop.shown, shown == note ? hidden : shown);
            QTRY_COMPARE(m_desktop.closed, shown.isEmpty() ? 0u : 7u);
        }
    }

    void AnswersTheAlarm()
    {
        for (const auto& [what, action, again] :
             Rows<QString, bool>{{"ok", u"ok"_s, false}, {"later", u"later"_s, true}}) {
            const InRow row(this, what);
            SetIni("ALARMS", "NOTIFY", "1");
            Ring(true, [&, &action = action, &again = again](AlarmEventForm& form) {
                QTRY_VERIFY(m_desktop.actions.contains(action));
                QTRY_VERIFY(!m_desktop.shown.isEmpty());
                Q_EMIT m_desktop.ActionInvoked(8, action); // another program's
                QTest::qWait(50);
                QVERIFY(form.isVisible());
                Q_EMIT m_desktop.ActionInvoked(7, action);
                QTRY_VERIFY(!form.isVisible());
                QTRY_COMPARE(m_desktop.closed, 7u);
                QCOMPARE(form.Again(), again ? QDateTime(QDate(1999, 3, 17), QTime(9, 40)) : QDateTime());
            });
        }
    }
};

static const Runnable runAlarmNoticeTest("AlarmNoticeTest", [](int argc, char** argv) {
    const PrivateBus bus;
    QApplication application(argc, argv);
    AlarmNoticeTest test(bus.Address());
    const int result = QTest::qExec(&test, argc, argv);
    QDBusConnection::disconnectFromBus(u"played"_s);
    return result;
});

#include "alarmnoticetest.moc"
