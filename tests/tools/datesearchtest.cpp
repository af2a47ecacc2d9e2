#include "program.h"
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
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("before the jump"));
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            QVERIFY(Option(form, QStringLiteral("opMonth(3)")).isChecked());
            QVERIFY(Option(form, QStringLiteral("opYear(1999)")).isChecked());
            Option(form, QStringLiteral("opMonth(2)")).click();
            Option(form, QStringLiteral("opYear(2004)")).click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QTest::keyClick(&m_program->Box(20), Qt::Key_F3);
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("FEBRUARY 2004"));
        QCOMPARE(g_iDay, std::int16_t{19});
        QVERIFY(m_program->CellOf(29) > 0);
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("before"));
    }

    void AYearWithoutAButtonStays()
    {
        g_iYear = 2026;
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            QCOMPARE(form.Year(), std::optional<std::int16_t>());
            Option(form, QStringLiteral("opMonth(11)")).click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("NOVEMBER 2026"));
        QVERIFY(m_program->Log().contains(" in DateSearchForm"));
        OnNextModal<DateSearchForm>([](DateSearchForm& form) {
            Option(form, QStringLiteral("opMonth(1)")).click();
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        m_program->Trigger("mnuDateSearch");
        QCOMPARE(g_iMonth, std::int16_t{11});
    }

    void InTheWeekThereIsOnlyAMessage()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Trigger("mnuWeekView");
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(seen.Title, QStringLiteral("Currently not Monthly View"));
        QCOMPARE(seen.Text, QStringLiteral("Please switch to Monthly View first."));
    }
};

QTEST_MAIN(DateSearchTest)
#include "datesearchtest.moc"
