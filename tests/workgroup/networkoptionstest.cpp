#include "platform/profile/profile.h"
#include "program.h"
#include "workgroup/networkoptionform.h"
#include "workgroup/workgroupstate.h"

#include <QCheckBox>

// The options of a workgroup's planner: what the file says and what the running session does.
class NetworkOptionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    static QString Ini(const char* key)
    {
        return GetPrivateProfileStringA(QStringLiteral("Network Options"), QString::fromLatin1(key),
                                        QStringLiteral("none"), 100, QStringLiteral("PLANNER.INI"));
    }

    void Answer(const QString& unlock, const QString& refresh, Qt::Key key)
    {
        OnNextModal<NetworkOptionForm>([=](NetworkOptionForm& form) {
            for (const char* box : {"chkAutoUnlock", "chkAutoRefresh"})
                form.findChild<QCheckBox*>(QString::fromLatin1(box))->click();
            form.findChild<QLineEdit*>(QStringLiteral("txtUnlockDelay"))->setText(unlock);
            form.findChild<QLineEdit*>(QStringLiteral("txtAutoRefreshDelay"))->setText(refresh);
            QTest::keyClick(&form, key);
        });
        m_program->Trigger("mnuNetworkOptions");
        QCOMPARE(WaitingAnswers(), 0);
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void belongsToWorkgroupsAlone()
    {
        m_program->New(QStringLiteral("mine.mdb"));
        QVERIFY(!m_program->Entry("mnuNetworkOptions").isEnabled());
        QVERIFY(!m_program->Entry("mnuLockDay").isEnabled());
        QVERIFY(!m_program->form->findChild<Timer*>(QStringLiteral("tmUnLock"))->Enabled());
    }

    void okWritesAndCounts()
    {
        m_program->New(QStringLiteral("team.mdb"), true);
        g_lRefreshDelay = 77;
        Answer(QStringLiteral("2.5"), QStringLiteral("abc"), Qt::Key_Return);
        QCOMPARE(Ini("AutoUnLock"), QStringLiteral("1"));
        QCOMPARE(Ini("AutoRefresh"), QStringLiteral("1"));
        QCOMPARE(Ini("UnlockDelay"), QStringLiteral("2.5"));
        QCOMPARE(g_lUnlockDelay, 120);
        QCOMPARE(Ini("RefreshDelay"), QStringLiteral("5")); // what is no number leaves the running delay
        QCOMPARE(g_lRefreshDelay, 77);
        QVERIFY(bGeneralUnlockEnable && g_bAutoRefresh);
        QVERIFY(m_program->form->findChild<Timer*>(QStringLiteral("tmAutoRefresh"))->Enabled());
        QVERIFY(!m_program->form->findChild<Timer*>(QStringLiteral("tmUnLock"))->Enabled());
    }

    void cancelChangesNothing()
    {
        m_program->New(QStringLiteral("team.mdb"), true);
        Answer(QStringLiteral("9"), QStringLiteral("9"), Qt::Key_Escape);
        QCOMPARE(Ini("AutoUnLock"), QStringLiteral("none"));
        QVERIFY(!g_bAutoRefresh);
    }
};

QTEST_MAIN(NetworkOptionsTest)
#include "networkoptionstest.moc"
