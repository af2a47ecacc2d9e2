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

    void TheOpenPlannerIsLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<QString>("text");
        QTest::newRow("compact") << QByteArray("mnuCompact") << QStringLiteral("Unable to compress database: ");
        QTest::newRow("repair") << QByteArray("mnuRepair") << QStringLiteral("Error when repairing database: ");
    }

    void TheOpenPlannerIsLeftAlone()
    {
        QFETCH(QByteArray, entry);
        QFETCH(QString, text);
        MakePlanner();
        m_program->Open(QStringLiteral("notes.mdb"));
        const QByteArray before = Content(Path());
        const SeenBox seen = Run(entry.constData());
        QVERIFY2(seen.Text.startsWith(text), qPrintable(seen.Text));
        QVERIFY(seen.Text.size() > text.size());
        QCOMPARE(seen.Icon, QMessageBox::Critical);
        QCOMPARE(Content(Path()), before);
        QVERIFY(m_program->Log().contains(entry));
        // After Open a Cancel is an error that is told.
        SeenBox cancelled;
        OnNextModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        AnswerNextBox(msgbox::Ok, &cancelled);
        m_program->Trigger(entry.constData());
        QCOMPARE(cancelled.Text, text + QStringLiteral("Cancel was selected."));
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
