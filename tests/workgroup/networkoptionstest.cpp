#include "program.h"
#include "settingsfile.h"
#include "state/workgroupstate.h"
#include "testmain.h"
#include "workgroup/networkoptionform.h"

#include <QCheckBox>

// The options of a workgroup's planner: what the file says and what the running session does.
class NetworkOptionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    void Answer(const QString& unlock, const QString& refresh, Qt::Key key)
    {
        OnNextModal<NetworkOptionForm>([=](NetworkOptionForm& form) {
            for (const char* box : {"chkAutoUnlock", "chkAutoRefresh"})
                In<QCheckBox>(form, box).click();
            In<QLineEdit>(form, "txtUnlockDelay").setText(unlock);
            In<QLineEdit>(form, "txtAutoRefreshDelay").setText(refresh);
            QTest::keyClick(&form, key);
        });
        m_program->Trigger("mnuNetworkOptions");
        QCOMPARE(WaitingAnswers(), 0);
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void belongsToWorkgroupsAlone()
    {
        m_program->New(u"mine.mdb"_s);
        QVERIFY(!m_program->Entry("mnuNetworkOptions").isEnabled());
        QVERIFY(!m_program->Entry("mnuLockDay").isEnabled());
        QVERIFY(!m_program->Find<Timer>("tmUnLock").Enabled());
    }

    void okWritesAndCounts()
    {
        m_program->New(u"team.mdb"_s, true);
        g_lRefreshDelay = 77;
        Answer(u"2.5"_s, u"abc"_s, Qt::Key_Return);
        QCOMPARE(Ini("Network Options", "AutoUnLock"), u"1"_s);
        QCOMPARE(Ini("Network Options", "AutoRefresh"), u"1"_s);
        QCOMPARE(Ini("Network Options", "UnlockDelay"), u"2.5"_s);
        QCOMPARE(g_lUnlockDelay, 120);
        QCOMPARE(Ini("Network Options", "RefreshDelay"),
                 u"5"_s); // what is no number leaves the running delay
        QCOMPARE(g_lRefreshDelay, 77);
        QVERIFY(bGeneralUnlockEnable && g_bAutoRefresh);
        QVERIFY(m_program->Find<Timer>("tmAutoRefresh").Enabled());
        QVERIFY(!m_program->Find<Timer>("tmUnLock").Enabled());
    }

    void cancelChangesNothing()
    {
        m_program->New(u"team.mdb"_s, true);
        Answer(u"9"_s, u"9"_s, Qt::Key_Escape);
        QCOMPARE(Ini("Network Options", "AutoUnLock"), u"none"_s);
        QVERIFY(!g_bAutoRefresh);
    }
};

ORRELIN_TEST(NetworkOptionsTest)
#include "networkoptionstest.moc"
