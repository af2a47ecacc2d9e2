#include "platform/controls/tabstrip.h"
#include "platform/controls/toolbar.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

// The places of the window's four parts, and how the person changes them.
class LayoutTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    Toolbar& Bar() const { return m_program->Find<Toolbar>("tbTop"); }
    TabStrip& Sidebar() const { return m_program->Find<TabStrip>("tabSidebar"); }
    QWidget& Client() const { return m_program->Find<QWidget>("client"); }
    SSPanel& Heading() const { return m_program->Find<SSPanel>("lblDayOfWeek(0)"); }

    // The parts lie where the bars leave room, and fill the client area.
    void CheckRectangles() const
    {
        const QRect client = Client().rect();
        const bool bar = !Bar().isHidden(), side = !Sidebar().isHidden();
        const bool below = bar && Bar().y() > 0;
        const int above = bar && !below ? Bar().height() : 0, under = below ? Bar().height() : 0;
        const int left = side ? Sidebar().width() : 0;
        if (bar) QCOMPARE(Bar().size(), QSize(client.width(), Bar().sizeHint().height()));
        if (side) QCOMPARE(Sidebar().geometry(), QRect(0, above, left, client.height() - above - under - 1));
        const QRect foot = m_program->Bottom().geometry();
        QCOMPARE(foot, QRect(left, client.height() - under - 1 - foot.height(), client.width() - left, foot.height()));
        QCOMPARE(Heading().pos(), QPoint(left, above));
        QCOMPARE(m_program->Panel(35).geometry().bottom(), client.height() - under - foot.height() - 2);
        QCOMPARE(m_program->Panel(7).geometry().right(), client.right());
        const QRect first = m_program->Panel(1).geometry();
        for (int cell = 1; cell <= 35; ++cell) {
            const QRect panel = m_program->Panel(cell).geometry();
            const int column = (cell - 1) % 7, row = (cell - 1) / 7;
            QCOMPARE(panel.topLeft(), first.topLeft() + QPoint(column * first.width(), row * first.height()));
            if (column < 6) QCOMPARE(panel.width(), first.width());
            QCOMPARE(m_program->Box(cell).geometry(), panel.adjusted(6, 20, -6, -5));
        }
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void EveryArrangementFillsTheWindow()
    {
        m_program->Start();
        for (const QSize size : {QSize(1000, 700), QSize(640, 480), QSize(3840, 2160)}) {
            m_program->form->resize(size);
            QTRY_COMPARE(Bar().width(), size.width());
            CheckRectangles();
            for (const char* entry : {"mnuViewSBVisible", "mnuViewTBAlignBottom", "mnuViewSBVisible",
                                      "mnuViewTBVisible", "mnuViewTBVisible", "mnuViewTBAlignTop"}) {
                m_program->Trigger(entry);
                CheckRectangles();
            }
        }
    }

    void TheBarsAreRemembered()
    {
        m_program->Start();
        m_program->Trigger("mnuViewTBAlignBottom");
        QCOMPARE(Ini("Mainform Toolbar", "Alignment"), u"2"_s);
        QVERIFY(!m_program->Entry("mnuViewTBAlignTop").isChecked() &&
                m_program->Entry("mnuViewTBAlignBottom").isChecked());
        m_program->Trigger("mnuViewTBVisible");
        QCOMPARE(Ini("Mainform Toolbar", "Visible"), u"0"_s);
        QVERIFY(!m_program->Entry("mnuViewTBAlignTop").isEnabled() &&
                !m_program->Entry("mnuViewTBVisible").isChecked());
        m_program->Trigger("mnuViewSBVisible");
        QCOMPARE(Ini("Mainform Sidebar", "Visible"), u"0"_s);
        m_program->Exit();
        m_program->Start();
        QVERIFY(Bar().isHidden() && Sidebar().isHidden());
        m_program->Trigger("mnuViewTBVisible");
        QCOMPARE(Ini("Mainform Toolbar", "Visible"), u"-1"_s);
        QVERIFY(Bar().y() > 0);
    }

    void TheToolbarIsDroppedOnASide()
    {
        m_program->Start();
        const auto drag = [&](int y) {
            const QPoint from(Bar().width() - 30, Bar().height() / 2);
            const QPoint to = from + QPoint(0, y - Bar().y() - from.y());
            QTest::mousePress(&Bar(), Qt::LeftButton, {}, from);
            QTest::mouseMove(&Bar(), (from + to) / 2);
            QTest::mouseMove(&Bar(), to);
            QTest::mouseRelease(&Bar(), Qt::LeftButton, {}, to);
        };
        drag(Client().height() / 2);
        QCOMPARE(Bar().y(), 0);
        drag(Client().height() - 5);
        QCOMPARE(Bar().geometry().bottom(), Client().rect().bottom());
        CheckRectangles();
        drag(5);
        QCOMPARE(Bar().y(), 0);
        QCOMPARE(Ini("Mainform Toolbar", "Alignment"), u"1"_s);
    }
};

ORRELIN_TEST(LayoutTest)
#include "layouttest.moc"
