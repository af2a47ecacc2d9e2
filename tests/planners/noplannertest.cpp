#include "planners.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

// The card on the calendar while no planner is open, and what is refused meanwhile.
class NoPlannerTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QWidget& Card() const { return m_program->Find<QWidget>("startCard"); }
    QPushButton& Button(const char* name) const { return m_program->Find<QPushButton>(name); }
    QPushButton& Row(int row) const { return Button(qPrintable(u"btnPlanner(%1)"_s.arg(row))); }

    // The shown planners' names without their ending.
    QString Offered() const
    {
        QStringList names;
        for (int row = 0; row < 5; ++row)
            if (Row(row).isVisible()) names += Row(row).toolTip().section(u'/', -1).chopped(4);
        return names.join(u' ');
    }

    QString Path(const char* name) const { return m_program->folders.Path(QString::fromLatin1(name)); }

    void Restart() const
    {
        m_program->Exit();
        m_program->Start();
    }

    QString SaidTo(const std::function<void()>& act, int answer = msgbox::Ok) const
    {
        SeenBox seen;
        AnswerNextBox(answer, &seen);
        act();
        m_program->Activate();
        return seen.Text;
    }

    static bool ShowsCaret(const RichTextBox& box) { return box.cursorWidth() > 0; }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void TheCardFollowsThePlanner()
    {
        QVERIFY(Card().isVisible());
        QCOMPARE(Offered(), QString());
        for (const char* name : {"a.mdb", "b.mdb"}) {
            MakePlanner(Path(name));
            m_program->Open(QString::fromLatin1(name));
        }
        QVERIFY(Card().isHidden());
        m_program->New(u"made.mdb"_s);
        Restart();
        QCOMPARE(Offered(), u"made b a"_s);
        QCOMPARE(Ini("MRU", "MRU1").section(u'/', -1), u"b.mdb"_s); // the recent list has only what was opened

        Program::AnswerOpenAs(false);
        QTest::mouseClick(&Row(2), Qt::LeftButton);
        m_program->Activate();
        QVERIFY(g_sDBPath.endsWith(u"a.mdb"_s) && g_sDBTitle == u"a.mdb" && Card().isHidden());
        QCOMPARE(m_program->form->focusWidget(), &m_program->Box(18)); // today
        Restart();
        QCOMPARE(Offered(), u"a made b"_s);

        QVERIFY(QFile::remove(Path("a.mdb")));
        Row(0).setFocus();
        for (const auto& [answer, left] : {std::pair(msgbox::No, u"a made b"_s), std::pair(msgbox::Yes, u"made b"_s)}) {
            QVERIFY(
                SaidTo([&] { QTest::keyClick(&Row(0), Qt::Key_Return); }, answer).contains(Path("a.mdb").toLower()));
            QCOMPARE(Offered(), left);
            QVERIFY(Row(0).hasFocus());
        }
        QCOMPARE(Ini("MRU", "MRU1").section(u'/', -1), u"a.mdb"_s); // the recent list drops nothing
        AnswerNextFileDialog(Path("made.mdb"));
        Program::AnswerOpenAs(true);
        QTest::keyClick(&Button("btnOpenPlanner"), Qt::Key_Space);
        m_program->Activate();
        QVERIFY(Card().isHidden() && g_bDBShared);
        Restart();
        QCOMPARE(Offered(), u"made b"_s);

        AnswerNextFileDialog(Path("none/new.mdb"));
        SaidTo([&] { QTest::mouseClick(&Button("btnNewPlanner"), Qt::LeftButton); });
        QVERIFY(Card().isVisible());
    }

    // A planner that does not open closes the open one.
    void CellsRefuseWhatIsTyped()
    {
        const auto isRefused = [&] {
            m_program->Click(20);
            const QString said = SaidTo([&] { QTest::keyClick(&m_program->Box(20), Qt::Key_X); });
            return said.startsWith(u"No Planner Exists!"_s) && m_program->Box(20).Text().isEmpty() &&
                   !ShowsCaret(m_program->Box(20));
        };
        QVERIFY(isRefused());
        QTest::keyClick(&m_program->Box(20), Qt::Key_Escape); // is not typed, so nothing is said
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"typed"_s);
        QVERIFY(ShowsCaret(m_program->Box(20)));
        QCOMPARE(m_program->Box(20).Text(), u"typed"_s);
        m_program->SaidAtOpening(u"none.mdb"_s, true);
        QVERIFY(Button("btnNewPlanner").hasFocus() && m_program->form->testAttribute(Qt::WA_KeyboardFocusChange));
        QVERIFY(isRefused());
    }

    void TheCardStaysWithinTheCells()
    {
        const QString path = u"/"_s + QString(300, u'w');
        for (const auto& [what, view] : Rows<const char*>{{"month", "3"}, {"week", "2"}}) {
            const InRow row(this, what);
            SetIni("VIEW", "VIEWPREF", view);
            for (const char* key : {"MRU1", "MRU2", "MRU3", "MRU4"})
                SetIni("MRU", key, path + QString::fromLatin1(key));
            SetIni("CARD", "PLANNER5", path);
            Restart();
            QVERIFY(Row(4).isVisible());
            Row(4).setFocus();
            m_program->form->resize(480, 360);
            QTRY_COMPARE(m_program->form->centralWidget()->width(), 480);
            const QRect first = m_program->Find<SSPanel>("lblDayOfWeek(0)").geometry();
            const QRect cells(first.bottomLeft(), m_program->Bottom().geometry().topRight());
            QVERIFY(cells.contains(Card().geometry()));
            QVERIFY(Row(0).isVisible() && !Row(4).isVisible() && Card().isAncestorOf(m_program->form->focusWidget()));
            for (QWidget* part : Card().findChildren<QWidget*>())
                QVERIFY(part->isHidden() || Card().rect().contains(part->geometry()));
            m_program->form->resize(1000, 700);
            QTRY_VERIFY(Row(4).isVisible());
        }
    }
};

ORRELIN_TEST(NoPlannerTest)
#include "noplannertest.moc"
