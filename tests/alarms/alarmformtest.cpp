#include "alarmtesting.h"
#include "failingstore.h"
#include "openedcalendar.h"
#include "recording.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

// The editor of alarms in both modes. The program shows March 1999; the 17th is in cell 18.
class AlarmFormTest : public QObject
{
    Q_OBJECT

    const QString m_file = u"mine.mdb"_s;
    std::unique_ptr<Program> m_program;

    bool ClockRuns() const { return m_program->Find<Timer>("tmAlarm").Enabled(); }
    QToolButton* Mark(int cell) const
    {
        auto* mark = m_program->form->findChild<QToolButton*>(u"btnTunes(%1)"_s.arg(cell));
        const bool covers = mark && mark->geometry().intersects(m_program->Box(cell).geometry());
        return mark && !mark->isHidden() && !covers ? mark : nullptr;
    }

    void InEditor(const char* entry, const std::function<void(AlarmForm&)>& act) { m_program->InWindow(entry, act); }

    // The contents of the boxes in one line.
    static QString Row(AlarmForm& form)
    {
        const auto isOn = [&](const char* name) { return In<QAbstractButton>(form, name).isChecked(); };
        const QString half = QLatin1StringView(isOn("opAMPM(0)") ? "AM" : isOn("opAMPM(1)") ? "PM" : "-");
        const QString time = Shown(form, "maskHour") + u' ' + Shown(form, "maskMinute") + u' ' + half;
        const QString note = In<ORLCombo>(form, "orlcmbTunes").Text() + u' ' + In<RichTextBox>(form, "tbNotes").Text();
        return Shown(form, "maskAlarmDate") + u' ' + time + u' ' + note +
               QLatin1StringView(isOn("chkSilence") ? " silent" : "");
    }

    static void FillIn(AlarmForm& form, const QString& hour, const QString& minute, const QString& note)
    {
        TypeAt(form, "maskHour", hour);
        TypeAt(form, "maskMinute", minute);
        In<RichTextBox>(form, "tbNotes").setFocus();
        QTest::keyClicks(&In<RichTextBox>(form, "tbNotes"), note);
    }

    void ExpectBox(const QString& text, QMessageBox::Icon icon = QMessageBox::Information)
    {
        OnNextModal<QMessageBox>([=](QMessageBox& box) {
            QCOMPARE(box.windowTitle(), u"Orrelin Help Wizard"_s);
            QCOMPARE(box.text().remove(QChar(0x200B)), text);
            QCOMPARE(box.icon(), icon);
            QTest::keyClick(&box, Qt::Key_Return);
        });
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        SetDateOrder(0);
    }
    void cleanup() { m_program.reset(); }

    void newAlarm()
    {
        SetDateOrder(1);
        for (const char* tune : {"/b.mid", "/a.wav"})
            SetContent(folders::MediaDirectory() + QLatin1StringView(tune), "x");
        m_program->New(m_file);
        m_program->Type(17, u"typed"_s); // the day before today
        InEditor("mnuNewAlarm", [&](AlarmForm& form) {
            QVERIFY(!ClockRuns());
            QVERIFY(2 * In<RichTextBox>(form, "tbNotes").parentWidget()->height() >= form.height());
            QCOMPARE(In<QGroupBox>(form, "frAlarm").title(), u"New Alarm Event"_s);
            QCOMPARE(In<QLabel>(form, "lblDateFormat").text() + u' ' + Shown(form, "maskAlarmDate"),
                     u"DD/MM/YYYY 16/03/1999"_s);
            for (const char* disabled : {"frBrowseAlarm", "btnDelete"})
                QVERIFY(!In<QWidget>(form, disabled).isEnabled());
            auto& tunes = In<ORLCombo>(form, "orlcmbTunes");
            QCOMPARE(tunes.List(0) + tunes.List(tunes.ListCount() - 1), u"a.wavb.mid"_s);
            QCOMPARE(tunes.Text(), u"a.wav"_s);
            for (const char* control : {"maskHour", "maskMinute", "opAMPM(0)"}) {
                QCOMPARE(form.focusWidget()->objectName(), QLatin1StringView(control));
                QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            }
            TypeAt(form, "maskAlarmDate", u"5/3/"_s);
            FillIn(form, u"12"_s, u"30"_s, u"lunch"_s);
            Activate(form);
            In<QRadioButton>(form, "opAMPM(1)").setFocus();
            QTest::keyClick(&In<QRadioButton>(form, "opAMPM(1)"), Qt::Key_Left); // while neither is chosen
            QTest::keyClick(&tunes, Qt::Key_End);
            for (const int answer : {msgbox::No, msgbox::Yes}) {
                SeenBox asked;
                AnswerNextBox(answer, &asked);
                Press(form, "btnOk");
                QVERIFY(asked.Text.startsWith(u"This moment is over: Mar 5, 1999, 12:30 AM."_s));
                QCOMPARE(asked.DefaultButton, u"No"_s);
                QCOMPARE(form.isVisible(), answer == msgbox::No);
                QVERIFY(StoredAlarms().isEmpty() == (answer == msgbox::No));
            }
        });
        QVERIFY(ClockRuns());
        QCOMPARE(StoredAlarms(), QStringList(u"1999/3/5 00:30 lunch b.mid"_s));
        QVERIFY(Mark(m_program->CellOf(5)) && !Mark(17));
        QCOMPARE(m_program->Box(17).Text(), u"typed"_s);
        QVERIFY(m_program->Stored(m_file, u"1999/3/16"_s).contains("typed"));
        QCOMPARE(m_program->Log(), QByteArray());
    }

    // Each error shows its message and keeps the input.
    void badInput()
    {
        const QString wrongTime = u"The time you have entered is not valid"_s;
        for (const auto& [what, isDated, time, note, told] : Rows<bool, QString, QString, QString>{
                 {"hour 13", true, u"1300"_s, u"x"_s, wrongTime},
                 {"nothing at all", true, {}, u""_s, wrongTime},
                 {"no note", true, u"0900"_s, u""_s, u"Notes field cannot be empty"_s},
                 {"half a date", false, u"0900"_s, u"x"_s, u"The date you have entered is not complete"_s}}) {
            const InRow row(this, what);
            m_program->New(m_file);
            m_program->Click(18);
            InEditor("mnuNewAlarm", [&](AlarmForm& form) {
                FillIn(form, time.left(2), time.mid(2), note);
                In<MaskEdBox>(form, "maskAlarmDate").setCursorPosition(0);
                if (!isDated) QTest::keyClick(&In<MaskEdBox>(form, "maskAlarmDate"), Qt::Key_Delete);
                ExpectBox(told);
                Press(form, "btnOk");
                QVERIFY(form.isVisible());
                QCOMPARE(In<RichTextBox>(form, "tbNotes").Text(), note);
                if (told.startsWith(u"Notes")) QCOMPARE(form.focusWidget()->objectName(), u"tbNotes"_s);
                Press(form, "btnCancel");
            });
            QCOMPARE(StoredAlarms(), QStringList());
        }
    }

    // Input that the planner refuses stays in the window.
    void aMemoCellHasNoDateAndAFullDiskTakesNothing()
    {
        const FailingStores failing;
        m_program->New(m_file);
        m_program->Click(1);
        InEditor("mnuNewAlarm", [&](AlarmForm& form) {
            QCOMPARE(Shown(form, "maskAlarmDate"), u"__/__/____"_s);
            QCOMPARE(form.focusWidget(), &In<QWidget>(form, "maskAlarmDate"));
            TypeAt(form, "maskAlarmDate", u"02311999"_s);
            FillIn(form, u"9"_s, u"5"_s, u"never"_s);
            *failing.plan = {1, FailurePlan::Before, {3026, u"The disk is full"_s}, u"Insert"_s};
            for (const bool isStored : {false, true}) {
                AnswerNextBox(msgbox::Yes); // the moment is over
                if (!isStored) ExpectBox(u"The disk is full"_s, QMessageBox::Warning);
                QTest::keyClick(&In<MaskEdBox>(form, "maskHour"), Qt::Key_Return);
                QCOMPARE(form.isVisible(), !isStored);
            }
        });
        QCOMPARE(StoredAlarms(), QStringList(u"1999/2/31 09:05 never "_s));
    }

    // The moment that is now is not over.
    void aPickedDayToComeIsNotAskedAbout()
    {
        SetDateOrder(1);
        m_program->New(m_file);
        m_program->Click(18);
        for (const Qt::Key move : {Qt::Key_Right, Qt::Key_Home}) {
            InEditor("mnuNewAlarm", [&](AlarmForm& form) {
                auto& box = In<MaskEdBox>(form, "maskAlarmDate");
                if (move == Qt::Key_Right) PickDate(box, move);
                QCOMPARE(box.Text(), move == Qt::Key_Right ? u"18/03/1999"_s : u"17/03/1999"_s);
                FillIn(form, u"09"_s, move == Qt::Key_Right ? u"29"_s : u"30"_s, u"soon"_s);
                Press(form, "btnOk");
            });
        }
        QCOMPARE(StoredAlarms().size(), 2);
    }

    void steps()
    {
        m_program->New(m_file);
        InEditor("mnuNewAlarm", [](AlarmForm& form) {
            for (const auto& [box, up, down, after] :
                 {std::tuple("maskHour", "picHourUp", "picHourDn", "01 12 11 12 01"),
                  {"maskMinute", "picMinuteUp", "picMinuteDn", "01 00 59 00 01"}}) {
                QStringList steps;
                for (const char* picture : {up, down, down, up, up})
                    Press(form, picture), steps += Shown(form, box);
                QCOMPARE(steps, QString::fromLatin1(after).split(u' '));
            }
            Press(form, "btnCancel");
        });
    }

    // The button and the closing of the window both stop the music.
    void tryingATune()
    {
        SetContent(folders::MediaDirectory() + u"/Flute.mid"_s, MidiNote(84));
        constexpr double Pitch = 1046.5;
        const Recording recording;
        m_program->New(m_file);
        for (const char* way : {"picStop", "btnCancel"}) {
            InEditor("mnuNewAlarm", [&](AlarmForm& form) {
                OnNextModal<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
                In<ORLCombo>(form, "orlcmbTunes").SetListIndex(-1);
                Press(form, "picPlay"); // no tune is chosen
                QCOMPARE(WaitingAnswers(), 0);
                In<ORLCombo>(form, "orlcmbTunes").SetListIndex(0);
                Press(form, "picPlay");
                QVERIFY(Tone(recording.Hear(0.3), Pitch) > 0.02);
                if (way == QByteArray("picStop")) Press(form, way);
                if (way == QByteArray("picStop")) QVERIFY(Tone(recording.Hear(0.3), Pitch) < 0.002);
                Press(form, "btnCancel");
            });
            QVERIFY(Tone(recording.Hear(0.3), Pitch) < 0.002);
        }
    }

    void waysOut()
    {
        for (const bool isNew : {true, false}) {
            for (const QByteArray way : {"button", "esc", "esc at the window", "close"}) {
                const InRow row(this, way.constData());
                m_program->New(m_file);
                InEditor(isNew ? "mnuNewAlarm" : "mnuChangeAlarms", [&](AlarmForm& form) {
                    QCOMPARE(In<QPushButton>(form, "btnCancel").isVisible(), isNew);
                    if (isNew) FillIn(form, u"9"_s, u"00"_s, u"dropped"_s);
                    if (way == "esc at the window") form.setFocus();
                    if (way.startsWith("esc")) QTest::keyClick(form.focusWidget(), Qt::Key_Escape);
                    if (way == "close") form.close();
                    if (way == "button") Press(form, isNew ? "btnCancel" : "btnOk");
                });
                QCOMPARE(ClockRuns(), way != "esc at the window");
                QCOMPARE(StoredAlarms(), QStringList());
                InEditor("mnuNewAlarm", [&](AlarmForm& form) { Press(form, "btnCancel"); });
                QVERIFY(ClockRuns());
            }
        }
    }

    // Without alarms, with alarms of other days only, and with some of the day.
    void browsing()
    {
        SetContent(folders::MediaDirectory() + u"/a.wav"_s, "x");
        m_program->New(m_file);
        const QList<Alarm> others = {MakeAlarm("1999/3/16", "09:00", "before"), MakeAlarm("1999/3/18", "9:00", "x")};
        for (const QList<Alarm>& alarms : {QList<Alarm>(), others}) {
            AddAlarms(alarms);
            m_program->Click(18);
            InEditor("mnuChangeAlarms", [&](AlarmForm& form) {
                for (const char* picture : {"picLeftSpin", "picRightSpin", "picLeftSpin"}) {
                    ExpectBox(u"No more alarm events for the date __/__/____"_s);
                    Press(form, picture);
                }
                QCOMPARE(Row(form), u"__/__/____ __ __ -  "_s);
                Press(form, "btnOk");
            });
        }
        AddAlarms({MakeAlarm("1999/3/17", "7:05", "one", "a.wav"),
                   MakeAlarm("1999/3/17", "00:30", "two", "gone.wav", false),
                   MakeAlarm("1999/3/17", "12:00", "three")});
        m_program->Click(18);
        InEditor("mnuChangeAlarms", [&](AlarmForm& form) {
            const QString one = u"03/17/1999 07 05 AM a.wav one silent"_s;
            const QString two = u"03/17/1999 12 30 AM  two"_s;
            const QString three = u"03/17/1999 12 00 PM  three silent"_s;
            const auto step = [&](const char* picture, const QString& shown, bool told = false) {
                if (told) ExpectBox(u"No more alarm events for the date 03/17/1999"_s);
                Press(form, picture);
                QCOMPARE(WaitingAnswers(), 0);
                QCOMPARE(Row(form), shown);
            };
            QCOMPARE(In<QGroupBox>(form, "frAlarm").title(), u"Browse/Edit Alarm Event"_s);
            for (const char* disabled : {"maskAlarmDate", "maskHour", "maskMinute", "opAMPM(0)", "opAMPM(1)",
                                         "orlcmbTunes", "chkSilence", "tbNotes"})
                QVERIFY2(!In<QWidget>(form, disabled).isEnabled(), disabled);
            QVERIFY(In<PictureButton>(form, "picRightSpin").Visible(2));
            QCOMPARE(Row(form), one);
            step("picRightSpin", two);
            step("picRightSpin", three);
            step("picLeftSpin", two);
            step("picRightSpin", three);
            step("picRightSpin", three, true);
            step("picRightSpin", three, true); // the end of the table
            step("picLeftSpin", two);          // back to the last alarm first, then one at a time
            step("picLeftSpin", one);
            step("picLeftSpin", one, true);
            step("picRightSpin", two); // at the other end too, the walk skips the first alarm
            Press(form, "btnOk");
        });
        QCOMPARE(m_program->Log(), QByteArray());
    }

    // Deletes the first of the alarms that are alike in four fields, whichever note is shown.
    void deleting()
    {
        SetContent(folders::MediaDirectory() + u"/a.wav"_s, "x");
        m_program->New(m_file);
        AddAlarms({MakeAlarm("1999/3/17", "09:00", "other time", "a.wav"),
                   MakeAlarm("1999/3/17", "10:00", "loud", "a.wav", false), MakeAlarm("1999/3/17", "10:00", "tuneless"),
                   MakeAlarm("1999/3/17", "10:00", "first", "a.wav"),
                   MakeAlarm("1999/3/17", "10:00", "second", "a.wav"),
                   MakeAlarm("1999/3/16", "10:00", "other day", "a.wav")});
        m_program->Trigger("mnuSave");
        m_program->Click(18);
        InEditor("mnuChangeAlarms", [&](AlarmForm& form) {
            for (int i = 0; i < 4; ++i)
                Press(form, "picRightSpin");
            QVERIFY(Row(form).contains(u"second"_s));
            for (int times = 0; times < 2; ++times) { // shows no alarm and no message
                AnswerNextBox(msgbox::Ok);
                QTest::keyClick(&In<QPushButton>(form, "btnDelete"), Qt::Key_Return);
                QCOMPARE(WaitingAnswers(), 1);
                DropAnswers();
                QVERIFY(form.isVisible());
                QCOMPARE(Row(form), u"__/__/____ __ __ -  "_s);
            }
            Press(form, "btnOk");
        });
        QCOMPARE(StoredAlarms().size(), 5);
        QVERIFY(StoredAlarms().filter(u"first"_s).isEmpty()); // the second one is still there
        QVERIFY(Mark(18));
    }

    // Opening the window stores the text of a locked day.
    void theMarkGoesAtOkOnly()
    {
        for (const auto& [what, isShared] : Rows<bool>{
                 {"personal", false}, {"workgroup", true}, // the mark is its only entry
             }) {
            const InRow row(this, what);
            m_program->New(m_file, isShared);
            AddAlarms({MakeAlarm("1999/3/17", "9:00", "only")}); // as older planners store it
            m_program->Trigger(isShared ? "mnuRefresh" : "mnuSave");
            m_program->Click(20);
            if (isShared) m_program->Trigger("mnuLockDay");
            QTest::keyClicks(&m_program->Box(20), u"typed"_s);
            for (const bool ok : {false, true}) {
                OnNextModal<AlarmForm>([&](AlarmForm& form) {
                    QCOMPARE(Row(form).contains(u"only"_s), !ok);
                    if (isShared) QVERIFY(m_program->Stored(m_file, u"1999/3/19"_s).contains("typed"));
                    Press(form, "btnDelete");
                    QVERIFY(Mark(18));
                    if (ok) Press(form, "btnOk");
                    if (!ok) QTest::keyClick(&form, Qt::Key_Escape);
                });
                QTest::mouseClick(Mark(18), Qt::LeftButton);
                QTRY_COMPARE(WaitingAnswers(), 0);
                QTRY_COMPARE(Mark(18) == nullptr, ok);
                QCOMPARE(StoredAlarms(), QStringList());
                QCOMPARE(m_program->Box(20).Text(), u"typed"_s);
                m_program->Activate();
            }
            QCOMPARE(In<PictureButton>(*m_program->form, "picLock").Visible(0), isShared);
            QVERIFY(g_rsAlarm.BOF() && g_rsAlarm.EOF_()); // the clock knows that the table is empty
            AddAlarms({MakeAlarm("1999/3/17", "11:00", "new")});
            QVERIFY(!g_rsAlarm.EOF_());
        }
    }

    void aLongNoteCanBeReadThrough()
    {
        m_program->New(m_file);
        AddAlarms({MakeAlarm("1999/3/17", "10:00", QByteArray("line\n").repeated(200).constData())});
        m_program->Click(18);
        InEditor("mnuChangeAlarms", [&](AlarmForm& form) {
            const QScrollBar& bar = *In<RichTextBox>(form, "tbNotes").verticalScrollBar();
            QTest::keyClick(form.focusWidget(), Qt::Key_PageDown);
            const int one = bar.value();
            QWheelEvent wheel(QPointF(), QPointF(), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&form, &wheel);
            const int further = bar.value();
            QVERIFY(one > 0 && further > one);
            QTest::keyClick(form.focusWidget(), Qt::Key_PageUp);
            QVERIFY(bar.value() < further);
            Press(form, "btnOk");
        });
    }
};

ORRELIN_TEST(AlarmFormTest)
#include "alarmformtest.moc"
