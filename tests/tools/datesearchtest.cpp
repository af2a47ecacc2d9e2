#include "platform/controls/maskedbox.h"
#include "program.h"
#include "settingsfile.h"
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

    // Types a year in the next dialog, chooses the month and closes the dialog.
    static void SearchYear(const QString& typed, int month)
    {
        OnNextModal<QDialog>([=](QDialog& form) {
            auto& box = In<QLineEdit>(form, "tbOtherYear");
            box.selectAll();
            QTest::keyClicks(&box, typed);
            In<QRadioButton>(form, qPrintable(u"opMonth(%1)"_s.arg(month))).click();
            QTest::keyClick(&box, Qt::Key_Return);
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
        Search({u"opMonth(3)"_s, u"opOtherYear"_s}, {u"opMonth(11)"_s}, Qt::Key_Return);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(m_program->Bottom().Caption(), u"NOVEMBER 2026"_s);
        QVERIFY(m_program->Log().contains(" in DateSearchForm"));
        Search({u"opMonth(11)"_s, u"opOtherYear"_s}, {u"opMonth(1)"_s}, Qt::Key_Escape);
        m_program->Trigger("mnuDateSearch");
        QCOMPARE(g_iMonth, std::int16_t{11});
        m_program->Trigger("mnuWeekView"); // here the command shows only a message
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::mouseDClick(&m_program->Bottom(), Qt::LeftButton);
        QCOMPARE(seen.Title + u':' + seen.Text, u"Currently not Monthly View:Please switch to Monthly View first."_s);
    }

    void TheBoxTakesAYearAndNothingElse()
    {
        SeenBox seen[2];
        OnNextModal<QDialog>([&](QDialog& form) {
            Activate(form);
            auto& box = In<QLineEdit>(form, "tbOtherYear");
            const auto& other = In<QRadioButton>(form, "opOtherYear");
            QCOMPARE(box.text(), u"1999"_s);
            QVERIFY(!other.isChecked());
            auto& lowest = In<QRadioButton>(form, "opYear(1994)");
            lowest.click();
            lowest.setFocus();
            QTest::keyClick(&lowest, Qt::Key_Down);
            QVERIFY(other.isChecked() && box.hasFocus());
            QCOMPARE(box.selectedText(), u"1999"_s); // the next digits replace it
            lowest.click();
            for (SeenBox& said : seen) {
                box.setFocus();
                box.selectAll();
                QTest::keyClick(&box, &said == seen ? Qt::Key_0 : Qt::Key_Delete);
                QVERIFY(other.isChecked());
                AnswerNextBox(msgbox::Ok, &said);
                QTest::keyClick(&box, Qt::Key_Return);
                QVERIFY(form.isVisible());
            }
            QTest::keyClicks(&box, u"-x 10000"_s);
            QCOMPARE(box.text(), u"1000"_s);
            QTest::keyClick(&box, Qt::Key_Down);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        m_program->Trigger("mnuDateSearch");
        for (const SeenBox& said : seen)
            QCOMPARE(said.Text, u"Please type a year from 1 to 9999"_s);
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 999"_s);
        // A note of that year is found again.
        m_program->Type(m_program->CellOf(5), u"long ago"_s);
        m_program->Trigger("mnuThisMonth");
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"999/3/5"_s).contains("long ago"));
    }

    void TheWeekViewGoesToTheWeekOfTheFirst()
    {
        m_program->Trigger("mnuWeekView");
        SearchYear(u"2028"_s, 2);
        QTest::keyClick(&m_program->Box(39), Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(m_program->Panel(38).Caption(), u" 1"_s); // a Tuesday
        QCOMPARE(m_program->Bottom().Caption(), u"FEBRUARY 2028"_s);
        for (int week = 0; week < 4; ++week)
            m_program->Trigger("mnuNextWeek");
        QCOMPARE(m_program->Panel(38).Caption(), u" 29"_s);
        m_program->Trigger("mnuMonthView");
        QVERIFY(!m_program->Entry("mnuDateSearchWeek").isEnabled());
    }

    // The arrows lead beyond the years of the box. There, too, each note has a key of its own.
    void BeyondTheYearsOfTheBox()
    {
        for (const auto& [what, month, move, title, key, other, proposed] :
             Rows<int, const char*, QString, QString, QString, QString>{
                 {"1", 1, "mnuPrevWeek", u"DECEMBER 0"_s, u"0/12/5"_s, u"1/12/5"_s, u"12/05/0000"_s},
                 {"9999", 12, "mnuNextWeek", u"JANUARY 10000"_s, u"10000/1/5"_s, u"1000/1/5"_s, u"__/__/____"_s}}) {
            const InRow row(this, what);
            SetDateOrder(0);
            SearchYear(QString::fromLatin1(what), month);
            m_program->Trigger("mnuDateSearch");
            m_program->Trigger("mnuWeekView");
            for (int week = 0; week < 6 && g_iMonth == month; ++week)
                m_program->Trigger(move);
            m_program->Trigger("mnuMonthView");
            Search({u"opMonth(%1)"_s.arg(g_iMonth), u"opOtherYear"_s}, {}, Qt::Key_Return); // the year stays
            m_program->Trigger("mnuDateSearch");
            QCOMPARE(m_program->Bottom().Caption(), title);
            m_program->Type(m_program->CellOf(5), u"beyond"_s);
            for (const char* entry : {"mnuNewAlarm", "mnuRecurse"}) {
                OnNextModal<QDialog>([&](QDialog& form) {
                    QCOMPARE(form.findChild<MaskEdBox*>()->Text(), proposed);
                    form.reject();
                });
                m_program->Trigger(entry);
            }
            m_program->Trigger("mnuThisMonth");
            QVERIFY(m_program->Stored(u"notes.mdb"_s, key).contains("beyond"));
            QVERIFY(m_program->Stored(u"notes.mdb"_s, other).isNull());
        }
    }
};

ORRELIN_TEST(DateSearchTest)
#include "datesearchtest.moc"
