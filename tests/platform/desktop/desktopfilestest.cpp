#include "files.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/folders.h"
#include "support.h"
#include "testmain.h"

class DesktopFilesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    void Make(const QString& name) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(Path(name)).path()));
        SetContent(Path(name), {});
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char* name : {"Work/Plan.MDB", "work/Other.mdb", "WORK/plan.mdb.d/x", "both/a.mdb", "both/A.mdb",
                                 "Übung/Größe.mdb", "İstanbul/ΣΑΣ.mdb"}) {
            Make(QString::fromUtf8(name));
        }
        QVERIFY(QFile::link(m_folder.path(), Path(u"loop"_s)));
        QVERIFY(QFile::link(m_folder.path(), Path(u"Loop"_s)));
    }

    void PathsAreFoundInAnyCase()
    {
        const std::pair<QString, QString> rows[] = {
            {u"Work/Plan.MDB"_s, u"Work/Plan.MDB"_s},
            {u"work/plan.mdb"_s, u"Work/Plan.MDB"_s}, // the folder "work" has no such file
            {u"WORK/OTHER.MDB"_s, u"work/Other.mdb"_s},
            {u"both/a.mdb"_s, u"both/a.mdb"_s},
            {u"BOTH/A.mdb"_s, u"both/A.mdb"_s},
            {u"both/../work/./plan.mdb"_s, u"Work/Plan.MDB"_s},
            {u"work/plan.mdb.d/"_s, u"WORK/plan.mdb.d"_s},
            {u"work/plan.mdb/"_s, u""_s},
            {u"work/none.mdb"_s, u""_s},
            {u"work/plan.mdb/x"_s, u""_s},
        };
        for (const auto& [path, found] : rows) {
            const InRow inRow(this, path);
            const QString expected = found.isEmpty() ? QString() : Path(found);
            QCOMPARE(QFileInfo(filesystem::Find(Path(path))).canonicalFilePath(),
                     QFileInfo(expected).canonicalFilePath());
            QDir::setCurrent(m_folder.path());
            QCOMPARE(filesystem::Find(path).isEmpty(), found.isEmpty());
            QCOMPARE(filesystem::Dir(path), QFileInfo(expected).isFile() ? QFileInfo(expected).fileName() : QString());
        }
    }

    void LowerCasingAnyNameFindsItAgain()
    {
        for (const char* name : {"Übung/Größe.mdb", "İstanbul/ΣΑΣ.mdb"}) {
            const QString path = Path(QString::fromUtf8(name));
            QCOMPARE(filesystem::Find(path.toLower()), path);
        }
    }

    void LinksInACircleEnd() { QCOMPARE(filesystem::Find(Path(u"LOOP/"_s.repeated(60) + u"none.mdb"_s)), QString()); }

    void WhatADialogReturnedComesFirst()
    {
        const QString chosen = Path(u"both/A.mdb"_s);
        filesystem::Remember(chosen);
        QCOMPARE(filesystem::Find(chosen.toLower()), chosen);
        // A new file goes into the remembered folder, though the other folder's spelling matches the path.
        const QString created = Path(u"Work/New.mdb"_s);
        filesystem::Remember(created);
        QCOMPARE(filesystem::PlaceFor(created.toLower()), Path(u"Work/new.mdb"_s));
        Make(u"work/new.mdb"_s);
        Make(u"Work/new.mdb"_s);
        QCOMPARE(filesystem::Find(created.toLower()), Path(u"Work/new.mdb"_s));
        QVERIFY(QFile::remove(chosen));
        QCOMPARE(filesystem::Find(chosen.toLower()), Path(u"both/a.mdb"_s));
    }

    void APlaceNeedsItsFolder()
    {
        QCOMPARE(filesystem::PlaceFor(Path(u"ÜBUNG/Neu.mdb"_s)), Path(u"Übung/Neu.mdb"_qs));
        QCOMPARE(filesystem::PlaceFor(Path(u"none/neu.mdb"_s)), QString());
        QCOMPARE(filesystem::PlaceFor(Path(u"both/"_s)), QString());
        QCOMPARE(filesystem::PlaceFor(u"/x.mdb"_s), u"/x.mdb"_s);
    }

    void FoldersFollowTheDesktopsVariables()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(Path(u"data home"_s)));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(Path(u"config home"_s)));
        QCoreApplication::setOrganizationName(u"elsewhere"_s);
        folders::SetRootForTests(QString());
        QCOMPARE(folders::ApplicationDirectory(), Path(u"data home/orrelin"_s));
        QCOMPARE(folders::WindowsDirectory(), Path(u"config home/orrelin"_s));
        QVERIFY(QFileInfo(folders::WindowsDirectory()).isDir());
        const TemporaryFolders own;
        QCOMPARE(folders::WindowsDirectory(), own.Path(u"config"_s));
    }

    void TheClockFollowsTheZone()
    {
        const auto offsetIn = [](const char* zone) {
            const Environment there("TZ", zone);
            return desktopclock::Now().offsetFromUtc();
        };
        QCOMPARE(offsetIn("EAST-9"), 9 * 3600);
        QCOMPARE(offsetIn("WEST+5"), -5 * 3600); // as after a flight
    }

    void AFolderIsOnlyFinishedWhenAllIsCopied()
    {
        const TemporaryFolders own;
        const QString unfinished = own.Path(u"data/Media.new"_s);
        QCOMPARE(folders::MediaDirectory(), unfinished); // no tunes were copied
        QVERIFY(QFileInfo(unfinished).isDir());
        QVERIFY(QDir().mkpath(own.Path(u"shipped/Media"_s)));
        SetContent(own.Path(u"shipped/Media/a.wav"_s), "all of it");
        QVERIFY(QDir(unfinished).mkdir(u"a.wav"_s)); // blocks its copy
        QCOMPARE(folders::MediaDirectory(), unfinished);
        QVERIFY(QDir(unfinished).rmdir(u"a.wav"_s));
        SetContent(unfinished + u"/a.wav"_s, "all");
        QCOMPARE(folders::MediaDirectory(), own.Path(u"data/Media"_s));
        QCOMPARE(QFileInfo(own.Path(u"data/Media/a.wav"_s)).size(), 9);
    }
};

ORRELIN_TEST(DesktopFilesTest)
#include "desktopfilestest.moc"
