#include "platform/engine/sqlite/scratchplace.h"
#include "program.h"

// Compact and Repair as a person runs them.
class MaintenanceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Path() const { return m_program->folders.Path(QStringLiteral("notes.mdb")); }

    // A planner with one long note and one short one, which no program has open.
    void MakePlanner()
    {
        m_program->Start();
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("short"));
        m_program->Type(21, QStringLiteral("a long note ").repeated(300));
        m_program->Exit();
        m_program->Start();
    }

    SeenBox Run(const char* entry)
    {
        SeenBox seen;
        AnswerNextFileDialog(Path());
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger(entry);
        return seen;
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void CompactLeavesEveryNote()
    {
        MakePlanner();
        const SeenBox seen = Run("mnuCompact");
        QCOMPARE(seen.Text, QStringLiteral("Database compressed OK"));
        QCOMPARE(seen.Title, QStringLiteral("Compact"));
        QVERIFY(!QFile::exists(folders::ApplicationDirectory() + QStringLiteral("/dummy.mdb")));
        m_program->Open(QStringLiteral("notes.mdb"));
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("short"));
        QCOMPARE(m_program->Box(21).Text(), QStringLiteral("a long note ").repeated(300));
    }

    // It is closed for the work and open again in the same way, with what was typed in it; declined, nothing happens.
    void TheOpenPlannerIsClosedForIt_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<bool>("shared");
        QTest::newRow("compact") << QByteArray("mnuCompact") << false;
        QTest::newRow("repair") << QByteArray("mnuRepair") << false;
        QTest::newRow("compact, shared") << QByteArray("mnuCompact") << true;
    }

    void TheOpenPlannerIsClosedForIt()
    {
        QFETCH(QByteArray, entry);
        QFETCH(bool, shared);
        MakePlanner();
        m_program->Open(QStringLiteral("notes.mdb"), shared);
        if (!shared) m_program->Type(22, QStringLiteral("typed"));
        const QByteArray before = Content(Path());
        AnswerNextFileDialog(Path());
        AnswerNextBox(msgbox::No);
        m_program->Trigger(entry.constData());
        QCOMPARE(Content(Path()), before);
        SeenBox asked, done;
        AnswerNextFileDialog(Path());
        AnswerNextBox(msgbox::Yes, &asked);
        AnswerNextBox(msgbox::Ok, &done);
        m_program->Trigger(entry.constData());
        QVERIFY2(asked.Text.contains(QStringLiteral("'notes.mdb' is the planner that is open")),
                 qPrintable(asked.Text));
        QCOMPARE(done.Icon, QMessageBox::Information);
        QCOMPARE(g_bDBShared, shared);
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("short"));
        QCOMPARE(m_program->Box(22).Text(), shared ? QString() : QStringLiteral("typed"));
        QVERIFY2(shared || Content(Path()).contains("typed"), "it was not saved");
    }

    void APlannerThatAnotherHasOpenIsLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<QString>("text");
        QTest::newRow("compact") << QByteArray("mnuCompact") << QStringLiteral("Unable to compress database: ");
        QTest::newRow("repair") << QByteArray("mnuRepair") << QStringLiteral("Error when repairing database: ");
    }

    void APlannerThatAnotherHasOpenIsLeftAlone()
    {
        QFETCH(QByteArray, entry);
        QFETCH(QString, text);
        MakePlanner();
        const Database another = DBEngine::OpenDatabase(Path());
        const QByteArray before = Content(Path());
        const SeenBox seen = Run(entry.constData());
        QVERIFY2(seen.Text.startsWith(text), qPrintable(seen.Text));
        QVERIFY(seen.Text.size() > text.size());
        QCOMPARE(seen.Icon, QMessageBox::Critical);
        QCOMPARE(Content(Path()), before);
        QVERIFY(m_program->Log().contains(entry));
        // After Open a Cancel is an error that is told.
        m_program->Open(QStringLiteral("notes.mdb"), true);
        SeenBox cancelled;
        OnNextModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        AnswerNextBox(msgbox::Ok, &cancelled);
        m_program->Trigger(entry.constData());
        QCOMPARE(cancelled.Text, text + QStringLiteral("Cancel was selected."));
    }

    // What lies where Compact makes its copy.
    void TheScratchFileIsNoHindrance_data()
    {
        QTest::addColumn<QByteArray>("lies");
        QTest::newRow("left by a run that died") << QByteArray("left");
        QTest::newRow("somebody's own") << QByteArray("own");
        QTest::newRow("another Orrelin's") << QByteArray("other");
        QTest::newRow("cannot be put in place") << QByteArray("failed");
    }

    void TheScratchFileIsNoHindrance()
    {
        QFETCH(QByteArray, lies);
        MakePlanner();
        const QString dummy = folders::ApplicationDirectory() + QStringLiteral("/dummy.mdb");
        const QString kept = folders::ApplicationDirectory() + QStringLiteral("/dummy.kept.mdb");
        auto other = std::make_unique<ScratchPlace>(dummy, m_program->folders.Path(QStringLiteral("other.mdb")));
        const QByteArray mark = Content(dummy + QStringLiteral(".lock"));
        if (lies != "other") other.reset();
        if (lies == "left") SetContent(dummy + QStringLiteral(".lock"), mark);
        if (lies != "failed") SetContent(dummy, "lies there");
        const QString inTheWay = Path() + QStringLiteral(".new");
        if (lies == "failed") QVERIFY(QDir().mkdir(inTheWay));
        const SeenBox seen = Run("mnuCompact");
        QCOMPARE(seen.Icon, lies == "left" || lies == "own" ? QMessageBox::Information : QMessageBox::Critical);
        QCOMPARE(Content(kept), QByteArray(lies == "own" ? "lies there" : "no file"));
        QCOMPARE(Content(dummy), QByteArray(lies == "other" ? "lies there" : "no file"));
        QVERIFY2(lies != "other" || seen.Text.contains(dummy), qPrintable(seen.Text));
        QDir().rmdir(inTheWay);
        other.reset();
        QCOMPARE(Run("mnuCompact").Icon, QMessageBox::Information);
        m_program->Open(QStringLiteral("notes.mdb"));
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("short"));
    }

    void APlannerOfTheOlderEngineIsConverted()
    {
        QDir(m_program->folders.Path({})).mkdir(QStringLiteral("shipped"));
        QFile::link(QStringLiteral(READER), m_program->folders.Path(QStringLiteral("shipped/orrelin-readjet")));
        QFile::copy(QStringLiteral(SAMPLE), Path());
        desktopclock::SetForTests(QDateTime(QDate(2003, 1, 15), QTime(9, 30)));
        m_program->Start();
        SeenBox refused;
        AnswerNextFileDialog(Path());
        Program::AnswerOpenAs(false);
        AnswerNextBox(msgbox::Ok, &refused);
        m_program->Trigger("mnuOpen");
        QVERIFY2(refused.Text.contains(QStringLiteral("Compact Database in the File menu")), qPrintable(refused.Text));
        QVERIFY(!HasPlanner());
        QString second;
        AnswerNextFileDialog(Path());
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(), QStringLiteral("Database compressed OK"));
            second = box.informativeText();
            box.accept();
        });
        m_program->Trigger("mnuCompact");
        QVERIFY2(second.contains(QStringLiteral("notes.old.mdb")), qPrintable(second));
        m_program->Open(QStringLiteral("notes.mdb"));
        const QString text = m_program->Box(m_program->CellOf(15)).Text();
        QVERIFY2(text.startsWith(QStringLiteral("Line 0 of a long day, bold and italic")), qPrintable(text.left(60)));
    }

    void ADamagedPlannerIsRepairedAndKept()
    {
        MakePlanner();
        QByteArray damaged = Content(Path());
        damaged.replace(0, 100, QByteArray(100, '\xff')); // the head of the file
        SetContent(Path(), damaged);
        SeenBox refused;
        AnswerNextFileDialog(Path());
        Program::AnswerOpenAs(false);
        AnswerNextBox(msgbox::Ok, &refused);
        m_program->Trigger("mnuOpen");
        QCOMPARE(refused.Text, QStringLiteral("The planner 'notes.mdb' is damaged. Repair may be able to mend it."));
        QString second;
        AnswerNextFileDialog(Path());
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(), QStringLiteral("Database repaired successfully"));
            second = box.informativeText();
            box.accept();
        });
        m_program->Trigger("mnuRepair");
        QVERIFY2(second.contains(QStringLiteral("Notes: 2 recovered")), qPrintable(second));
        const QStringList kept = QFileInfo(Path()).dir().entryList({QStringLiteral("notes?*.mdb")});
        QCOMPARE(kept.size(), 1);
        QVERIFY(second.contains(kept.first()));
        m_program->Open(QStringLiteral("notes.mdb"));
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("short"));
    }
};

QTEST_MAIN(MaintenanceTest)
#include "maintenancetest.moc"
