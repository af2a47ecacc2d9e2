#include "platform/controls/picturebutton.h"
#include "platform/look/paper.h"
#include "platform/profile/profile.h"
#include "program.h"

// The month as it stands on the screen, on 17 March 1999 (a month that starts on Monday with 31 days).
class MonthViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    void Ini(const char* section, const char* key, const char* value)
    {
        WritePrivateProfileStringA(QString::fromLatin1(section), QString::fromLatin1(key), QString::fromLatin1(value),
                                   QStringLiteral("PLANNER.INI"));
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void AFirstRunShowsThisMonthInItsDefaultStyles()
    {
        Program& program = *m_program;
        program.Start();
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("MARCH 1999"));
        QCOMPARE(program.Panel(1).Caption(), QStringLiteral("Memo1"));
        QCOMPARE(program.Panel(1).Tag, QStringLiteral("Memo"));
        QCOMPARE(program.Panel(1).CaptionAlignment(), int(SSPanel::CenterTop));
        QCOMPARE(program.Panel(18).Caption(), QStringLiteral(" 17"));
        QCOMPARE(program.Panel(18).ForeColor(), 0x0000FFu);
        QVERIFY(!program.Panel(18).CaptionFont().strikeOut());
        QVERIFY(program.Panel(18).CaptionFont().bold());
        QCOMPARE(program.Panel(17).ForeColor(), 0x808080u);
        QVERIFY(program.Panel(17).CaptionFont().strikeOut());
        QCOMPARE(program.Panel(17).CaptionFont().pointSize(), 10);
        QCOMPARE(program.Panel(19).ForeColor(), 0u);
        QCOMPARE(program.Panel(19).CaptionFont().pointSize(), 8);
        QCOMPARE(program.Panel(19).Font3D(), 2);
        QVERIFY(program.Box(19).Locked());
        QVERIFY(program.Log().isEmpty());
    }

    void MonthsAreStyledByTheClockAlone()
    {
        Program& program = *m_program;
        program.Start();
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("FEBRUARY 1999"));
        QVERIFY(program.Panel(29).CaptionFont().strikeOut());
        QVERIFY(!program.Panel(30).CaptionFont().strikeOut()); // a memo is never past
        for (int i = 0; i < 2; ++i)
            program.Trigger("mnuNextMonth");
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("APRIL 1999"));
        for (int cell = 1; cell <= 35; ++cell) {
            QVERIFY(!program.Panel(cell).CaptionFont().strikeOut());
            QCOMPARE(program.Panel(cell).ForeColor(), 0u);
        }
        for (int i = 0; i < 9; ++i)
            program.Trigger("mnuNextMonth");
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("JANUARY 2000"));
        QCOMPARE(program.CellOf(30), 1); // it starts on Saturday: two days wrap to the first row
        QCOMPARE(program.Panel(1).Tag, QString());
    }

    void TodayIsFoundInAWrappedCell()
    {
        desktopclock::SetForTests(QDateTime(QDate(1998, 8, 31), QTime(9, 0)));
        m_program->Start();
        QCOMPARE(m_program->Panel(2).Caption(), QStringLiteral(" 31"));
        QCOMPARE(m_program->Panel(2).ForeColor(), 0x0000FFu);
        QVERIFY(m_program->Panel(1).CaptionFont().strikeOut());
    }

    void StylesComeFromTheSettingsAtEachRedraw()
    {
        Program& program = *m_program;
        program.Start();
        Ini("DAILY PANEL", "FONTCOLOR", "&HFF0000&");
        Ini("daily panel", "fontsize", "11");
        Ini("PASTDATE PANEL", "FONTSTRIKETHRU", "0");
        Ini("TODAY PANEL", "FONTNAME", "Courier New");
        program.Trigger("mnuNextMonth");
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Panel(19).ForeColor(), 0xFF0000u);
        QCOMPARE(program.Panel(19).CaptionFont().pointSize(), 11);
        QCOMPARE(program.Panel(18).CaptionFont().family(), QStringLiteral("Courier New"));
        QVERIFY(!program.Panel(17).CaptionFont().strikeOut());
    }

    void CellsDivideTheAreaExactly()
    {
        Program& program = *m_program;
        program.Start();
        program.form->resize(1003, 707);
        QTRY_COMPARE(program.Panel(7).geometry().right(), program.Panel(7).parentWidget()->width() - 1);
        const QRect first = program.Panel(1).geometry();
        const QRect last = program.Panel(35).geometry();
        const QRect title = program.Bottom().geometry();
        for (int cell = 1; cell <= 35; ++cell) {
            const QRect panel = program.Panel(cell).geometry();
            const int column = (cell - 1) % 7, row = (cell - 1) / 7;
            QCOMPARE(panel.topLeft(), first.topLeft() + QPoint(column * first.width(), row * first.height()));
            if (column < 6) QCOMPARE(panel.width(), first.width());
            QCOMPARE(program.Box(cell).geometry(),
                     QRect(panel.x() + 6, panel.y() + 20, panel.width() - 12, panel.height() - 25));
        }
        QCOMPARE(last.bottom() + 1, title.top());
    }

    void AStartInWeekViewShowsTheWeekOfToday()
    {
        Ini("VIEW", "VIEWPREF", "2");
        Program& program = *m_program;
        program.Start();
        QVERIFY(!program.form->findChild<SSPanel*>(QStringLiteral("panelDay(1)")));
        QCOMPARE(program.Panel(36).Caption(), QStringLiteral(" 14"));
        QCOMPARE(program.Panel(39).ForeColor(), 0x0000FFu);
        QCOMPARE(program.Panel(39).CaptionFont().pointSize(), 12);
        QVERIFY(program.Panel(38).CaptionFont().strikeOut());
        QVERIFY(!program.Entry("mnuNextMonth").isEnabled());
    }

    void AnUnknownViewShowsTheHeadingsAlone()
    {
        Ini("VIEW", "VIEWPREF", "1");
        m_program->Start();
        QVERIFY(!m_program->form->findChild<SSPanel*>(QStringLiteral("panelDay(1)")));
        QVERIFY(m_program->form->findChild<SSPanel*>(QStringLiteral("lblDayOfWeek(6)"))->isVisible());
    }

    void TheYearStopsAtTheEdgeOfSixteenBits()
    {
        Program& program = *m_program;
        program.Start();
        g_iYear = 32767;
        g_iMonth = 12;
        program.Trigger("mnuNextMonth");
        QCOMPARE(g_iYear, std::int16_t{32767});
        QVERIFY(program.Log().contains(":Overflow in MODSHOW, subDisplayNextMonth"));
        QVERIFY(program.CellOf(31) > 0);
    }

    void TheSpinPicturesMoveOnRelease()
    {
        Program& program = *m_program;
        program.Start();
        auto* spin = program.form->findChild<PictureButton*>(QStringLiteral("imgRightSpin"));
        QTest::mousePress(spin, Qt::LeftButton);
        QVERIFY(spin->Visible(1) && !spin->Visible(0));
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("MARCH 1999"));
        QTest::mouseRelease(spin, Qt::LeftButton, {}, QPoint(-50, -50));
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("APRIL 1999"));
        QVERIFY(spin->Visible(0) && !spin->Visible(1));
    }
};

QTEST_MAIN(MonthViewTest)
#include "monthviewtest.moc"
