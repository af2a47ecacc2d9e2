#include "tools/datedifference.h"

#include "openedcalendar.h"
#include "platform/controls/toolbar.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"
#include "tools/datecount.h"

#include <QColorDialog>
#include <QLabel>

// Date difference; today is 17 March 1999.
class DateDifferenceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QLabel& Label() const { return m_program->Find<QLabel>("lblDateDiff"); }
    bool IsAt(int cell) const
    {
        return Label().isVisible() && Label().geometry().bottomRight() == m_program->Box(cell).geometry().bottomRight();
    }
    QString Over(int cell) const
    {
        QTest::mouseMove(m_program->Box(cell).viewport(), QPoint(5, 5));
        QTest::mouseMove(m_program->Box(cell).viewport(), QPoint(9, 9));
        return Label().isVisible() ? Label().text() : QString();
    }
    static void Put(const char* key, const char* value) { SetIni("Date Difference", key, value); }
    static QString Stored(const char* key) { return Ini("Date Difference", key); }
    void Customize(const std::function<void(DateDiffForm&)>& act) const
    {
        m_program->InWindow("mnuDateDiffCustomize", act);
    }
    static MaskEdBox& Mask(DateDiffForm& form) { return In<MaskEdBox>(form, "maskStartDate"); }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    // Compares with counting one by one: days on a separate calendar, weeks by Sundays, months by firsts.
    void CountsAsOneCountsByHand()
    {
        const GridDay start = {1896, 3, 5};
        int days = 0, sundays = 0, months = 0;
        for (QDate date(1896, 3, 5); date < QDate(2104, 6, 1); date = date.addDays(1), ++days) {
            const GridDay day = {date.year(), date.month(), date.day()};
            if (days > 0 && date.dayOfWeek() == Qt::Sunday) ++sundays;
            if (days > 0 && date.day() == 1) ++months;
            QCOMPARE(DateDifferenceOf(DateUnit::Day, start, day), days);
            QCOMPARE(DateDifferenceOf(DateUnit::Week, start, day), sundays);
            QCOMPARE(DateDifferenceOf(DateUnit::Month, start, day), months);
            QCOMPARE(DateDifferenceOf(DateUnit::Week, day, start), -sundays);
        }
        const GridDay leap = {2100, 2, 29};
        QCOMPARE(DateDifferenceOf(DateUnit::Day, {2100, 2, 28}, leap), 1);
        QCOMPARE(DateDifferenceOf(DateUnit::Month, {2100, 1, 31}, leap), 1);
        QCOMPARE(DateDifferenceOf(DateUnit::Week, {2100, 2, 28}, leap), 0); // the grid's Monday after that Sunday
        for (const QString& date : {u"12/31/1999"_s, u"02/29/2100"_s})
            QVERIFY(DayOfText(date));
        for (const QString& none :
             {u"02/30/2000"_s, u"13/01/1999"_s, u"01/01/0000"_s, u"1/5/1999"_s, u"01/0_/1999"_s, QString()})
            QVERIFY2(!DayOfText(none), qPrintable(none));
    }

    void TheLabelFollowsTheMouse()
    {
        m_program->Start();
        auto& button = m_program->Find<Toolbar>("tbTop").Buttons(u"datediff"_s);
        const QAction& entry = m_program->Entry("mnuDateDiffShow");
        const int fifth = m_program->CellOf(5), last = m_program->CellOf(31), memo = 1;
        QCOMPARE(Over(fifth), QString());
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(button.Value() == 1 && entry.isChecked());
        QCOMPARE(Over(fifth), u"Day 63"_s);
        QVERIFY(Label().testAttribute(Qt::WA_TransparentForMouseEvents));
        QVERIFY(IsAt(fifth) && Label().width() >= Label().sizeHint().width());
        QCOMPARE(Over(last), u"Day 89"_s);
        QVERIFY(m_program->Panel(memo).Caption().startsWith(u"Memo"));
        QCOMPARE(Over(memo), u"Day 89"_s); // a memo has no date, so the label stays
        QVERIFY(IsAt(last));
        Put("Calculation Method", "1");
        QCOMPARE(Over(last), u"Week 13"_s);
        Put("Calculation Method", "2");
        Put("DateDiff", "12/01/2000");
        QCOMPARE(Over(last), u"Month -21"_s);
        Put("DateDiff", "12/ 1/2000");
        QCOMPARE(Over(last), QString()); // no label for an invalid date
        Put("DateDiff", "03/31/1999");
        QCOMPARE(Over(last), u"Month 0"_s);
        m_program->Trigger("mnuDateDiffShow");
        QVERIFY(button.Value() == 0 && !entry.isChecked() && !Label().isVisible());
        QCOMPARE(Over(fifth), QString());
    }

    void TheLabelStaysWithItsCell()
    {
        m_program->Start();
        m_program->New(u"notes.mdb"_s);
        m_program->Trigger("mnuDateDiffShow");
        const int fifth = m_program->CellOf(5), first = m_program->CellOf(1);
        Over(fifth);
        m_program->form->resize(m_program->form->size() - QSize(140, 100));
        QTRY_VERIFY(IsAt(fifth));
        const QImage shown = m_program->form->centralWidget()->grab(Label().geometry()).toImage();
        QCOMPARE(shown.pixelColor(1, 1), Label().palette().color(QPalette::Window)); // the label is in front
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Label().text(), u"Day 91"_s); // to 2 April
        QVERIFY(IsAt(fifth));
        m_program->Trigger("mnuPrevMonth");
        const auto enter = [&](int cell) { m_program->Box(cell).setFocus(Qt::TabFocusReason); };
        enter(first); // the mouse rests on the fifth, so it decides
        QVERIFY(IsAt(fifth));
        QTest::mouseMove(&m_program->Bottom(), QPoint(200, 9));
        enter(fifth + 1); // the mouse has left
        QVERIFY(IsAt(fifth + 1));
        QDialog search(m_program->form.get());
        search.show();
        Activate(search);
        enter(fifth);
        Q_EMIT m_program->Box(fifth).GotFocus(); // as Find Word shows a hit
        QVERIFY(!IsAt(fifth));
        search.close();
        m_program->Activate();
        Over(first);
        m_program->Trigger("mnuNextMonth"); // there the cell is a memo
        QVERIFY(!Label().isVisible());
        Over(fifth);
        m_program->Trigger("mnuWeekView");
        QVERIFY(!Label().isVisible());
        Over(39);
        QVERIFY(IsAt(39));
    }

    void TheDialogKeepsOneOrderInTheFile()
    {
        for (const auto& [what, order, label, shown, typed] :
             Rows<int, QString, QString, QString>{{"month first", 0, u"MM/DD/YYYY"_s, u"01/01/1999"_s, u"07031999"_s},
                                                  {"day first", 1, u"DD/MM/YYYY"_s, u"01/01/1999"_s, u"03071999"_s},
                                                  {"year first", 2, u"YYYY/MM/DD"_s, u"1999/01/01"_s, u"19990703"_s}}) {
            const InRow row(this, what);
            SetDateOrder(order);
            m_program->Start();
            m_program->New(u"notes.mdb"_s);
            Customize([&](DateDiffForm& form) {
                QCOMPARE(In<QLabel>(form, "lblDateFormat").text(), label);
                QCOMPARE(Mask(form).Text(), shown);
                QVERIFY(In<QRadioButton>(form, "opDateDiff(0)").isChecked());
                In<QRadioButton>(form, "opDateDiff(1)").click();
                OnNextModal<QColorDialog>([](QColorDialog& dialog) {
                    dialog.setCurrentColor(QColor(0x12, 0x34, 0xAB));
                    dialog.accept();
                });
                QTest::keyClick(&In<QPushButton>(form, "btnBGColor"), Qt::Key_Return);
                Mask(form).selectAll();
                QTest::keyClicks(&Mask(form), typed);
                Activate(form);
                PickDate(Mask(form), Qt::Key_Right); // the fourth
                QTest::keyClick(&form, Qt::Key_Return);
            });
            QCOMPARE(Stored("DateDiff"), u"07/04/1999"_s);
            QCOMPARE(Stored("Calculation Method"), u"1"_s);
            QCOMPARE(Stored("Label Color"), u"&HAB3412&"_s);
            m_program->Trigger("mnuDateDiffShow");
            QCOMPARE(Label().palette().color(QPalette::Window), QColor(0x12, 0x34, 0xAB));
            Put("DateDiff", "02/29/2100");
            SeenBox seen;
            Customize([&](DateDiffForm& form) {
                QVERIFY(In<QRadioButton>(form, "opDateDiff(1)").isChecked());
                QVERIFY(Mask(form).Text().contains(u"2100"));
                Mask(form).SetText(order == 1 ? u"30/02/2000"_s : order == 2 ? u"2000/02/30"_s : u"02/30/2000"_s);
                AnswerNextBox(msgbox::Ok, &seen);
                QTest::keyClick(&form, Qt::Key_Return);
                QVERIFY(form.isVisible());
                QTest::keyClick(&form, Qt::Key_Escape);
            });
            QCOMPARE(seen.Title + u':' + seen.Text, u"Orrelin Help Wizard:Start Date is not a valid date"_s);
            QCOMPARE(Stored("DateDiff"), u"02/29/2100"_s);
        }
    }
};

ORRELIN_TEST(DateDifferenceTest)
#include "datedifferencetest.moc"
