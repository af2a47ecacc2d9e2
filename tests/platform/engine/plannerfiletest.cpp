// Files that are no planners, damaged, read-only, or on a full disk.
#include "enginetesting.h"
#include "files.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"

#include <QDir>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <sys/stat.h>

#include <sqlite3.h>
#include <unistd.h>

using namespace engineerrors;

namespace {
// A folder that nobody can write. If this runs as root, it is a read-only mount.
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

// A folder with little room. Root gets a small drive; others get a limit on the size of files, which the system reports
// as an I/O error.
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

    // The server's client library loads some twenty others, which planners in files do not need.
    void NothingOfTheServerIsLinked()
    {
        QProcess ldd;
        ldd.start(u"ldd"_s, {QCoreApplication::applicationFilePath()});
        QVERIFY(ldd.waitForFinished());
        const QByteArray libraries = ldd.readAll();
        QVERIFY(libraries.contains("libsqlite3") && !libraries.contains("libpq"));
    }

    void WhatIsNoPlannerIsRefusedAndLeftAlone()
    {
        // size: where the planner is cut; at: the place of the new bytes; part: of the message
        struct
        {
            const char* name;
            qsizetype size;
            int at;
            QByteArray bytes;
            QString part;
        } const rows[] = {
            {"0 bytes", 0, 0, {}, u"is not a planner"_s},
            {"few bytes", 7, 0, {}, u"is not a planner"_s},
            {"cut in the first page", 1000, 0, {}, u"damaged"_s},
            {"cut between pages", 4096 * 7, 0, {}, u"damaged"_s},
            {"plain text", 0, 0, QByteArray(3000, 'a'), u"is not a planner"_s},
            {"rubbish", 1 << 30, 0, QByteArray(200, '\xa7'), u"is not a planner"_s},
            {"another program's", 1 << 30, 68, QByteArray(4, '\x01'), u"is not a planner"_s},
            {"no version", 1 << 30, 60, QByteArray(4, '\0'), u"is not a planner"_s},
            {"newer version", 1 << 30, 60, QByteArray("\0\0\0\2", 4), u"newer Orrelin"_s},
            {"damaged schema", 1 << 30, 100, QByteArray(300, '\xff'), u"damaged"_s},
        };
        for (const auto& row : rows) {
            const InRow inRow(this, row.name);
            const QByteArray content = Content(m_path).left(row.size).replace(row.at, row.bytes.size(), row.bytes);
            const QString locks = m_path.chopped(4) + ".ldb"_L1;
            QVERIFY(QFile::remove(locks));
            SetContent(m_path, content);
            for (const bool exclusive : {false, true}) {
                QString text;
                QCOMPARE(ErrorOf([&] { DBEngine::OpenDatabase(m_path, exclusive); }, &text), NotADatabase);
                QVERIFY2(text.contains(row.part), qPrintable(text));
            }
            QVERIFY(Content(m_path) == content);
            QVERIFY(!QFile::exists(locks)); // no lock file is made
        }
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
        QCOMPARE(days.Fields(u"qmtText"_s).toByteArray().size(), 500000); // the edit still has the text
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
        // More than the cache holds, so that the disk is full before the commit.
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
            // After a failed read, the record before it must not be the current one.
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
        MakePlanner(m_folder->filePath(u"notes.mdb"_s)); // a new file under the old name is another planner
    }

    void ACommitThatCannotGetThroughIsTold()
    {
        Database database = DBEngine::OpenDatabase(m_path);
        Recordset days = Days(database), others = Days(database);
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
        {
            const ReadTransaction reading(database);
            for (int day = 1; day <= 2; ++day) // the second does not wait
                QCOMPARE(ErrorOf([&] { others.Seek(u"="_s, m_key); }), Busy);
        }
        // The next read waits again.
        std::thread end([&] {
            QThread::msleep(200);
            sqlite3_exec(reader, "COMMIT", nullptr, nullptr, nullptr);
        });
        QCOMPARE(ErrorOf([&] { others.Seek(u"="_s, m_key); }), 0);
        end.join();
        days.Update(); // the same text
        QCOMPARE(Read(days, m_key), QByteArray("typed"));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(PlannerFileTest)
#include "plannerfiletest.moc"
