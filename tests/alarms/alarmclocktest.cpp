#include "alarms/alarmfiles.h"
#include "alarmtesting.h"
#include "recording.h"
#include "recurrence/recurform.h"
#include "testmain.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QLabel>
#include <QScrollBar>

// The alarm clock over a day, and the window that it opens. The program starts on 17 March 1999, 9:30.
class AlarmClockTest : public QObject
{
    Q_OBJECT

    const QDate m_today{1999, 3, 17};
    std::unique_ptr<Program> m_program;

    QStringList TickAt(const QDateTime& now) const { return RungAt(*m_program, now); }
    QStringList TickAt(int hour, int minute, int second = 0)
    {
        return TickAt(QDateTime(m_today, QTime(hour, minute, second)));
    }

    // The window ignores a key that arrives with it, so this repeats the key.
    static void Escape(AlarmEventForm& form)
    {
        QTRY_VERIFY((QTest::keyClick(form.focusWidget(), Qt::Key_Escape), !form.isVisible()));
    }

    // Presses keys while the window of an alarm opens.
    void RingWhile(const std::function<void(QWidget& typed)>& goOn)
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", QByteArray("line\n").repeated(200).constData())});
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            QTRY_COMPARE(QApplication::focusWidget(), &form);
            QTest::keyClick(&form, Qt::Key_O, Qt::AltModifier);
            QTest::keyClick(&form, Qt::Key_Escape);
            goOn(form);
            QVERIFY(form.isVisible());
            QCOMPARE(QApplication::activeModalWidget(), &form);
            QCOMPARE(In<RichTextBox>(form, "tbNotes").verticalScrollBar()->value(), 0);
            Escape(form);
        });
        m_program->Tick("tmAlarm");
        QCOMPARE(WaitingAnswers(), 0);
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"mine.mdb"_s);
    }
    // Nobody has asked for more here, so nothing keeps more than the planner.
    void cleanup()
    {
        if (!m_program) return;
        QVERIFY(!Content(folders::WindowsDirectory() + u"/PLANNER.INI"_s).contains("ALARMS"));
        QVERIFY(!QFile::exists(alarmfiles::PutOff()) && !QFile::exists(alarmfiles::Heard()));
        m_program.reset();
    }

    void eachAlarmRingsInItsMinute()
    {
        AddAlarms({MakeAlarm("1999/3/17", "00:00", "midnight"), MakeAlarm("1999/3/17", "13:05", "lunch"),
                   MakeAlarm("1999/3/17", "23:59", "late"), MakeAlarm("1999/3/17", "7:05", "of old"),
                   MakeAlarm("1999/3/18", "00:00", "tomorrow"), MakeAlarm("1999/3/16", "20:00", "yesterday"),
                   MakeAlarm("1999/3/18", "20:00", "not yet"), MakeAlarm("1999/03/17", "13:05", "padded"),
                   MakeAlarm("1999/3/1", "13:05", "like it")});
        QStringList rung;
        const QDateTime start(m_today, QTime(0, 0));
        for (int tick = 0; tick <= 24 * 60 * 2; ++tick) { // two a minute
            const QDateTime now = start.addSecs(tick * 30);
            for (const QString& note : TickAt(now))
                rung += now.toString(u"d hh:mm:ss "_s) + note;
        }
        QCOMPARE(rung, QStringList({u"17 00:00:00 midnight"_s, u"17 13:05:00 lunch"_s, u"17 23:59:00 late"_s,
                                    u"18 00:00:00 tomorrow"_s}));
        QCOMPARE(StoredAlarms().size(), 9);
    }

    void eachMinuteIsLookedAtOnce()
    {
        QCOMPARE(TickAt(9, 29), QStringList());
        AddAlarms({MakeAlarm("1999/3/17", "09:29", "too late"), MakeAlarm("1999/3/17", "09:30", "first"),
                   MakeAlarm("1999/3/17", "09:30", "second"), MakeAlarm("1999/3/17", "09:32", "mine")});
        QCOMPARE(TickAt(9, 29, 10), QStringList()); // the clock has already looked at this minute
        QCOMPARE(TickAt(9, 30), QStringList(u"first"_s));
        QCOMPARE(g_rsAlarm.Fields(u"Alarm Note"_s).toByteArray(), QByteArray("first"));
        QCOMPARE(TickAt(9, 30, 50), QStringList());
        QCOMPARE(TickAt(9, 31), QStringList());
        QVERIFY(g_rsAlarm.EOF_());
        QCOMPARE(TickAt(9, 30), QStringList(u"first"_s)); // as after the clock was turned back
        m_program->New(u"other.mdb"_s);
        QCOMPARE(TickAt(9, 32), QStringList());
        m_program->Open(u"mine.mdb"_s); // in the same minute
        QCOMPARE(TickAt(9, 32, 20), QStringList());
        QCOMPARE(TickAt(9, 33), QStringList());
        QCOMPARE(TickAt(9, 32), QStringList(u"mine"_s));
        QCOMPARE(m_program->Log(), QByteArray());
        g_sDBPath.clear();
        QCOMPARE(TickAt(9, 30), QStringList());
    }

    void dueWhileOneIsShown()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "first"), MakeAlarm("1999/3/17", "09:31", "second")});
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            desktopclock::SetForTests(QDateTime(m_today, QTime(9, 31)));
            m_program->Tick("tmAlarm");
            QCOMPARE(QApplication::activeModalWidget(), &form);
            QCOMPARE(In<RichTextBox>(form, "tbNotes").Text(), u"first"_s);
            QCOMPARE(g_rsAlarm.Fields(u"Alarm Time"_s).toString(), u"09:30"_s);
            Escape(form);
        });
        m_program->Tick("tmAlarm");
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(TickAt(9, 31), QStringList()); // never shown later
        QCOMPARE(TickAt(9, 32), QStringList());
    }

    // A busy machine may show it late.
    void nobodyAnswersAWindowThatIsNotPainted()
    {
        AlarmEventForm form(MakeAlarm("1999/3/17", "09:30", "note"), false, m_program->form->screen(), nullptr);
        form.setUpdatesEnabled(false);
        form.show();
        QTest::keyClick(&form, Qt::Key_Space);
        QTest::qWait(1100);
        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
        QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
        QVERIFY(form.isVisible());
        form.setUpdatesEnabled(true);
        Escape(form);
    }

    void theWindow()
    {
        AddAlarms({MakeAlarm("1999/3/17", "09:30", "{\\rtf1\\ansi a {\\b bold} note}")});
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            QCOMPARE(form.windowTitle(), u"Alarm Event"_s);
            QVERIFY(form.windowFlags() & Qt::WindowStaysOnTopHint);
            const QPoint off = form.frameGeometry().center() - form.screen()->availableGeometry().center();
            QVERIFY(off.manhattanLength() < 8);
            QCOMPARE(In<QLabel>(form, "lblWhen").text(), u"Mar 17, 1999, 9:30 AM"_s);
            auto& note = In<RichTextBox>(form, "tbNotes");
            QTRY_COMPARE(form.focusWidget()->objectName(), u"btnOk"_s); // no typing at this moment
            note.setFocus();
            for (const Qt::Key key : {Qt::Key_X, Qt::Key_Return, Qt::Key_Backspace})
                QTest::keyClick(&note, key);
            QVERIFY(form.isVisible());
            QCOMPARE(note.Text(), u"a bold note"_s);
            QTest::keyClick(&In<QPushButton>(form, "btnOk"), Qt::Key_Return);
            QVERIFY(!form.isVisible());
        });
        m_program->Tick("tmAlarm");
        QCOMPARE(WaitingAnswers(), 0);
    }

    void typingGoesOnInTheCell()
    {
        RichTextBox& box = m_program->Box(18);
        m_program->Type(18, u"a"_s);
        RingWhile([](QWidget& typed) {
            QTest::keyClicks(&typed, u"b cx"_s);
            for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Left, Qt::Key_Left})
                QTest::keyClick(&typed, key);
            QTest::keyClick(&typed, Qt::Key_A, Qt::ControlModifier); // the next key would replace the selection
            QInputMethodEvent accent;
            accent.setCommitString(u"\u00e9"_s);
            QApplication::sendEvent(&typed, &accent);
        });
        QCOMPARE(box.Text(), u"ab \u00e9c\n"_s);
        m_program->Trigger("mnuSave");
        QVERIFY(m_program->Stored(u"mine.mdb"_s, u"1999/3/17"_s).contains("ab "));
        // After locking and unlocking, a cell refuses text. The refusal would cover the alarm.
        m_program->New(u"team.mdb"_s, true);
        m_program->Click(18);
        for (int times = 0; times < 2; ++times)
            m_program->Trigger("mnuLockDay");
        QVERIFY(!box.Locked());
        desktopclock::SetForTests(QDateTime(m_today, QTime(9, 29)));
        m_program->Tick("tmAlarm");
        desktopclock::SetForTests(QDateTime(m_today, QTime(9, 30)));
        RingWhile([](QWidget& typed) { QTest::keyClicks(&typed, u"lost"_s); });
        QCOMPARE(box.Text(), QString());
    }

    // In a box of one line, Return would press the default button of the window behind.
    void typingGoesOnInAnotherWindow()
    {
        for (const auto& [what, box, text] : Rows<QByteArray, QString>{
                 {"date", "maskUntil", u"3/20/1999"_s}, {"list", "cmbRecurDays", u"4"_s}, // after the 1 in the box
             }) {
            const InRow row(this, what);
            m_program->InWindow<RecurForm>("mnuRecurse", [&](RecurForm& form) {
                auto& typedInto = In<QWidget>(form, box.constData());
                typedInto.setFocus();
                QTRY_COMPARE(QApplication::focusWidget(), &typedInto);
                RingWhile([&](QWidget& typed) {
                    QTest::keyClicks(&typed, text);
                    QTest::keyClick(&typed, Qt::Key_Return);
                });
                const QString until = In<MaskEdBox>(form, "maskUntil").Text();
                QCOMPARE(box == "maskUntil" ? until : In<QComboBox>(form, "cmbRecurDays").currentText(),
                         box == "maskUntil" ? u"03/20/1999"_s : u"14"_s);
                QVERIFY(form.isVisible());
                QTest::keyClick(&form, Qt::Key_Escape);
            });
        }
    }

    // A message about the tune stands over the alarm's window, which is open first.
    void tunes()
    {
        for (const auto& [what, tune, silence, told] :
             Rows<QString, bool, bool>{{"missing music", u"gone.mid"_s, false, true},
                                       {"no tune", u""_s, false, true},
                                       {"missing wave", u"gone.wav"_s, false, false},
                                       {"silent", u"gone.mid"_s, true, false}}) {
            const InRow row(this, what);
            AddAlarms({MakeAlarm("1999/3/17", "09:30", "note", tune.toLatin1().constData(), silence)});
            QString text;
            QString owner;
            QElapsedTimer pause;
            if (told) {
                OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
                    for (int key = 0; key < 60 && QApplication::activeModalWidget() == &form; ++key) {
                        pause.start();
                        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
                        QTest::qWait(20);
                    }
                });
                OnNextModal<QMessageBox>([&](QMessageBox& box) {
                    QVERIFY(pause.elapsed() > 450); // a person still typing would close it unread
                    if (box.parentWidget() && box.parentWidget()->isVisible()) owner = box.parentWidget()->objectName();
                    text = box.windowTitle() + u':' + box.text();
                    QTest::keyClick(&box, Qt::Key_Return);
                });
            }
            QCOMPARE(TickAt(9, 30).size(), 1);
            QCOMPARE(owner == u"AlarmEventForm", told);
            QCOMPARE(text.startsWith(u"Orrelin:"_s), told);
        }
    }

    void musicPlaysWhileTheWindowIsOpen()
    {
        SetContent(folders::MediaDirectory() + u"/Flute.mid"_s, MidiNote(84));
        constexpr double Pitch = 1046.5;
        const Recording recording;
        AddAlarms({MakeAlarm("1999/3/17", "09:29", "silent", "Flute.mid"),
                   MakeAlarm("1999/3/17", "09:30", "note", "Flute.mid", false)});
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            QTest::qWait(50); // the other alarm's tune starts at once
            QVERIFY(!recording.IsOpen());
            Escape(form);
        });
        TickAt(9, 29);
        OnNextModal<AlarmEventForm>([&](AlarmEventForm& form) {
            QTRY_VERIFY(recording.IsOpen());
            QVERIFY(Tone(recording.HearFromTheFirstSound(0.3), Pitch) > 0.02);
            Escape(form);
        });
        TickAt(9, 30);
        QVERIFY(Tone(recording.Hear(0.3), Pitch) < 0.002);
    }
};

ORRELIN_TEST(AlarmClockTest)
#include "alarmclocktest.moc"
