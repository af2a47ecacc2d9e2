#include "program.h"
#include "settingsfile.h"
#include "shell/autoloadform.h"

#include <QCheckBox>

// The start-up options and what the next start makes of them.
class AutoloadTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    // Clicks the named controls of the dialog and leaves it by the key.
    void Customize(const QStringList& clicks, Qt::Key key)
    {
        OnNextModal<AutoloadForm>([=](AutoloadForm& form) {
            for (const QString& name : clicks)
                form.findChild<QAbstractButton*>(name)->click();
            QTest::keyClick(&form, key);
        });
        m_program->Trigger("mnuAutoload");
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void ThePlannerIsThereAtTheNextStart()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("found again"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)")}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
        QCOMPARE(Ini("QMT2LOAD", "FILETITLE"), QStringLiteral("notes.mdb"));
        QVERIFY(Content(folders::WindowsDirectory() + QStringLiteral("/PLANNER.INI")).contains("\nTITLESIZE= 9\n"));
        QCOMPARE(Ini("VIEW", "VIEWPREF"), QStringLiteral("3"));
        m_program->Exit();
        m_program->Start();
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("found again"));
        QVERIFY(m_program->form->windowTitle().endsWith(QStringLiteral("notes.mdb")));

        // Cancelled, nothing changes; cleared, the path goes.
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("chkMinimized")}, Qt::Key_Escape);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
        QCOMPARE(Ini("VIEW", "MINIMIZED"), QStringLiteral("0"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(0)")}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("0"));
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), QString());
        SetIni("QMT2LOAD", "LOAD CONDITION", "1"); // without a path it is none
        m_program->Exit();
        m_program->Start();
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(m_program->Panel(36).Caption(), QStringLiteral(" 14"));
    }

    void AMinimisedStartKnowsItsNotesWhenItComesBack()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("found again"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)"), QStringLiteral("chkMinimized")},
                  Qt::Key_Return);
        m_program->Exit();
        m_program->form = std::make_unique<Mainform>();
        m_program->form->Form_Load([](const QString&) {}, [] {});
        QVERIFY(m_program->form->isMinimized());
        m_program->form->showNormal();
        QTRY_VERIFY(m_program->Bottom().isVisible());
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("found again"));
        QVERIFY(m_program->Find<QWidget>("tabSidebar").isVisible());
    }

    void AWorkgroupsPlannerOpensSharedAtTheNextStart()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opShared(1)"), QStringLiteral("opStartupView(1)")},
                  Qt::Key_Return);
        m_program->Exit();
        const Database other = DBEngine::OpenDatabase(m_program->folders.Path(QStringLiteral("notes.mdb")));
        m_program->Start();
        QVERIFY(g_bDBShared && !g_sDBPath.isEmpty());
        QVERIFY(m_program->Box(20).Locked());
        QVERIFY(!m_program->Entry("mnuSave").isEnabled());
    }

    void APlannerThatIsGoneGivesTheMessageAtEachStart()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)")}, Qt::Key_Return);
        m_program->Exit();
        QVERIFY(QFile::remove(m_program->folders.Path(QStringLiteral("notes.mdb"))));
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Start();
        QVERIFY(seen.Text.contains(QStringLiteral("notes.mdb")));
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
    }
};

QTEST_MAIN(AutoloadTest)
#include "autoloadtest.moc"
