#include "platform/desktop/filesystem.h"
#include "platform/desktop/folders.h"
#include "support.h"

class DesktopFilesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    void Make(const QString& name) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(Path(name)).path()));
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* name : {"Work/Plan.MDB", "work/Other.mdb", "WORK/plan.mdb.d/x", "both/a.mdb", "both/A.mdb",
                                 "Übung/Größe.mdb", "İstanbul/ΣΑΣ.mdb"}) {
            Make(QString::fromUtf8(name));
        }
        QVERIFY(QFile::link(m_folder.path(), Path(QStringLiteral("loop"))));
        QVERIFY(QFile::link(m_folder.path(), Path(QStringLiteral("Loop"))));
    }

    void PathsAreFoundInAnyCase_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("found");
        const auto row = [](const char* path, const char* found) {
            QTest::newRow(path) << QString::fromUtf8(path) << QString::fromUtf8(found);
        };
        row("Work/Plan.MDB", "Work/Plan.MDB");
        row("work/plan.mdb", "Work/Plan.MDB"); // the exact folder "work" leads nowhere
        row("WORK/OTHER.MDB", "work/Other.mdb");
        row("both/a.mdb", "both/a.mdb");
        row("BOTH/A.mdb", "both/A.mdb");
        row("both/../work/./plan.mdb", "Work/Plan.MDB");
        row("work/plan.mdb.d/", "WORK/plan.mdb.d");
        row("work/plan.mdb/", "");
        row("work/none.mdb", "");
        row("work/plan.mdb/x", "");
    }

    void PathsAreFoundInAnyCase()
    {
        QFETCH(QString, path);
        QFETCH(QString, found);
        const QString expected = found.isEmpty() ? QString() : Path(found);
        QCOMPARE(QFileInfo(filesystem::Find(Path(path))).canonicalFilePath(), QFileInfo(expected).canonicalFilePath());
        QDir::setCurrent(m_folder.path());
        QCOMPARE(filesystem::Find(path).isEmpty(), found.isEmpty());
        QCOMPARE(filesystem::Dir(path), QFileInfo(expected).isFile() ? QFileInfo(expected).fileName() : QString());
    }

    void LowerCasingAnyNameFindsItAgain()
    {
        for (const char* name : {"Übung/Größe.mdb", "İstanbul/ΣΑΣ.mdb"}) {
            const QString path = Path(QString::fromUtf8(name));
            QCOMPARE(filesystem::Find(path.toLower()), path);
        }
    }

    void LinksInACircleEnd()
    {
        QCOMPARE(filesystem::Find(Path(QStringLiteral("LOOP/").repeated(60) + QStringLiteral("none.mdb"))), QString());
    }

    void WhatADialogReturnedComesFirst()
    {
        const QString chosen = Path(QStringLiteral("both/A.mdb"));
        filesystem::Remember(chosen);
        QCOMPARE(filesystem::Find(chosen.toLower()), chosen);
        // A new file goes into the folder that was chosen, though the other is spelled as the path is.
        const QString created = Path(QStringLiteral("Work/New.mdb"));
        filesystem::Remember(created);
        QCOMPARE(filesystem::PlaceFor(created.toLower()), Path(QStringLiteral("Work/new.mdb")));
        Make(QStringLiteral("work/new.mdb"));
        Make(QStringLiteral("Work/new.mdb"));
        QCOMPARE(filesystem::Find(created.toLower()), Path(QStringLiteral("Work/new.mdb")));
        QVERIFY(QFile::remove(chosen));
        QCOMPARE(filesystem::Find(chosen.toLower()), Path(QStringLiteral("both/a.mdb")));
    }

    void APlaceNeedsItsFolder()
    {
        QCOMPARE(filesystem::PlaceFor(Path(QStringLiteral("ÜBUNG/Neu.mdb"))), Path(u"Übung/Neu.mdb"_qs));
        QCOMPARE(filesystem::PlaceFor(Path(QStringLiteral("none/neu.mdb"))), QString());
        QCOMPARE(filesystem::PlaceFor(Path(QStringLiteral("both/"))), QString());
        QCOMPARE(filesystem::PlaceFor(QStringLiteral("/x.mdb")), QStringLiteral("/x.mdb"));
    }

    void FoldersFollowTheDesktopsVariables()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(Path(QStringLiteral("data home"))));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(Path(QStringLiteral("config home"))));
        QCoreApplication::setOrganizationName(QStringLiteral("elsewhere"));
        folders::SetRootForTests(QString());
        QCOMPARE(folders::ApplicationDirectory(), Path(QStringLiteral("data home/orrelin")));
        QCOMPARE(folders::WindowsDirectory(), Path(QStringLiteral("config home/orrelin")));
        QVERIFY(QFileInfo(folders::WindowsDirectory()).isDir());
        const TemporaryFolders own;
        QCOMPARE(folders::WindowsDirectory(), own.Path(QStringLiteral("config")));
    }

    void AFolderIsOnlyFinishedWhenAllIsCopied()
    {
        const TemporaryFolders own;
        const QString unfinished = own.Path(QStringLiteral("data/Media.new"));
        QCOMPARE(folders::MediaDirectory(), unfinished); // nothing has been brought
        QVERIFY(QFileInfo(unfinished).isDir());
        QVERIFY(QDir().mkpath(own.Path(QStringLiteral("shipped/Media"))));
        QFile tune(own.Path(QStringLiteral("shipped/Media/a.wav")));
        QVERIFY(tune.open(QIODevice::WriteOnly) && tune.write("all of it"));
        tune.close();
        QVERIFY(QDir(unfinished).mkdir(QStringLiteral("a.wav"))); // in the way of its copy
        QCOMPARE(folders::MediaDirectory(), unfinished);
        QVERIFY(QDir(unfinished).rmdir(QStringLiteral("a.wav")));
        QFile half(unfinished + QStringLiteral("/a.wav"));
        QVERIFY(half.open(QIODevice::WriteOnly) && half.write("all"));
        half.close();
        QCOMPARE(folders::MediaDirectory(), own.Path(QStringLiteral("data/Media")));
        QCOMPARE(QFileInfo(own.Path(QStringLiteral("data/Media/a.wav"))).size(), 9);
    }
};

QTEST_MAIN(DesktopFilesTest)
#include "desktopfilestest.moc"
