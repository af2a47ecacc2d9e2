#include "program.h"
#include "testmain.h"
#include "tools/datesearchform.h"

// Fast Search; today is 17 March 1999.
class DateSearchTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    static QRadioButton& Option(DateSearchForm& form, const QString& name)
    {
        return *form.findChild<QRadioButton*>(name);
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void JumpsToThePickedMonthAndSavesOnTheWay()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"before the jump"_s);
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            QVERIFY(Option(form, u"opMonth(3)"_s).isChecked());
            QVERIFY(Option(form, u"opYear(1999)"_s).isChecked());
            Option(form, u"opMonth(2)"_s).click();
            Option(form, u"opYear(2004)"_s).click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QTest::keyClick(&m_program->Box(20), Qt::Key_F3);
        QCOMPARE(m_program->Bottom().Caption(), u"FEBRUARY 2004"_s);
        QCOMPARE(g_iDay, std::int16_t{19});
        QVERIFY(m_program->CellOf(29) > 0);
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/3/19"_s).contains("before"));
    }

    void AYearWithoutAButtonStays()
    {
        g_iYear = 2026;
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            QCOMPARE(form.Year(), std::optional<std::int16_t>());
            Option(form, u"opMonth(11)"_s).click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(m_program->Bottom().Caption(), u"NOVEMBER 2026"_s);
        QVERIFY(m_program->Log().contains(" in DateSearchForm"));
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            Option(form, u"opMonth(1)"_s).click();
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        m_program->Trigger("mnuDateSearch");
        QCOMPARE(g_iMonth, std::int16_t{11});
    }

    void InTheWeekThereIsOnlyAMessage()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Trigger("mnuWeekView");
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(seen.Title, u"Currently not Monthly View"_s);
        QCOMPARE(seen.Text, u"Please switch to Monthly View first."_s);
    }
};

ORRELIN_TEST(DateSearchTest)
#include "datesearchtest.moc"
