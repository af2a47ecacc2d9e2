#include "testmain.h"
#include "workgroupprogram.h"

// Two desks: the program and another process, with a planner in a file and on a server.
class DesksTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    QString m_path;

    // Kills the other process, as a power cut would. A server takes a moment to notice.
    static void Kill(OtherProgram& other, int sessionsLeft)
    {
        other.Kill();
        QFETCH_GLOBAL(bool, onServer);
        const QString sessions = u"SELECT pid FROM pg_stat_activity WHERE application_name LIKE 'Orrelin%'"_s;
        if (onServer) QTRY_COMPARE(TestServer::Get().Ask(sessions).size(), sessionsLeft);
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }

    void init()
    {
        QFETCH_GLOBAL(bool, onServer);
        m_program = std::make_unique<WorkgroupProgram>();
        m_path = m_program->folders.Path(m_program->File);
        m_program->MakePlanner(onServer);
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void WhoOpensHowMeetsWhoHasItOpenHow()
    {
        const QString refusal = u"Could not use 'team.mdb'; file already in use by "_s + OtherProgram::Name();
        for (int way = 0; way < 8; ++way) {
            const bool theirsIsPersonal = way & 1, mineIsPersonal = way & 2, theyCameFirst = way & 4;
            const InRow row(this, u"theirs personal %1, mine %2, they first %3"_s.arg(theirsIsPersonal)
                                      .arg(mineIsPersonal)
                                      .arg(theyCameFirst));
            const bool meet = !theirsIsPersonal && !mineIsPersonal;
            OtherProgram other;
            if (!theyCameFirst) {
                m_program->Open(m_program->File, !mineIsPersonal);
                QCOMPARE(other.Open(m_path, theirsIsPersonal), meet ? u"0"_s : u"3045 "_s + refusal);
                QVERIFY(HasPlanner());
                continue;
            }
            QCOMPARE(other.Open(m_path, theirsIsPersonal), u"0"_s);
            AnswerNextFileDialog(m_path);
            Program::AnswerOpenAs(!mineIsPersonal);
            if (meet) m_program->Trigger("mnuOpen");
            if (!meet) QCOMPARE(m_program->Said("mnuOpen").Text, refusal);
            QCOMPARE(HasPlanner(), meet);
            Kill(other, meet ? 1 : 0);
            m_program->Open(m_program->File, !mineIsPersonal);
            QVERIFY(HasPlanner());
        }
    }

    void ADayIsHeldUntilItsHolderDies()
    {
        OtherProgram other;
        other.Open(m_path, false);
        other.Do({u"write"_s, m_program->Key, u"theirs"_s});
        m_program->Open(m_program->File, true);
        other.Do({u"seek"_s, m_program->Key});
        QCOMPARE(other.Do({u"edit"_s}), u"0"_s);
        m_program->Click(WorkgroupProgram::Cell);
        QCOMPARE(m_program->PressLockAndHear(), u"Could not update; currently locked by "_s + OtherProgram::Name());
        QVERIFY(m_program->ShowsFree());
        m_program->Click(20); // other days can be edited
        m_program->PressLock();
        QVERIFY(m_program->ShowsLocked());
        m_program->PressLock();
        Kill(other, 1);
        m_program->LockAndType(u" and mine"_s);
        OtherProgram third;
        third.Open(m_path, false);
        third.Do({u"seek"_s, m_program->Key});
        QCOMPARE(third.Do({u"edit"_s}), u"3260 Could not update; currently locked by "_s + OtherProgram::Name());
        m_program->PressLock();
        QVERIFY(m_program->ShowsFree());
        QCOMPARE(PlainText(m_program->Stored(m_program->File, m_program->Key)), u"theirs and mine"_s);
    }
};

ORRELIN_TEST(DesksTest)

#include "deskstest.moc"
