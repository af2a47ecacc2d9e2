#include "platform/controls/datebutton.h"

#include "openedcalendar.h"
#include "platform/controls/resources.h"
#include "platform/desktop/clock.h"
#include "testmain.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QTableView>

// The calendar beside a date box, by keys and clicks; today is 17 March 1999.
class DateButtonTest : public QObject
{
    Q_OBJECT

    struct Dated : QWidget
    {
        explicit Dated(const QString& form)
        {
            QString mask = form;
            for (const QChar letter : {u'M', u'D', u'Y'})
                mask.replace(letter, u'#');
            box->SetMask(mask);
            auto* row = new QHBoxLayout(this);
            row->addWidget(box);
            row->addWidget(button = new DateButton(box, form, u"Pick a date"_s));
            row->addWidget(new QLineEdit);
            show();
            activateWindow();
        }
        MaskEdBox* box = new MaskEdBox;
        DateButton* button;
    };

    static void ClickDay(QCalendarWidget& calendar, const QString& day)
    {
        auto* view = calendar.findChild<QTableView*>(u"qt_calendar_calendarview"_s);
        for (int row = 2; row < view->model()->rowCount(); ++row) { // before it are the weekdays and the first days
            for (int column = 0; column < view->model()->columnCount(); ++column) {
                const QModelIndex index = view->model()->index(row, column);
                if (index.data().toString() != day) continue;
                return QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
            }
        }
        QFAIL("there is no such day");
    }

private Q_SLOTS:
    void init()
    {
        InitResources();
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(9, 30)));
    }
    void cleanup() { desktopclock::SetForTests({}); }

    void WritesTheDayInTheBoxsOwnForm()
    {
        for (const auto& [form, entered, picked, shown] : Rows<QString, QString, QDate>{
                 {"MM/DD/YYYY", u"12/31/1999"_s, u"01/01/2000"_s, QDate(1999, 12, 31)},
                 {"DD/MM/YYYY", u"28/02/0999"_s, u"01/03/0999"_s, QDate(999, 2, 28)},
                 {"YYYY/MM/DD", u"9999/12/31"_s, u"9999/12/31"_s, QDate(9999, 12, 31)},
                 {"MM/DD/YYYY", u"02/29/1900"_s, u"03/18/1999"_s, QDate(1999, 3, 17)}, // of the grid only
                 {"DD/MM/YYYY", u""_s, u"18/03/1999"_s, QDate(1999, 3, 17)}}) {
            Dated window(QString::fromLatin1(form));
            window.box->SetText(entered);
            QCalendarWidget* calendar = OpenedCalendar(*window.box);
            QVERIFY(calendar);
            QCOMPARE(calendar->selectedDate(), shown);
            QCOMPARE(calendar->firstDayOfWeek(), Qt::Sunday);
            QTest::keyClick(calendar->focusProxy(), Qt::Key_Right);
            QTest::keyClick(calendar->focusProxy(), Qt::Key_Return);
            QVERIFY(!QApplication::activePopupWidget());
            QCOMPARE(window.box->Text(), picked);
        }
    }

    void TheMouseOpensAndPicksAndEscLeaves()
    {
        Dated window(u"MM/DD/YYYY"_s);
        const auto opened = [] { return QApplication::activePopupWidget()->findChild<QCalendarWidget*>(); };
        QTest::mouseClick(window.button, Qt::LeftButton);
        QVERIFY(QApplication::activePopupWidget()->y() >= window.box->mapToGlobal(QPoint(0, window.box->height())).y());
        QTest::keyClick(opened()->focusProxy(), Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.box->Text(), u"__/__/____"_s);
        QTest::keyClick(window.button, Qt::Key_Space);
        ClickDay(*opened(), u"20"_s);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(window.box->Text(), u"03/20/1999"_s);
        QCOMPARE(window.focusWidget(), window.box);
        QCOMPARE(window.button->accessibleName(), u"Pick a date"_s);
        QTest::keyClick(window.box, Qt::Key_Down); // alone it stays the box's own
        QVERIFY(!QApplication::activePopupWidget());
        window.box->setEnabled(false);
        QVERIFY(!window.button->isEnabled());
        window.box->setEnabled(true);
        QVERIFY(window.button->isEnabled());
    }
};

ORRELIN_TEST(DateButtonTest)
#include "datebuttontest.moc"
