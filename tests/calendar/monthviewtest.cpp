#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

// The month on the screen, on 17 March 1999 (a month of 31 days that starts on Monday).
class MonthViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void AFirstRunShowsThisMonthInItsDefaultStyles()
    {
        m_program->Start();
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
        QCOMPARE(m_program->Panel(1).Caption(), u"Memo1"_s);
        QCOMPARE(m_program->Panel(1).Tag, u"Memo"_s);
        QCOMPARE(m_program->Panel(1).CaptionAlignment(), int(SSPanel::CenterTop));
        QCOMPARE(m_program->Panel(18).Caption(), u" 17"_s);
        QCOMPARE(m_program->Panel(18).ForeColor(), 0x0000FFu);
        QVERIFY(!m_program->Panel(18).CaptionFont().strikeOut() && m_program->Panel(18).CaptionFont().bold());
        QCOMPARE(m_program->Panel(17).ForeColor(), 0x808080u);
        QVERIFY(m_program->Panel(17).CaptionFont().strikeOut());
        QCOMPARE(m_program->Panel(17).CaptionFont().pointSize(), 10);
        QCOMPARE(m_program->Panel(19).ForeColor(), 0u);
        QCOMPARE(m_program->Panel(19).CaptionFont().pointSize(), 8);
        QCOMPARE(m_program->Panel(19).Font3D(), 2);
        QVERIFY(m_program->Box(19).Locked());
        QVERIFY(m_program->Log().isEmpty());
    }

    void MonthsAreStyledByTheClockAlone()
    {
        m_program->Start();
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Bottom().Caption(), u"FEBRUARY 1999"_s);
        QVERIFY(m_program->Panel(29).CaptionFont().strikeOut());
        QVERIFY(!m_program->Panel(30).CaptionFont().strikeOut()); // a memo is never past
        for (int i = 0; i < 2; ++i)
            m_program->Trigger("mnuPrevMonth");
        QVERIFY(m_program->Panel(m_program->CellOf(31)).CaptionFont().strikeOut()); // a day of last year
        for (int i = 0; i < 4; ++i)
            m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Bottom().Caption(), u"APRIL 1999"_s);
        for (int cell = 1; cell <= 35; ++cell) {
            QVERIFY(!m_program->Panel(cell).CaptionFont().strikeOut());
            QCOMPARE(m_program->Panel(cell).ForeColor(), 0u);
        }
        for (int i = 0; i < 9; ++i)
            m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Bottom().Caption(), u"JANUARY 2000"_s);
        QCOMPARE(m_program->CellOf(30), 1); // the month starts on Saturday, so two days wrap to the first row
        QCOMPARE(m_program->Panel(1).Tag, QString());
        for (int i = 0; i < 2; ++i)
            m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Panel(m_program->CellOf(17)).ForeColor(), 0u); // March of another year
    }

    void TodayIsFoundInAWrappedCell()
    {
        desktopclock::SetForTests(QDateTime(QDate(1998, 8, 31), QTime(9, 0)));
        m_program->Start();
        QCOMPARE(m_program->Panel(2).Caption(), u" 31"_s);
        QCOMPARE(m_program->Panel(2).ForeColor(), 0x0000FFu);
        QVERIFY(m_program->Panel(1).CaptionFont().strikeOut());
    }

    void StylesComeFromTheSettingsAtEachRedraw()
    {
        m_program->Start();
        SetIni("DAILY PANEL", "FONTCOLOR", "&HFF0000&");
        SetIni("daily panel", "fontsize", "11");
        SetIni("PASTDATE PANEL", "FONTSTRIKETHRU", "0");
        SetIni("TODAY PANEL", "FONTNAME", "Courier New");
        m_program->Trigger("mnuNextMonth");
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Panel(19).ForeColor(), 0xFF0000u);
        QCOMPARE(m_program->Panel(19).CaptionFont().pointSize(), 11);
        QCOMPARE(m_program->Panel(18).CaptionFont().family(), u"Courier New"_s);
        QVERIFY(!m_program->Panel(17).CaptionFont().strikeOut());
    }

    // The day view has no cells in the main window. Any unknown view is the month's.
    void TheViewOfTheStartIsTheSettings()
    {
        for (const char* view : {"1", "2", "7"}) {
            SetIni("VIEW", "VIEWPREF", view);
            m_program->Start();
            QCOMPARE(m_program->form->findChild<SSPanel*>(u"panelDay(1)"_s) != nullptr, *view == '7');
            QVERIFY(m_program->Find<SSPanel>("lblDayOfWeek(6)").isVisible());
            if (*view != '2') continue;
            QCOMPARE(m_program->Panel(36).Caption(), u" 14"_s);
            QCOMPARE(m_program->Panel(39).ForeColor(), 0x0000FFu);
            QVERIFY(m_program->Panel(38).CaptionFont().strikeOut());
            QVERIFY(!m_program->Entry("mnuNextMonth").isEnabled());
        }
    }

    void TheYearStopsAtTheEdgeOfSixteenBits()
    {
        m_program->Start();
        g_iYear = 32767;
        g_iMonth = 12;
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(g_iYear, std::int16_t{32767});
        QVERIFY(m_program->Log().contains(":Overflow in MODSHOW, subDisplayNextMonth"));
        QVERIFY(m_program->CellOf(31) > 0);
    }
};

ORRELIN_TEST(MonthViewTest)
#include "monthviewtest.moc"
