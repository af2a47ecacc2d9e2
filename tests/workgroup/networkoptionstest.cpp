#include "program.h"
#include "settingsfile.h"
#include "state/workgroupstate.h"
#include "testmain.h"
#include "workgroup/networkoptionform.h"

#include <QCheckBox>

// The options of a workgroup's planner, in the settings file and in the running session.
class NetworkOptionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    void Answer(const QString& unlock, const QString& refresh, Qt::Key key)
    {
        m_program->InWindow<NetworkOptionForm>("mnuNetworkOptions", [=](NetworkOptionForm& form) {
            for (const char* box : {"chkAutoUnlock", "chkAutoRefresh"})
                In<QCheckBox>(form, box).click();
            In<QLineEdit>(form, "txtUnlockDelay").setText(unlock);
            In<QLineEdit>(form, "txtAutoRefreshDelay").setText(refresh);
            QTest::keyClick(&form, key);
        });
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void okWritesAndCounts()
    {
        m_program->New(u"mine.mdb"_s); // the options need a workgroup's planner
        QVERIFY(!m_program->Entry("mnuNetworkOptions").isEnabled() && !m_program->Entry("mnuLockDay").isEnabled());
        QVERIFY(!m_program->Find<Timer>("tmUnLock").Enabled());
        m_program->New(u"team.mdb"_s, true);
        Answer(u"9"_s, u"9"_s, Qt::Key_Escape);
        QCOMPARE(Ini("Network Options", "AutoUnLock"), u"none"_s);
        QVERIFY(!g_bAutoRefresh);
        g_lRefreshDelay = 77;
        Answer(u"2.5"_s, u"abc"_s, Qt::Key_Return);
        for (const auto& [key, value] :
             {std::pair("AutoUnLock", "1"), {"AutoRefresh", "1"}, {"UnlockDelay", "2.5"}, {"RefreshDelay", "5"}})
            QCOMPARE(Ini("Network Options", key), QString::fromLatin1(value));
        QCOMPARE(g_lUnlockDelay, 120);
        QCOMPARE(g_lRefreshDelay, 77); // an invalid number leaves the running delay
        QVERIFY(bGeneralUnlockEnable && g_bAutoRefresh);
        QVERIFY(m_program->Find<Timer>("tmAutoRefresh").Enabled() && !m_program->Find<Timer>("tmUnLock").Enabled());
    }
};

ORRELIN_TEST(NetworkOptionsTest)
#include "networkoptionstest.moc"
