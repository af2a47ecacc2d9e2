#include "alarms/alarmfiles.h"
#include "alarms/alarmlistform.h"
#include "alarms/alarmoptionsform.h"
#include "alarmtesting.h"
#include "printedpage.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QSlider>
#include <QTreeWidget>

// What a person may choose beyond the plain alarm clock. Today is 17 March 1999.
class AlarmOptionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    static QDateTime At(int day, int hour, int minute, int second = 0)
    {
        return {QDate(1999, 3, day), QTime(hour, minute, second)};
    }

    QStringList TickAt(const QDateTime& now, const QString& answer = {}) const
    {
        return RungAt(*m_program, now, answer);
    }
    AlarmListForm* List() const
    {
        for (auto* list : m_program->form->findChildren<AlarmListForm*>())
            if (list->isVisible()) return list;
        return nullptr;
    }
    // The rows of the open list, which the person closes then.
    QStringList Listed() const
    {
        QStringList rows;
        if (AlarmListForm* const list = List()) {
            const auto& tree = In<QTreeWidget>(*list, "lstAlarms");
            for (int row = 0; row < tree.topLevelItemCount(); ++row) {
                const QTreeWidgetItem& item = *tree.topLevelItem(row);
                rows += QStringList({item.text(0), item.text(1), item.text(2)}).join(u'|');
            }
            list->close();
        }
        return rows;
    }
    // The list may come to the front before the calendar.
    void OpenAt(const QDateTime& now) const
    {
        desktopclock::SetForTests(now);
        AnswerNextFileDialog(m_program->folders.Path(u"mine.mdb"_s));
        Program::AnswerOpenAs(false);
        m_program->Trigger("mnuOpen");
    }
    void Restart()
    {
        m_program->Exit();
        m_program->Start();
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"mine.mdb"_s);
    }
    void cleanup() { m_program.reset(); }

    void RingsAgain()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "dentist"), MakeAlarm("1999/3/17", "09:41", "tea")});
        QCOMPARE(TickAt(At(17, 9, 30, 50), u"10 minutes"_s), QStringList(u"dentist"_s));
        QCOMPARE(TickAt(At(17, 9, 40, 59)), QStringList());
        QCOMPARE(TickAt(At(17, 9, 41), u"1 hour"_s), QStringList({u"tea"_s, u"dentist again"_s}));
        QCOMPARE(StoredAlarms().size(), 2); // a shared planner's alarms are everybody's
        // It rings without its planner, and at the next start, however late.
        Restart();
        QVERIFY(!HasPlanner());
        QCOMPARE(TickAt(At(17, 12, 0), u"Tomorrow"_s), QStringList({u"tea again"_s, u"dentist again"_s}));
        QCOMPARE(TickAt(At(18, 11, 59, 59)), QStringList());
        // The program ends before an answer: it rings once more.
        const QString file = alarmfiles::PutOff();
        const QByteArray atTheEnd = Content(file);
        QCOMPARE(TickAt(At(18, 12, 0)).size(), 2);
        SetContent(file, atTheEnd);
        Restart();
        QCOMPARE(TickAt(At(18, 12, 5)).size(), 2);
        QCOMPARE(TickAt(At(19, 12, 5)), QStringList());
        Restart();
        QCOMPARE(TickAt(At(20, 12, 5)), QStringList());
        QCOMPARE(Content(file), QByteArray());
    }

    // An hour is an hour; tomorrow's time is that of the place.
    void RingsAgainForATraveller()
    {
        const Environment zone("TZ", "HOME0");
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "tea"), MakeAlarm("1999/3/17", "09:31", "dentist")});
        QCOMPARE(TickAt(At(17, 9, 30), u"1 hour"_s), QStringList(u"tea"_s));
        QCOMPARE(TickAt(At(17, 9, 31), u"Tomorrow"_s), QStringList(u"dentist"_s));
        const Environment west("TZ", "WEST6");
        QCOMPARE(TickAt(At(17, 4, 29, 59)), QStringList());
        QCOMPARE(TickAt(At(17, 4, 30)), QStringList(u"tea again"_s));
        QCOMPARE(TickAt(At(18, 9, 30, 59)), QStringList());
        Restart();
        QCOMPARE(TickAt(At(18, 9, 31)), QStringList(u"dentist again"_s));
    }

    // An answer that cannot be kept is told, and the alarm does not ring all day.
    void AFullDisk()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "dentist")});
        QVERIFY(QDir().mkpath(alarmfiles::PutOff()));
        SeenBox seen;
        desktopclock::SetForTests(At(17, 9, 30));
        OnNextModal<AlarmEventForm>([](AlarmEventForm& form) { Answer(form, u"5"_s); });
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Tick("tmAlarm");
        QVERIFY(seen.Text.startsWith(u"The alarm cannot be put off"_s));
        QCOMPARE(TickAt(At(17, 9, 36)), QStringList());
    }

    void StartsWithTheSession()
    {
        const Environment config("XDG_CONFIG_HOME", m_program->folders.Path(u"home"_s).toUtf8());
        const QString entry = m_program->folders.Path(u"home/autostart/org.orrelin.Orrelin.desktop"_s);
        const auto choose = [&](bool wasOn) {
            m_program->InWindow<AlarmOptionsForm>("mnuAlarmOptions", [&](AlarmOptionsForm& form) {
                QCOMPARE(In<QCheckBox>(form, "chkSession").isChecked(), wasOn);
                QVERIFY(!In<QCheckBox>(form, "chkTray").isEnabled()); // this screen has none
                In<QCheckBox>(form, "chkSession").click();
                QTest::keyClick(&form, Qt::Key_Return);
            });
        };
        choose(false);
        const QByteArray on = Content(entry);
        QVERIFY2(on.contains("\nExec=\"" + QCoreApplication::applicationFilePath().toUtf8() + "\""), on);
        QCOMPARE(QProcess::execute(u"desktop-file-validate"_s, {entry}), 0);
        choose(true);
        QVERIFY(!QFile::exists(entry));
        SetContent(entry, on + "Hidden=true\n"); // the desktop's own way
        choose(false);
        QCOMPARE(Content(entry), on);
    }

    // A minute that has rung in the tray does not ring here.
    void ComesBackFromTheTray()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "rang there"), MakeAlarm("1999/3/17", "09:31", "rings here")});
        m_program->Exit();
        m_program->Start(HandOver{u"09:30"_s, m_program->folders.Path(u"mine.mdb"_s), true, {}});
        QVERIFY(HasPlanner() && g_bDBShared);
        m_program->form->ComeBack({});
        QTRY_COMPARE(m_program->form->focusWidget(), &m_program->Box(m_program->CellOf(17)));
        QCOMPARE(TickAt(At(17, 9, 30)), QStringList());
        QCOMPARE(TickAt(At(17, 9, 31)), QStringList(u"rings here"_s));
        // A planner that is away for a moment is followed on.
        const QString planner = m_program->folders.Path(u"mine.mdb"_s);
        SetIni("ALARMS", "TRAY", "1");
        m_program->Exit();
        m_program->Start(HandOver{{}, planner, true, {}});
        m_program->Exit();
        QVERIFY(QFile::rename(planner, planner + u".moved"_s));
        AnswerNextBox(msgbox::Ok);
        m_program->Start(HandOver{{}, planner, true, {}});
        QVERIFY(!HasPlanner());
        QCOMPARE(HandOver::OfPlanner({}).planner, planner);
    }

    void AllOfAMinute()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "first"), MakeAlarm("1999/3/17", "09:31", "later"),
                   MakeAlarm("1999/3/17", "09:30", "second"), MakeAlarm("1999/3/18", "09:30", "tomorrow")});
        m_program->InWindow<AlarmOptionsForm>("mnuAlarmOptions", [](AlarmOptionsForm& form) {
            In<QCheckBox>(form, "chkAll").click();
            In<QSlider>(form, "sldVolume").setValue(40);
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QCOMPARE(Ini("ALARMS", "ALL"), u"1"_s);
        QCOMPARE(Ini("ALARMS", "VOLUME"), u"40"_s);
        QCOMPARE(TickAt(At(17, 9, 30)), QStringList({u"first"_s, u"second"_s}));
        QCOMPARE(TickAt(At(17, 9, 31)), QStringList(u"later"_s));
    }

    void ListsWhatWasMissed()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "rang"), MakeAlarm("1999/3/17", "09:35", "slept\nsecond line"),
                   MakeAlarm("1999/3/17", "9:36", "of old"), MakeAlarm("1999/3/17", "09:40", "awake"),
                   MakeAlarm("1999/3/17", "22:00", "closed"), MakeAlarm("1999/3/16", "09:00", "before"),
                   MakeAlarm("1999/3/18", "09:00", "now"), MakeAlarm("1999/3/18", "08:59", "just")});
        m_program->InWindow<AlarmOptionsForm>("mnuAlarmOptions", [](AlarmOptionsForm& form) {
            In<QCheckBox>(form, "chkMissed").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QCOMPARE(TickAt(At(17, 9, 30)), QStringList(u"rang"_s));
        QCOMPARE(Listed(), QStringList());
        QCOMPARE(TickAt(At(17, 9, 40)), QStringList(u"awake"_s)); // after a sleep
        QCOMPARE(Listed(), QStringList(u"Mar 17, 1999|9:35 AM|slept"_s));
        QCOMPARE(TickAt(At(17, 9, 29)), QStringList()); // the clock was set back
        QCOMPARE(TickAt(At(17, 9, 30)), QStringList());
        QCOMPARE(TickAt(At(17, 9, 31)), QStringList());
        Restart();
        QCOMPARE(Listed(), QStringList());
        OpenAt(At(18, 9, 0));
        QTRY_VERIFY(List());
        auto& tree = In<QTreeWidget>(*List(), "lstAlarms");
        QCOMPARE(tree.topLevelItemCount(), 3); // 9:35 again, since the clock was set back
        QCOMPARE(TickAt(At(18, 9, 0)), QStringList(u"now"_s));
        // A click goes to the day; what is put off leaves the list.
        g_iMonth = 1;
        tree.setCurrentItem(tree.topLevelItem(1));
        QTest::keyClick(&tree, Qt::Key_Return);
        QCOMPARE(g_iMonth, 3);
        In<QPushButton>(*List(), "btnAgain").menu()->actions().at(0)->trigger();
        Restart(); // with the list open
        OpenAt(At(18, 9, 0));
        QTRY_VERIFY(List());
        QCOMPARE(Listed(), QStringList({u"Mar 17, 1999|9:35 AM|slept"_s, u"Mar 18, 1999|8:59 AM|just"_s}));
        QCOMPARE(TickAt(At(18, 9, 5)), QStringList(u"closed again"_s));
        // One that rings at the end of the program was not heard, nor a list that nobody has closed.
        AddAlarms({MakeAlarm("1999/3/18", "09:10", "at the end"), MakeAlarm("1999/3/18", "09:08", "asleep")});
        desktopclock::SetForTests(At(18, 9, 10));
        OnNextModal<AlarmEventForm>([](AlarmEventForm& form) { form.hide(); });
        m_program->Tick("tmAlarm");
        QVERIFY(List());
        Restart();
        OpenAt(At(18, 9, 20));
        QTRY_VERIFY(List());
        QCOMPARE(Listed(), QStringList({u"Mar 18, 1999|9:08 AM|asleep"_s, u"Mar 18, 1999|9:10 AM|at the end"_s}));
        m_program->Trigger("mnuMissedAlarms");
        QCOMPARE(Listed().size(), 2);
        SetIni("ALARMS", "MISSED", "0"); // nothing is kept for a later choice
        OpenAt(At(18, 9, 30));
        QTRY_VERIFY(!QFile::exists(alarmfiles::Heard()));
    }

    void ListsWhatComes()
    {
        const auto coming = [&] {
            m_program->Trigger("mnuComingAlarms");
            return Listed();
        };
        QCOMPARE(m_program->Said("mnuComingAlarms").Text, u"No alarm rings in the coming week."_s);
        AddAlarms({MakeAlarm("1999/3/24", "09:29", "{\\rtf1 last {\\b one}}"),
                   MakeAlarm("1999/3/24", "09:30", "too far"), MakeAlarm("1999/3/17", "09:29", "over"),
                   MakeAlarm("1999/3/18", "21:05", "tea"), MakeAlarm("1999/3/17", "09:30", "dentist")});
        QCOMPARE(TickAt(At(17, 9, 30), u"30"_s), QStringList(u"dentist"_s));
        QCOMPARE(coming(), QStringList({u"Mar 17, 1999|10:00 AM|dentist"_s, u"Mar 18, 1999|9:05 PM|tea"_s,
                                        u"Mar 24, 1999|9:29 AM|last one"_s}));
        m_program->Trigger("mnuComingAlarms");
        const QString pdf = m_program->folders.Path(u"alarms.pdf"_s);
        PrintNextTo(pdf);
        In<QPushButton>(*List(), "btnPrintList").click();
        const QByteArray printed = OutputOf(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
        for (const char* piece : {"Coming Alarms", "Mar 18, 1999", "9:05 PM", "last one"})
            QVERIFY2(printed.contains(piece), printed);
    }
};

ORRELIN_TEST(AlarmOptionsTest)
#include "alarmoptionstest.moc"
