#include "platform/profile/profile.h"
#include "program.h"
#include "shell/autoloadform.h"

#include <QCheckBox>

// The start-up options and what the next start makes of them.
class AutoloadTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Ini(const char* section, const char* key)
    {
        return GetPrivateProfileStringA(QString::fromLatin1(section), QString::fromLatin1(key), QStringLiteral("none"),
                                        100, QStringLiteral("PLANNER.INI"));
    }

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
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void WithoutAPlannerThereIsOnlyAMessage()
    {
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuAutoload");
        QVERIFY(seen.Text.contains(QStringLiteral("planner or\n\nUse 'File | Open'")));
    }

    void ThePlannerIsThereAtTheNextStart()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("found again"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)")}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
        QCOMPARE(Ini("QMT2LOAD", "FILETITLE"), QStringLiteral("notes.mdb"));
        QCOMPARE(Ini("QMT2LOAD", "TITLESIZE").trimmed(), QStringLiteral("9"));
        QCOMPARE(Ini("VIEW", "VIEWPREF"), QStringLiteral("3"));
        program.Exit();
        program.Start();
        QCOMPARE(program.Box(20).Text(), QStringLiteral("found again"));
        QVERIFY(program.form->windowTitle().endsWith(QStringLiteral("notes.mdb")));

        // Cancelled, nothing changes; cleared, the path goes.
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("chkMinimized")}, Qt::Key_Escape);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
        QCOMPARE(Ini("VIEW", "MINIMIZED"), QStringLiteral("0"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(0)")}, Qt::Key_Return);
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("0"));
        QCOMPARE(Ini("QMT2LOAD", "FILEPATH"), QString());
        program.Exit();
        program.Start();
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(program.Panel(36).Caption(), QStringLiteral(" 14"));
    }

    void AMinimisedStartKnowsItsNotesWhenItComesBack()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("found again"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)"), QStringLiteral("chkMinimized")},
                  Qt::Key_Return);
        program.Exit();
        program.form = std::make_unique<Mainform>();
        program.form->Form_Load([](const QString&) {}, [] {});
        QVERIFY(program.form->isMinimized());
        program.form->showNormal();
        QTRY_VERIFY(program.Bottom().isVisible());
        QCOMPARE(program.Box(20).Text(), QStringLiteral("found again"));
        QVERIFY(program.form->findChild<QWidget*>(QStringLiteral("tabSidebar"))->isVisible());
    }

    void AWorkgroupsPlannerOpensSharedAtTheNextStart()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opShared(1)"), QStringLiteral("opStartupView(1)")},
                  Qt::Key_Return);
        program.Exit();
        const Database other = DBEngine::OpenDatabase(program.folders.Path(QStringLiteral("notes.mdb")));
        program.Start();
        QVERIFY(g_bDBShared && !g_sDBPath.isEmpty());
        QVERIFY(program.Box(20).Locked());
        QVERIFY(!program.Entry("mnuSave").isEnabled());
    }

    void APlannerThatIsGoneGivesTheMessageAtEachStart()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        Customize({QStringLiteral("chkAutoload"), QStringLiteral("opStartupView(1)")}, Qt::Key_Return);
        program.Exit();
        QVERIFY(QFile::remove(program.folders.Path(QStringLiteral("notes.mdb"))));
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        program.Start();
        QVERIFY(seen.Text.contains(QStringLiteral("notes.mdb")));
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(Ini("QMT2LOAD", "LOAD CONDITION"), QStringLiteral("1"));
    }
};

QTEST_MAIN(AutoloadTest)
#include "autoloadtest.moc"
