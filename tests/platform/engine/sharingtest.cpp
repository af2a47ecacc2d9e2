// Two programs and one planner, in a file or on a server: open modes, and the state after one of them is killed.
#include "enginetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/syscall.h>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <unistd.h>

using namespace engineerrors;

namespace {
bool g_hasLocks = true; // of the drive
}

// Stands in for the C library's, in the engine too.
extern "C" int fcntl(int file, int command, ...)
{
    va_list rest;
    va_start(rest, command);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    if (g_hasLocks || command != F_OFD_SETLK) return int(::syscall(SYS_fcntl, file, command, argument));
    errno = ENOLCK;
    return -1;
}

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
        QString text;
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path, true); }, &text), InUse);
        QVERIFY2(text.endsWith("already in use by "_L1 + OtherProgram::Name()), qPrintable(text));
        Recordset days = Days(first);
        Write(days, m_key, "still mine");
        other.Do({u"seek"_s, m_key});
        QCOMPARE(other.Do({u"edit"_s}), u"0"_s);
        days.Seek(u"="_s, m_key);
        QCOMPARE(ErrorOf([&] { days.Edit(); }, &text), RecordLocked);
        QCOMPARE(text, u"Could not update; currently locked by "_s + OtherProgram::Name());
        other.Kill();
        QVERIFY(CanOpen(m_path, false));
        QVERIFY(!CanOpen(m_path, true));
    }

    // A server has locks of its own.
    void ADriveWithoutLocksKeepsAPlannerFileClosed()
    {
        QFETCH_GLOBAL(bool, onServer);
        for (const bool exclusive : {false, true}) {
            g_hasLocks = false;
            const int error = ErrorOf([&] { DBEngine::OpenDatabase(m_path, exclusive); });
            g_hasLocks = true;
            QCOMPARE(error, onServer ? 0 : NoLocks);
            QVERIFY(CanOpen(m_path, exclusive));
        }
    }

    void ALinkedPathIsTheSamePlanner()
    {
        const QString link = m_folder.filePath(u"link%1.mdb"_s.arg(m_count));
        QVERIFY(QFile::link(m_path, link));
        Database database = DBEngine::OpenDatabase(link, true);
        QVERIFY(!CanOpen(m_path, false));
    }

    // A server takes a moment to notice a dead session.
    void AKilledUserHoldsNoPlanner()
    {
        for (const bool exclusive : {false, true}) {
            OtherProgram other;
            QCOMPARE(other.Open(m_path, exclusive), u"0"_s);
            other.Kill();
            QTRY_COMPARE_WITH_TIMEOUT(ErrorOf([&] { DBEngine::OpenDatabase(m_path, true); }), 0,
                                      TestServer::LongestWait);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(SharingTest)
#include "sharingtest.moc"
