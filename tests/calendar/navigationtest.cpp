#include "platform/controls/picturebutton.h"
#include "platform/profile/profile.h"
#include "program.h"

// Every way of moving through time, with a planner and without; today is 17 March 1999.
class NavigationTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    PictureButton& Picture(const char* name) const
    {
        return *m_program->form->findChild<PictureButton*>(QString::fromLatin1(name));
    }
    QPoint Month() const { return {g_iYear, g_iMonth}; }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void TodayIsFoundAgainFromAnywhere()
    {
        Program& program = *m_program;
        for (int i = 0; i < 14; ++i)
            program.Trigger("mnuPrevMonth");
        QCOMPARE(Month(), QPoint(1998, 1));
        QTest::keyClick(program.form.get(), Qt::Key_F5);
        QCOMPARE(Month(), QPoint(1999, 3));
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("MARCH 1999"));
        QCOMPARE(program.Panel(18).ForeColor(), 0x0000FFu);
        QCOMPARE(program.Log(), QByteArray());
    }

    void ViewsNeedAPlannerAndAreNotEnteredTwice()
    {
        Program& program = *m_program;
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::keyClick(program.form.get(), Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(seen.Text, QStringLiteral("No Planner Exists!\n\nUse 'File' | 'New' to create a new planner or\nUse "
                                           "'File | Open' to open an existing planner"));
        program.Activate();
        program.New(QStringLiteral("notes.mdb"));
        program.Click(20);
        QTest::keyClick(&program.Box(20), Qt::Key_W, Qt::ControlModifier); // with the caret in a cell
        QVERIFY(program.Panel(36).isVisible());
        QVERIFY(Picture("picWeek").Visible(1) && Picture("picMonth").Visible(0));
        QVERIFY(program.Entry("mnuNextWeek").isEnabled() && !program.Entry("mnuNextMonth").isEnabled());
        QVERIFY(!program.Entry("mnuWeekView").isEnabled() && !program.Entry("mnuDateSearch").isEnabled());
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseClick(&Picture("picWeek"), Qt::LeftButton);
        QCOMPARE(seen.Text, QStringLiteral("You are currently in Week View"));
        QCOMPARE(seen.Title, QStringLiteral("Week View"));
        QCOMPARE(g_iCurrentPanel, std::int16_t{1});
        // That cell is none of this view: what is formatted is what is typed into.
        program.Activate();
        program.Click(40);
        g_iCurrentPanel = 1;
        program.Trigger("mnuBold");
        QCOMPARE(g_iCurrentPanel, std::int16_t{40});
        QTest::mouseClick(&Picture("picMonth"), Qt::LeftButton);
        QVERIFY(program.Panel(1).isVisible() && !program.Panel(36).isVisible());
        QVERIFY(program.Entry("mnuThisMonth").isEnabled());
    }

    void ALockedDayRefusesToBeLeft()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"), true);
        program.Click(20);
        g_aiLockState[22 - 1] = 1;
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        program.Trigger("mnuNextMonth");
        // It names the current cell, not the locked one.
        QCOMPARE(seen.Text, QStringLiteral("Mar 19, 1999 is locked, please unlock first."));
        QCOMPARE(seen.Icon, QMessageBox::Warning);
        QCOMPARE(Month(), QPoint(1999, 3));
        g_iCurrentPanel = 0;
        program.Trigger("mnuNextMonth");
        QCOMPARE(Month(), QPoint(1999, 4));
        g_aiLockState = {};
    }

    void TheSpinsTellWhereTheyLead()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        const auto tips = [&] {
            for (const char* name : {"imgLeftSpin", "imgRightSpin"}) {
                QTest::mouseMove(&Picture(name), QPoint(8, 8));
                QTest::mouseMove(&Picture(name), QPoint(9, 9));
            }
            return Picture("imgLeftSpin").toolTip() + u'/' + Picture("imgRightSpin").toolTip();
        };
        QCOMPARE(tips(), QStringLiteral("Previous Month/Next Month"));
        program.Trigger("mnuWeekView");
        QTRY_COMPARE(tips(), QStringLiteral("Previous Week/Next Week"));
        QTest::keyClick(&Picture("imgRightSpin"), Qt::Key_Space);
        QCOMPARE(program.Panel(36).Caption(), QStringLiteral(" 21"));
    }

    void MidnightBringsBackToday()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("typed late"));
        program.Trigger("mnuNextMonth");
        program.Type(20, QStringLiteral("in April"));
        const auto tick = [&] { program.Tick("tmMidnightRefresh"); };
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(23, 59, 40)));
        tick();
        QCOMPARE(Month(), QPoint(1999, 4));
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 18), QTime(0, 0, 10)));
        tick();
        QCOMPARE(Month(), QPoint(1999, 3));
        QCOMPARE(g_iDay, std::int16_t{18});
        QCOMPARE(program.Panel(19).ForeColor(), 0x0000FFu);
        QVERIFY(program.Panel(18).CaptionFont().strikeOut());
        QCOMPARE(program.Box(20).Text(), QStringLiteral("typed late"));
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/4/16")).contains("in April"));
        QCOMPARE(program.Log(), QByteArray());
    }
};

QTEST_MAIN(NavigationTest)
#include "navigationtest.moc"
