#include "platform/controls/picturebutton.h"
#include "program.h"
#include "testmain.h"

// Every way of moving through time, with a planner and without; today is 17 March 1999.
class NavigationTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    PictureButton& Picture(const char* name) const { return m_program->Find<PictureButton>(name); }
    QPoint Month() const { return {g_iYear, g_iMonth}; }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void ViewsAreNotEnteredTwice()
    {
        SeenBox seen;
        m_program->New(u"notes.mdb"_s);
        m_program->Click(20);
        QTest::keyClick(&m_program->Box(20), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(m_program->Panel(36).isVisible());
        QVERIFY(Picture("picWeek").Visible(1) && Picture("picMonth").Visible(0));
        QVERIFY(m_program->Entry("mnuNextWeek").isEnabled() && !m_program->Entry("mnuNextMonth").isEnabled());
        QVERIFY(!m_program->Entry("mnuWeekView").isEnabled() && !m_program->Entry("mnuDateSearch").isEnabled());
        QVERIFY(!m_program->Entry("mnuThisMonth").isEnabled());
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseClick(&Picture("picWeek"), Qt::LeftButton);
        QCOMPARE(seen.Text, u"You are currently in Week View"_s);
        QCOMPARE(seen.Title, u"Week View"_s);
        QCOMPARE(g_iCurrentPanel, std::int16_t{1});
        // The current cell is not in this view, so the command formats the cell with the caret.
        m_program->Activate();
        m_program->Click(40);
        g_iCurrentPanel = 1;
        m_program->Trigger("mnuBold");
        QCOMPARE(g_iCurrentPanel, std::int16_t{40});
        QTest::mouseClick(&Picture("picMonth"), Qt::LeftButton);
        QVERIFY(m_program->Panel(1).isVisible() && !m_program->Panel(36).isVisible());
        QVERIFY(m_program->Entry("mnuThisMonth").isEnabled());
    }

    void ALockedDayRefusesToBeLeft()
    {
        m_program->New(u"notes.mdb"_s, true);
        m_program->Click(20);
        Mark(22, true);
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuNextMonth");
        // The message names the current cell, not the locked one.
        QCOMPARE(seen.Text, u"Mar 19, 1999 is locked, please unlock first."_s);
        QCOMPARE(seen.Icon, QMessageBox::Warning);
        g_iCurrentPanel = 40; // as the sidebar's week picture leaves it, not in this view
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(seen.Text, u"Mar 21, 1999 is locked, please unlock first."_s);
        Mark(22, false);
        Mark(40, true); // not loaded, so there is no date to name
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Month(), QPoint(1999, 3));
        g_iCurrentPanel = 0;
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Month(), QPoint(1999, 4));
        g_aiLockState = {};
    }

    void TheSpinsTurnWhatIsShown()
    {
        m_program->New(u"notes.mdb"_s);
        QTest::mouseClick(&Picture("imgRightSpin"), Qt::LeftButton);
        QCOMPARE(Month(), QPoint(1999, 4));
        QTest::mouseClick(&Picture("imgLeftSpin"), Qt::LeftButton);
        QTest::mouseClick(&Picture("imgLeftSpin"), Qt::LeftButton);
        QCOMPARE(Month(), QPoint(1999, 2));
        QTest::keyClick(m_program->form.get(), Qt::Key_F5);
        QCOMPARE(Month(), QPoint(1999, 3));
        m_program->Trigger("mnuWeekView");
        QTest::keyClick(&Picture("imgRightSpin"), Qt::Key_Space);
        QCOMPARE(m_program->Panel(36).Caption(), u" 21"_s);
    }

    void KeysAndWheelMove()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(18, u"text"_s); // the first of March is in cell 2
        const std::tuple<int, Qt::KeyboardModifiers, int> steps[] = {
            {Qt::Key_Left, Qt::AltModifier, 17},  {Qt::Key_Up, Qt::AltModifier, 10},
            {Qt::Key_Right, Qt::AltModifier, 11}, {Qt::Key_Down, Qt::AltModifier, 18},
            {Qt::Key_End, Qt::AltModifier, 32},   {Qt::Key_Down, Qt::AltModifier, 32},
            {Qt::Key_Home, Qt::AltModifier, 2},   {Qt::Key_Left, Qt::AltModifier, 1},
            {Qt::Key_Left, Qt::AltModifier, 1},   {Qt::Key_PageDown, Qt::ControlModifier, 1}};
        for (const auto& [key, modifiers, cell] : steps) {
            QTest::keyClick(m_program->form->focusWidget(), Qt::Key(key), modifiers);
            QCOMPARE(m_program->form->focusWidget(), &m_program->Box(cell));
        }
        QCOMPARE(Month(), QPoint(1999, 4));
        const auto turn = [&](QWidget& widget, int delta) {
            TurnWheel(widget, delta);
            return Month();
        };
        SSPanel& heading = m_program->Find<SSPanel>("lblDayOfWeek(3)");
        QCOMPARE(turn(heading, -120), QPoint(1999, 5));
        QCOMPARE(turn(heading, -60), QPoint(1999, 5)); // a fine wheel
        QCOMPARE(turn(heading, -60), QPoint(1999, 6));
        QCOMPARE(turn(Picture("imgLeftSpin"), 240), QPoint(1999, 4));
        QCOMPARE(turn(*m_program->Box(18).viewport(), -120), QPoint(1999, 4));
        QCOMPARE(turn(m_program->Panel(18), -120), QPoint(1999, 4));
        m_program->Trigger("mnuWeekView");
        const QString sunday = m_program->Panel(36).Caption();
        QTest::keyClick(m_program->form.get(), Qt::Key_PageUp, Qt::ControlModifier);
        QVERIFY(m_program->Panel(36).Caption() != sunday);
    }

    void MidnightBringsBackToday()
    {
        const auto tick = [&] { m_program->Tick("tmMidnightRefresh"); };
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(0, 0, 10)));
        m_program->Trigger("mnuNextMonth");
        tick();
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s); // also without a planner
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"typed late"_s);
        m_program->Trigger("mnuNextMonth");
        m_program->Type(20, u"in April"_s);
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(23, 59, 40)));
        tick();
        QCOMPARE(Month(), QPoint(1999, 4));
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 18), QTime(0, 0, 10)));
        tick();
        QCOMPARE(Month(), QPoint(1999, 3));
        QCOMPARE(g_iDay, std::int16_t{18});
        QCOMPARE(m_program->Panel(19).ForeColor(), 0x0000FFu);
        QVERIFY(m_program->Panel(18).CaptionFont().strikeOut());
        QVERIFY(!m_program->Box(20).hasFocus() && !m_program->Panel(20).IsActive()); // the cell now shows another day
        QCOMPARE(m_program->Box(20).Text(), u"typed late"_s);
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/4/16"_s).contains("in April"));
        m_program->Type(20, u"still "_s);
        tick(); // the second tick of the minute does not disturb the typing
        QTest::keyClicks(&m_program->Box(20), u"here "_s);
        QVERIFY(m_program->Box(20).hasFocus());
        QVERIFY(m_program->Box(20).Text().contains(u"still here "_s));
        // A machine that slept over midnight. Later on the same day nothing turns.
        desktopclock::SetForTests(QDateTime(QDate(1999, 4, 2), QTime(7, 30)));
        for (const int month : {4, 5}) {
            tick();
            QCOMPARE(Month(), QPoint(1999, month));
            QCOMPARE(g_iDay, std::int16_t{2});
            m_program->Trigger("mnuNextMonth");
        }
        QCOMPARE(m_program->Log(), QByteArray());
    }
};

ORRELIN_TEST(NavigationTest)
#include "navigationtest.moc"
