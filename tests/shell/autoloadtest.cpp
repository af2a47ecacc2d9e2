#include "program.h"
#include "settingsfile.h"
#include "shell/autoloadform.h"
#include "testmain.h"

// The start-up options and their effect on the next start.
class AutoloadTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    // Clicks the named controls of the dialog and closes it with the key.
    void Customize(const QStringList& clicks, Qt::Key key)
    {
        m_program->InWindow<AutoloadForm>("mnuAutoload", [=](AutoloadForm& form) {
            for (const QString& name : clicks)
                form.findChild<QAbstractButton*>(name)->click();
            QTest::keyClick(&form, key);
        });
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void ThePlannerIsThereAtTheNextStart()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"found again"_s);
        Customize({u"chkAutoload"_s, u"opStartupView(1)"_s}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), u"1"_s);
        QCOMPARE(Ini("QMT2LOAD", "FILETITLE"), u"notes.mdb"_s);
        QVERIFY(Content(folders::WindowsDirectory() + u"/PLANNER.INI"_s).contains("\nTITLESIZE= 9\n"));
        QCOMPARE(Ini("VIEW", "VIEWPREF"), u"3"_s);
        m_program->Exit();
        m_program->Start();
        QCOMPARE(m_program->Box(20).Text(), u"found again"_s);
        QVERIFY(m_program->form->windowTitle().endsWith(u"notes.mdb"_s));

        // Cancel changes nothing. Clearing the option clears the path.
        Customize({u"chkAutoload"_s, u"chkMinimized"_s}, Qt::Key_Escape);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), u"1"_s);
        QCOMPARE(Ini("VIEW", "MINIMIZED"), u"0"_s);
        Customize({u"chkAutoload"_s, u"opStartupView(0)"_s}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), u"0"_s);
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), QString());
        SetIni("QMT2LOAD", "LOAD CONDITION", "1"); // without a path the option has no effect
        m_program->Exit();
        m_program->Start();
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(m_program->Panel(36).Caption(), u" 14"_s);
    }

    void AMinimisedStartKnowsItsNotesWhenItComesBack()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"found again"_s);
        Customize({u"chkAutoload"_s, u"opStartupView(1)"_s, u"chkMinimized"_s}, Qt::Key_Return);
        m_program->Exit();
        m_program->form = std::make_unique<Mainform>();
        m_program->form->Form_Load([](const QString&) {}, [] {});
        QVERIFY(m_program->form->isMinimized());
        m_program->form->showNormal();
        QTRY_VERIFY(m_program->Bottom().isVisible());
        QCOMPARE(m_program->Box(20).Text(), u"found again"_s);
        QVERIFY(m_program->Find<QWidget>("tabSidebar").isVisible());
    }

    void AWorkgroupsPlannerOpensSharedAtTheNextStart()
    {
        for (const auto& [what, isAsked] : Rows<bool>{{"by the options", false}, {"by the question", true}}) {
            const InRow row(this, what);
            if (isAsked) {
                m_program->New(u"notes.mdb"_s, true, true);
            } else {
                m_program->New(u"notes.mdb"_s);
                Customize({u"chkAutoload"_s, u"opShared(1)"_s, u"opStartupView(1)"_s}, Qt::Key_Return);
            }
            m_program->Exit();
            const Database other = DBEngine::OpenDatabase(m_program->folders.Path(u"notes.mdb"_s));
            m_program->Start();
            QVERIFY(g_bDBShared && !g_sDBPath.isEmpty());
            QVERIFY(m_program->Box(20).Locked());
            QVERIFY(!m_program->Entry("mnuSave").isEnabled());
        }
    }

    // An answer that leaves the tick as it is changes no option, and neither does a planner that does not open.
    void TheQuestionChangesTheStartOnlyWhenAsked()
    {
        m_program->New(u"notes.mdb"_s, true, true);
        const QString path = g_sDBPath;
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), path);
        QCOMPARE(Ini("VIEW", "VIEWPREF"), u"none"_s);
        m_program->Open(u"notes.mdb"_s, false); // personal this once
        m_program->New(u"other.mdb"_s);
        AnswerNextFileDialog(m_program->folders.Path(u"gone.mdb"_s));
        Program::AnswerOpenAs(false, true);
        QVERIFY(m_program->Said("mnuOpen").Text.contains(u"gone.mdb"_s));
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), path);
        QCOMPARE(Ini("QMT2LOAD", "WORKGROUP"), u"1"_s);
        m_program->Open(u"notes.mdb"_s, false, true); // clears it
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), u"0"_s);
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), QString());
    }

    void APlannerThatIsGoneGivesTheMessageAtEachStart()
    {
        m_program->New(u"notes.mdb"_s);
        Customize({u"chkAutoload"_s, u"opStartupView(1)"_s}, Qt::Key_Return);
        m_program->Exit();
        QVERIFY(QFile::remove(m_program->folders.Path(u"notes.mdb"_s)));
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Start();
        QVERIFY(seen.Text.contains(u"notes.mdb"_s));
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), u"1"_s);
    }
};

ORRELIN_TEST(AutoloadTest)
#include "autoloadtest.moc"
