#include "program.h"
#include "testmain.h"

// Fast Search; today is 17 March 1999.
class DateSearchTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    // Checks the chosen options of the next dialog, clicks the options and closes it with the key.
    static void Search(const QStringList& chosen, const QStringList& clicks, Qt::Key key)
    {
        OnNextModal<QDialog>([=](QDialog& form) {
            QCOMPARE(form.objectName(), u"DateSearchForm"_s);
            QStringList checked;
            for (const auto* option : form.findChildren<QRadioButton*>())
                if (option->isChecked()) checked += option->objectName();
            QCOMPARE(checked, chosen);
            for (const QString& name : clicks)
                form.findChild<QRadioButton*>(name)->click();
            QTest::keyClick(&form, key);
        });
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"notes.mdb"_s);
    }
    void cleanup() { m_program.reset(); }

    void JumpsToThePickedMonthAndSavesOnTheWay()
    {
        m_program->Type(20, u"before the jump"_s);
        Search({u"opMonth(3)"_s, u"opYear(1999)"_s}, {u"opMonth(2)"_s, u"opYear(2004)"_s}, Qt::Key_Return);
        QTest::keyClick(&m_program->Box(20), Qt::Key_F3);
        QCOMPARE(m_program->Bottom().Caption(), u"FEBRUARY 2004"_s);
        QCOMPARE(g_iDay, std::int16_t{19});
        QVERIFY(m_program->CellOf(29) > 0);
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/3/19"_s).contains("before"));
    }

    void AYearWithoutAButtonStays()
    {
        g_iYear = 2026;
        Search({u"opMonth(3)"_s}, {u"opMonth(11)"_s}, Qt::Key_Return);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(m_program->Bottom().Caption(), u"NOVEMBER 2026"_s);
        QVERIFY(m_program->Log().contains(" in DateSearchForm"));
        Search({u"opMonth(11)"_s}, {u"opMonth(1)"_s}, Qt::Key_Escape);
        m_program->Trigger("mnuDateSearch");
        QCOMPARE(g_iMonth, std::int16_t{11});
        m_program->Trigger("mnuWeekView"); // here the command shows only a message
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(seen.Title + u':' + seen.Text, u"Currently not Monthly View:Please switch to Monthly View first."_s);
    }
};

ORRELIN_TEST(DateSearchTest)
#include "datesearchtest.moc"
