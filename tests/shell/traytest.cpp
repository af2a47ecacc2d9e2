#include "alarms/alarmfiles.h"
#include "alarms/alarmspan.h"
#include "alarms/heardalarms.h"
#include "alarms/putoffalarms.h"
#include "files.h"
#include "planners.h"
#include "platform/desktop/desktopcalls.h"
#include "privatebus.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/moddate.h"
#include "testmain.h"
#include "virtualscreen.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <algorithm>
#include <span>

// The desktop's tray.
class PlayedTray : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER isThere)

public:
    using QObject::QObject;
    bool isThere = true;
    QStringList items; // their services

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& item) { items += item; }

Q_SIGNALS:
    void StatusNotifierHostRegistered();
};

// The windows of the screen, by the beginning of their titles.
class SeenWindows : public SeenRoot
{
public:
    std::vector<xcb_window_t> Titled(const QByteArray& title) const
    {
        std::vector<xcb_window_t> found;
        const auto cookie = xcb_query_tree(Connection(), Window());
        const auto tree = Owned(xcb_query_tree_reply(Connection(), cookie, nullptr));
        const std::span windows(xcb_query_tree_children(tree.get()), tree->children_len);
        std::ranges::copy_if(windows, std::back_inserter(found), [&](const xcb_window_t window) {
            return IsShown(window) && Title(window).startsWith(title);
        });
        return found;
    }
    // As its close button does.
    void Close(xcb_window_t window) const
    {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = Atom("WM_PROTOCOLS");
        event.data.data32[0] = Atom("WM_DELETE_WINDOW");
        xcb_send_event(Connection(), false, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
        xcb_flush(Connection());
    }

private:
    bool IsShown(xcb_window_t window) const
    {
        const auto cookie = xcb_get_window_attributes(Connection(), window);
        const auto seen = Owned(xcb_get_window_attributes_reply(Connection(), cookie, nullptr));
        return seen && seen->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    QByteArray Title(xcb_window_t window) const
    {
        const auto cookie =
            xcb_get_property(Connection(), 0, window, Atom("_NET_WM_NAME"), Atom("UTF8_STRING"), 0, 1000);
        const auto reply = Owned(xcb_get_property_reply(Connection(), cookie, nullptr));
        if (!reply) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }
};

// The program in the tray, as a process: on a screen and a bus of the test's own.
class TrayTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_homes;
    QString m_planner;
    PlayedTray m_tray;
    QDBusConnection m_bus;
    SeenWindows m_windows;

    // The person whose home this folder is.
    void BeSomebody(const QString& name) const
    {
        const QByteArray home = m_homes.filePath(name).toUtf8();
        for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            qputenv(folder, home);
        folders::SetRootForTests({}); // forgets the folders of the last one
        Write(settings::RingInTray, 1);
    }
    void Follow(const QString& planner) const
    {
        Write(settings::FollowedPlanner, planner);
        Write(settings::FollowedShared, 1);
    }
    static std::unique_ptr<QProcess> Started(const QStringList& words = {})
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(PROGRAM_FOLDER "/orrelin"), words);
        return process;
    }
    static bool IsClock(const QProcess& process)
    {
        return Content(u"/proc/%1/cmdline"_s.arg(process.processId())).contains("--clock");
    }
    bool IsInTray() const
    {
        return !m_tray.items.isEmpty() && m_bus.interface()->isServiceRegistered(m_tray.items.last());
    }
    bool Shows(const QByteArray& title) const { return !m_windows.Titled(title).empty(); }
    QByteArray TitleWith(const QString& planner) const { return (messages::WindowTitle + planner.toLower()).toUtf8(); }
    void Close(const QByteArray& title) const { m_windows.Close(m_windows.Titled(title).at(0)); }
    static void EndsByItself(const QProcess& process)
    {
        QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, LongestWait);
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }
    // SIGTERM ends it, as the end of the session does.
    static void End(QProcess& process)
    {
        process.terminate();
        EndsByItself(process);
    }
    static void AskForTheCalendar() { EndsByItself(*Started()); }
    // Not so late that the minute could be over while the test looks.
    static QDateTime EarlyInAMinute()
    {
        constexpr int Late = 25;
        while (QTime::currentTime().second() > Late)
            QTest::qWait(500);
        return QDateTime::currentDateTime();
    }
    static Alarm AlarmAt(const QDateTime& moment)
    {
        const QDate day = moment.date();
        return {KeyOf({day.year(), day.month(), day.day()}), moment.toString(u"hh:mm"_s), "tea", {}, true};
    }
    void Add(const Alarm& alarm) const
    {
        Database planner = DBEngine::OpenDatabase(m_planner);
        Recordset alarms = schema::OpenAlarms(planner);
        subAddAlarmRecord(alarms, alarm);
    }

    static constexpr int LongestWait = 20000;
    static constexpr int AMoment = 1000; // long enough for what must not happen
    const QByteArray m_calendar = "Orrelin for Windows", m_alarm = "Alarm Event", m_missed = "Missed Alarms";

public:
    explicit TrayTest(const QString& address) : m_bus(QDBusConnection::connectToBus(address, u"desktop"_s))
    {
        m_bus.registerObject(u"/StatusNotifierWatcher"_s, &m_tray,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties |
                                 QDBusConnection::ExportAllSignals);
        m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
    }

private Q_SLOTS:
    void init()
    {
        static int number = 0;
        m_planner = m_homes.filePath(u"tray%1.mdb"_s.arg(++number));
        MakePlanner(m_planner).Close();
        BeSomebody(u"ann%1"_s.arg(number));
        m_tray.items.clear();
        m_tray.isThere = true;
    }

    // Each minute rings once, wherever.
    void TheWindowClosesToTheTrayAndComesBack()
    {
        Write(settings::LoadCondition, 1);
        Write(settings::LoadFilePath, m_planner);
        const QDateTime now = EarlyInAMinute();
        Add(AlarmAt(now));
        Add(AlarmAt(now.addSecs(60)));
        const auto program = Started();
        QTRY_VERIFY_WITH_TIMEOUT(Shows(m_alarm), LongestWait);
        Close(m_alarm);
        QTRY_VERIFY(!Shows(m_alarm));
        Write(settings::LoadCondition, 0);
        Close(m_calendar);
        QTRY_VERIFY_WITH_TIMEOUT(IsInTray(), LongestWait);
        QVERIFY(IsClock(*program));
        QTest::qWait(AMoment);
        QVERIFY(!Shows(m_alarm));
        DBEngine::OpenDatabase(m_planner, true).Close();
        QTRY_VERIFY_WITH_TIMEOUT(Shows(m_alarm), 60000 + LongestWait);
        AskForTheCalendar(); // comes after the answer
        QTest::qWait(AMoment);
        QVERIFY(Shows(m_alarm) && !Shows(m_calendar));
        Close(m_alarm);
        QTRY_VERIFY_WITH_TIMEOUT(Shows(TitleWith(m_planner)), LongestWait);
        QVERIFY(!IsClock(*program) && !IsInTray());
        const auto clock = Started({u"--clock"_s, {}, m_planner, u"1"_s}); // as a desktop may start it beside
        EndsByItself(*clock);
        QVERIFY_EXCEPTION_THROWN(DBEngine::OpenDatabase(m_planner), RunTimeError); // it is open there
        QVERIFY(Content(u"/proc/%1/cmdline"_s.arg(program->processId()))
                    .contains(now.addSecs(60).toString(u"hh:mm"_s).toUtf8()));
        Close(m_calendar);
        QTRY_VERIFY_WITH_TIMEOUT(IsInTray(), LongestWait);
        const auto doubleClick = Started();
        AskForTheCalendar();
        EndsByItself(*doubleClick);
        QTRY_VERIFY_WITH_TIMEOUT(Shows(m_calendar), LongestWait);
        QCOMPARE(m_windows.Titled(m_calendar).size(), 1u);
        QCOMPARE(Read(settings::FollowedPlanner), m_planner);
        m_tray.isThere = false;
        Close(m_calendar);
        EndsByItself(*program);
    }

    void ATrayThatComesLateAndAWindowBesideIt()
    {
        m_tray.isThere = false;
        Follow(m_planner);
        const auto clock = Started({u"--clock"_s});
        QTRY_VERIFY_WITH_TIMEOUT(m_bus.interface()->isServiceRegistered(DesktopCalls::Name()), LongestWait);
        QTest::qWait(AMoment);
        QVERIFY(!IsInTray());
        m_tray.isThere = true;
        Q_EMIT m_tray.StatusNotifierHostRegistered();
        QTRY_VERIFY_WITH_TIMEOUT(IsInTray(), LongestWait);
        QVERIFY(IsClock(*clock));
        const auto window = Started({u"--show"_s, {}, m_planner, u"1"_s});
        EndsByItself(*clock);
        QTRY_VERIFY_WITH_TIMEOUT(Shows(TitleWith(m_planner)), LongestWait);
        End(*window);
    }

    // Of two clocks one rings. What nobody has answered rings once more. Each follows its own planner.
    void KilledWhileItRings()
    {
        const QDateTime now = QDateTime::currentDateTime();
        QVERIFY(PutOffAlarms(alarmfiles::PutOff()).Replace({}, PutOffAlarm{AlarmAt(now), now}));
        Follow(m_planner);
        const auto first = Started({u"--clock"_s});
        QTRY_VERIFY_WITH_TIMEOUT(Shows(m_alarm), LongestWait);
        Follow(m_homes.filePath(u"other.mdb"_s));
        const auto second = Started({u"--clock"_s});
        QTRY_COMPARE_WITH_TIMEOUT(m_tray.items.size(), 2, LongestWait);
        QTest::qWait(AMoment);
        QCOMPARE(m_windows.Titled(m_alarm).size(), 1u);
        first->kill();
        QVERIFY(first->waitForFinished());
        const auto third = Started({u"--clock"_s, {}, m_planner, u"1"_s});
        QTRY_COMPARE_WITH_TIMEOUT(m_tray.items.size(), 3, LongestWait);
        QTRY_VERIFY_WITH_TIMEOUT(Shows(m_alarm), LongestWait);
        QCOMPARE(m_windows.Titled(m_alarm).size(), 1u);
        const auto again = Started({u"--clock"_s, {}, m_planner, u"1"_s}); // the same planner
        EndsByItself(*again);
        Close(m_alarm);
        QTRY_COMPARE(Content(alarmfiles::PutOff()), QByteArray());
        QDBusMessage click = QDBusMessage::createMethodCall(m_tray.items.last(), u"/StatusNotifierItem"_s,
                                                            u"org.kde.StatusNotifierItem"_s, u"Activate"_s);
        click.setArguments({0, 0});
        m_bus.asyncCall(click);
        QTRY_VERIFY_WITH_TIMEOUT(Shows(TitleWith(m_planner)), LongestWait);
        QVERIFY(IsClock(*second) && !Shows(m_alarm));
        End(*second);
        End(*third);
    }

    void TwoPeopleHearOfOnePlanner()
    {
        const QDateTime now = QDateTime::currentDateTime();
        Add(AlarmAt(now.addSecs(-60 * 60)));
        for (const auto& name : {u"bob"_s, u"cid"_s}) {
            BeSomebody(name);
            Follow(m_planner);
            Write(settings::ListMissed, 1);
            HeardAlarms(alarmfiles::Heard()).SetUntil(m_planner, WallMinute(now.addDays(-1)));
            for (const bool isSeen : {false, true}) {
                const auto clock = Started({u"--clock"_s});
                QTRY_VERIFY_WITH_TIMEOUT(Shows(m_missed), LongestWait);
                if (isSeen) Close(m_missed);
                QTRY_VERIFY(Shows(m_missed) != isSeen);
                End(*clock);
            }
            const auto clock = Started({u"--clock"_s});
            QTRY_VERIFY_WITH_TIMEOUT(IsInTray(), LongestWait);
            QTest::qWait(AMoment);
            QVERIFY(!Shows(m_missed));
            End(*clock);
        }
    }
};

static const Runnable runTrayTest("TrayTest", [](int argc, char** argv) {
    const VirtualScreen screen(QSize(1000, 800));
    const PrivateBus bus;
    QCoreApplication application(argc, argv);
    TrayTest test(bus.Address());
    const int result = QTest::qExec(&test, argc, argv);
    QDBusConnection::disconnectFromBus(u"desktop"_s);
    return result;
});

#include "traytest.moc"
