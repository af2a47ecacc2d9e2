// Two programs and one planner, in a file or on a server: open modes, and an open that fails.
#include "enginetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace engineerrors;

class SharingTest : public QObject
{
    Q_OBJECT

    const QString m_key = u"1999/3/7"_s;
    QTemporaryDir m_folder;
    QString m_path;
    int m_count = 0;

    static bool CanOpen(const QString& path, bool exclusive)
    {
        OtherProgram other;
        return other.Open(path, exclusive) == u"0";
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }

    void init()
    {
        m_path = m_folder.filePath(u"notes%1.mdb"_s.arg(++m_count));
        MakeStore(m_path, DayTable()).Close();
    }

    void APlannerIsOpenedAgainInAnotherWay()
    {
        for (const auto& [theirs, mine] : {std::pair(false, false), {false, true}, {true, false}, {true, true}}) {
            const InRow inRow(this, u"%1 behind %2"_s.arg(mine).arg(theirs));
            Database first = DBEngine::OpenDatabase(m_path, theirs);
            Recordset firstDays = Days(first);
            Write(firstDays, m_key, "first"); // an exclusive connection locks the file at its first write
            {
                Database second = DBEngine::OpenDatabase(m_path, mine);
                Recordset days = Days(second);
                QCOMPARE(Read(days, m_key), QByteArray("first"));
                QCOMPARE(CanOpen(m_path, false), !mine);
                Write(days, m_key, "second");
            }
            QCOMPARE(Read(firstDays, m_key), QByteArray("second"));
            QCOMPARE(CanOpen(m_path, false), !theirs);
            QCOMPARE(CanOpen(m_path, true), false);
        }
    }

    void AFailedOpenLeavesTheFirstOneAsItWas()
    {
        OtherProgram other;
        Database first = DBEngine::OpenDatabase(m_path);
        QCOMPARE(other.Open(m_path, false), u"0"_s);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path, true); }), InUse);
        Recordset days = Days(first);
        Write(days, m_key, "still mine");
        other.Kill();
        QVERIFY(CanOpen(m_path, false));
        QVERIFY(!CanOpen(m_path, true));
    }

    void ALinkedPathIsTheSamePlanner()
    {
        const QString link = m_folder.filePath(u"link%1.mdb"_s.arg(m_count));
        QVERIFY(QFile::link(m_path, link));
        Database database = DBEngine::OpenDatabase(link, true);
        QVERIFY(!CanOpen(m_path, false));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(SharingTest)
#include "sharingtest.moc"
