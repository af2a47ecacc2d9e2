#include "platform/controls/tabstrip.h"
#include "platform/controls/toolbar.h"
#include "platform/profile/profile.h"
#include "program.h"

// Where the four parts of the window lie, and what a person may do about it.
class LayoutTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    Toolbar& Bar() const { return *m_program->form->findChild<Toolbar*>(QStringLiteral("tbTop")); }
    TabStrip& Sidebar() const { return *m_program->form->findChild<TabStrip*>(QStringLiteral("tabSidebar")); }
    QWidget& Client() const { return *m_program->form->findChild<QWidget*>(QStringLiteral("client")); }
    SSPanel& Heading() const { return *m_program->form->findChild<SSPanel*>(QStringLiteral("lblDayOfWeek(0)")); }
    int Stored(const char* section, const char* key) const
    {
        return GetPrivateProfileIntA(QString::fromLatin1(section), QString::fromLatin1(key), 99,
                                     QStringLiteral("PLANNER.INI"));
    }

    // Every part stands where the bars leave room for it, and they fill the client area.
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
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void EveryArrangementFillsTheWindow()
    {
        Program& program = *m_program;
        program.Start();
        for (const QSize size : {QSize(1000, 700), QSize(640, 480), QSize(3840, 2160)}) {
            program.form->resize(size);
            QTRY_COMPARE(Bar().width(), size.width());
            CheckRectangles();
            for (const char* entry : {"mnuViewSBVisible", "mnuViewTBAlignBottom", "mnuViewSBVisible",
                                      "mnuViewTBVisible", "mnuViewTBVisible", "mnuViewTBAlignTop"}) {
                program.Trigger(entry);
                CheckRectangles();
            }
        }
    }

    void TheBarsAreRemembered()
    {
        Program& program = *m_program;
        program.Start();
        program.Trigger("mnuViewTBAlignBottom");
        QCOMPARE(Stored("Mainform Toolbar", "Alignment"), 2);
        QVERIFY(!program.Entry("mnuViewTBAlignTop").isChecked() && program.Entry("mnuViewTBAlignBottom").isChecked());
        program.Trigger("mnuViewTBVisible");
        QCOMPARE(Stored("Mainform Toolbar", "Visible"), 0);
        QVERIFY(!program.Entry("mnuViewTBAlignTop").isEnabled() && !program.Entry("mnuViewTBVisible").isChecked());
        program.Trigger("mnuViewSBVisible");
        QCOMPARE(Stored("Mainform Sidebar", "Visible"), 0);
        program.Exit();
        program.Start();
        QVERIFY(Bar().isHidden() && Sidebar().isHidden());
        program.Trigger("mnuViewTBVisible");
        QCOMPARE(Stored("Mainform Toolbar", "Visible"), -1);
        QVERIFY(Bar().y() > 0);
    }

    void TheToolbarIsDroppedOnASide()
    {
        Program& program = *m_program;
        program.Start();
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
        QCOMPARE(Stored("Mainform Toolbar", "Alignment"), 1);
    }

    void TheTabsBringTheirPageToTheFront()
    {
        Program& program = *m_program;
        program.Start();
        const auto page = [&](int i) {
            return program.form->findChild<QWidget*>(QStringLiteral("fraSidebar(%1)").arg(i))->isVisible();
        };
        QVERIFY(page(0) && !page(1));
        QVERIFY(Sidebar().focusProxy()->hasFocus());
        QTest::keyClick(Sidebar().focusProxy(), Qt::Key_Right);
        QVERIFY(!page(0) && page(1));
        QTest::mouseClick(Sidebar().focusProxy(), Qt::LeftButton, {}, QPoint(8, 8));
        QVERIFY(page(0) && !page(1));
    }
};

QTEST_MAIN(LayoutTest)
#include "layouttest.moc"
