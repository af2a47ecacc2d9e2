// Files that are no planners, damaged, read-only, or on a full disk.
#include "enginetesting.h"
#include "files.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"

#include <QDir>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>

#include <sqlite3.h>
#include <unistd.h>

using namespace engineerrors;

namespace {
// A folder that nobody may write, root included where this runs as root: then a read-only mount.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString& path) : m_path(QFile::encodeName(path)), m_mounted(::geteuid() == 0)
    {
        if (!m_mounted) ::chmod(m_path, 0500);
        if (m_mounted && (::mount(m_path, m_path, nullptr, MS_BIND, nullptr) != 0 ||
                          ::mount(nullptr, m_path, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) != 0))
            qFatal("This root may not mount");
    }
    ~ReadOnlyFolder() { m_mounted ? ::umount2(m_path, MNT_DETACH) : ::chmod(m_path, 0700); }

private:
    QByteArray m_path;
    bool m_mounted;
};

// A folder with little room. Root gets a small drive of its own; others a limit on the size of files, which the
// system reports as an I/O error.
class LittleRoom
{
public:
    explicit LittleRoom(const QString& path) : m_path(QFile::encodeName(path)), m_mounted(::geteuid() == 0)
    {
        if (m_mounted) {
            if (::mount("tmpfs", m_path, "tmpfs", 0, "size=256k") != 0) qFatal("This root may not mount");
            return;
        }
        m_limit.emplace(200000);
    }
    ~LittleRoom()
    {
        if (m_mounted) ::umount2(m_path, MNT_DETACH);
    }
    int Error() const { return m_mounted ? DiskFull : InputOutput; }

private:
    QByteArray m_path;
    bool m_mounted;
    std::optional<FullDisk> m_limit;
};
} // namespace

class PlannerFileTest : public QObject
{
    Q_OBJECT

    const QString m_key = u"1999/3/7"_s;
    std::optional<QTemporaryDir> m_folder;
    QString m_path;

    void MakePlanner(const QString& path) const
    {
        Database database = DBEngine::CreateDatabase(path, {});
        database.Append(DayTable());
        Recordset days = Days(database);
        WriteTransaction month(database);
        for (int day = 1; day <= 31; ++day)
            Write(days, u"1999/3/%1"_s.arg(day), QByteArray(6000, 'x'));
        month.Commit();
    }

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_path = m_folder->filePath(u"notes.mdb"_s);
        MakePlanner(m_path);
    }

    // The server's client library brings some twenty others, which a planner in a file has no use for.
    void NothingOfTheServerIsLinked()
    {
        QProcess ldd;
        ldd.start(u"ldd"_s, {QCoreApplication::applicationFilePath()});
        QVERIFY(ldd.waitForFinished());
        const QByteArray libraries = ldd.readAll();
        QVERIFY(libraries.contains("libsqlite3") && !libraries.contains("libpq"));
    }

    void WhatIsNoPlannerIsRefusedAndLeftAlone_data()
    {
        QTest::addColumn<qint64>("size"); // the planner is cut there; -1 is whole
        QTest::addColumn<int>("at");      // bytes to be put there
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("part"); // of the message
        QTest::newRow("0 bytes") << qint64{0} << 0 << QByteArray() << "is not a planner";
        QTest::newRow("few bytes") << qint64{7} << 0 << QByteArray() << "is not a planner";
        QTest::newRow("cut in the first page") << qint64{1000} << 0 << QByteArray() << "damaged";
        QTest::newRow("cut between pages") << qint64{4096 * 7} << 0 << QByteArray() << "damaged";
        QTest::newRow("plain text") << qint64{0} << 0 << QByteArray(3000, 'a') << "is not a planner";
        QTest::newRow("rubbish") << qint64{-1} << 0 << QByteArray(200, '\xa7') << "is not a planner";
        QTest::newRow("another program's") << qint64{-1} << 68 << QByteArray(4, '\x01') << "is not a planner";
        QTest::newRow("no version") << qint64{-1} << 60 << QByteArray(4, '\0') << "is not a planner";
        QTest::newRow("newer version") << qint64{-1} << 60 << QByteArray("\0\0\0\2", 4) << "newer Orrelin";
        QTest::newRow("damaged schema") << qint64{-1} << 100 << QByteArray(300, '\xff') << "damaged";
    }

    void WhatIsNoPlannerIsRefusedAndLeftAlone()
    {
        QFETCH(qint64, size);
        QFETCH(int, at);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, part);
        QByteArray content = Content(m_path);
        if (size >= 0) content.truncate(size);
        content.replace(at, bytes.size(), bytes);
        SetContent(m_path, content);
        QVERIFY(QFile::remove(m_path.chopped(4) + ".ldb"_L1));
        for (const bool exclusive : {false, true}) {
            QString text;
            QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path, exclusive); }, &text), NotADatabase);
            QVERIFY2(text.contains(part), qPrintable(text));
        }
        QVERIFY(Content(m_path) == content);
        QVERIFY(!QFile::exists(m_path.chopped(4) + ".ldb"_L1)); // nor litter beside it
    }

    void PathsThatCannotBeUsed()
    {
        const QString folder = m_folder->path();
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(folder); }), NotADatabase);
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(folder + "/gone.mdb"_L1); }), FileNotFound);
        QVERIFY(!QFile::exists(folder + "/gone.mdb"_L1));
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path + "/a.mdb"_L1); }), FileNotFound);
        QCOMPARE(ErrorOf([&] { DBEngine::DeleteDatabase(folder + "/gone.mdb"_L1); }), FileNotFound);
        QCOMPARE(ErrorOf([&] { DBEngine::CreateDatabase(folder + "/gone/a.mdb"_L1, {}); }), InvalidPath);
        const QByteArray before = Content(m_path);
        QCOMPARE(ErrorOf([&] { DBEngine::CreateDatabase(m_path, {}); }), FileExists);
        QVERIFY(Content(m_path) == before);
    }

    void NothingIsOpenedThatCannotBeWritten()
    {
        {
            const ReadOnlyFolder readOnly(m_folder->path());
            QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), ::geteuid() == 0 ? ReadOnlyFile : 0);
            QCOMPARE(ErrorOf([&] { DBEngine::DeleteDatabase(m_path); }), ReadOnlyFile);
        }
        QVERIFY(QFile::remove(m_path + "-journal"_L1));
        const ReadOnlyFolder readOnly(m_folder->path());
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }), ReadOnlyFile);
    }

    void AFullDiskKeepsWhatWasSaved()
    {
        const QString folder = m_folder->filePath(u"little"_s);
        QVERIFY(QDir().mkdir(folder));
        const LittleRoom room(folder);
        const QString path = folder + "/a.mdb"_L1;
        Database database = DBEngine::CreateDatabase(path, {});
        database.Append(DayTable());
        Recordset days = Days(database);
        Write(days, m_key, "small");
        QCOMPARE(ErrorOf([&] { Write(days, m_key, QByteArray(500000, 'x')); }), room.Error());
        QCOMPARE(days.Fields(u"qmtText"_s).toByteArray().size(), 500000); // the typing is still there
        QCOMPARE(Read(days, m_key), QByteArray("small"));
        {
            WriteTransaction group(database);
            Write(days, u"first"_s, "undone with the rest");
            const int error = ErrorOf([&] {
                Write(days, u"second"_s, QByteArray(300000, 'x'));
                Write(days, u"third"_s, "too late");
                group.Commit();
            });
            QCOMPARE(error, room.Error());
        }
        Write(days, u"1999/3/8"_s, "goes on");
        database = DBEngine::OpenDatabase(path);
        days = Days(database);
        QCOMPARE(Read(days, u"1999/3/8"_s), QByteArray("goes on"));
        QCOMPARE(Read(days, u"first"_s), QByteArray("absent"));
    }

    void AGroupThatWasGivenUpSaysSoAtItsCommit()
    {
        const QString folder = m_folder->filePath(u"little"_s);
        QVERIFY(QDir().mkdir(folder));
        const LittleRoom room(folder);
        Database database = DBEngine::CreateDatabase(folder + "/a.mdb"_L1, {});
        database.Append(DayTable());
        Recordset days = Days(database);
        WriteTransaction group(database);
        Write(days, m_key, "kept or told to be lost");
        // More than the cache holds, so that the disk is full before the end.
        ErrorOf([&] { Write(days, u"second"_s, QByteArray(9000000, 'x')); });
        const int later = ErrorOf([&] { Write(days, u"third"_s, "small"); });
        const int commit = ErrorOf([&] { group.Commit(); });
        const bool kept = Read(days, m_key) != "absent";
        QCOMPARE(kept, commit == 0);
        QCOMPARE(Read(days, u"third"_s) != "absent", later == 0 && commit == 0);
    }

    void ALabelThatNobodyHoldsNamesNobody()
    {
        OtherProgram other;
        other.Open(m_path, true);
        QFile table(m_path.chopped(4) + ".ldb"_L1);
        QVERIFY(table.open(QIODevice::ReadWrite));
        QVERIFY(table.size() > 0);
        table.write(QByteArray(static_cast<int>(table.size()), '\0'));
        table.close();
        QString text;
        QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path); }, &text), InUse);
        QVERIFY2(text.endsWith("already in use by another user."_L1), qPrintable(text));
    }

    void DamageFoundOnTheWayIsTold()
    {
        QByteArray content = Content(m_path);
        content.replace(4096 * 20, 4096 * 10, QByteArray(4096 * 10, '\x5a'));
        SetContent(m_path, content);
        Database database = DBEngine::OpenDatabase(m_path);
        Recordset days = Days(database);
        int damaged = 0;
        for (int day = 1; day <= 31; ++day) {
            const int error = ErrorOf([&] { Read(days, u"1999/3/%1"_s.arg(day)); });
            QVERIFY2(error == 0 || error == NotADatabase, qPrintable(QString::number(error)));
            if (error != 0) ++damaged;
            // A record that could not be read is not taken for the one before it.
            if (error != 0) QCOMPARE(ErrorOf([&] { days.Edit(); }), NoCurrentRecord);
        }
        QVERIFY(damaged > 0 && damaged < 31);
    }

    void AVanishedFileIsTold()
    {
        Database database = DBEngine::OpenDatabase(m_path);
        Recordset days = Days(database);
        m_folder->remove();
        QCOMPARE(ErrorOf([&] { Write(days, m_key, "x"); }), InputOutput);
        m_folder.emplace();
        MakePlanner(m_folder->filePath(u"notes.mdb"_s)); // another file under the old name stays apart
    }

    void ACommitThatCannotGetThroughIsTold()
    {
        Database database = DBEngine::OpenDatabase(m_path);
        Recordset days = Days(database);
        sqlite3* reader = nullptr;
        sqlite3_open(QFile::encodeName(m_path), &reader);
        const auto close = qScopeGuard([&] { sqlite3_close(reader); });
        sqlite3_exec(reader, "BEGIN; SELECT * FROM \"QMT Table\"", nullptr, nullptr, nullptr);
        days.Seek(u"="_s, m_key);
        days.Edit();
        days.SetField(u"qmtText"_s, QByteArray("typed"));
        QCOMPARE(ErrorOf([&] { days.Update(); }), CouldNotSave);
        sqlite3_exec(reader, "COMMIT; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        QCOMPARE(ErrorOf([&] { WriteTransaction group(database); }), CouldNotSave);
        Recordset second;
        QCOMPARE(ErrorOf([&] { second = database.OpenTable(u"QMT Table"_s); }), Busy);
        sqlite3_exec(reader, "COMMIT", nullptr, nullptr, nullptr);
        days.Update(); // the same typing, once the way is free
        QCOMPARE(Read(days, m_key), QByteArray("typed"));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(PlannerFileTest)
#include "plannerfiletest.moc"
