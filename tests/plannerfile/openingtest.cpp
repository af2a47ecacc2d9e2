#include "plannerfile/schema.h"
#include "platform/profile/profile.h"
#include "program.h"

#include <QProcess>

// New, Open, the recent list and the start-up planner, with every answer that their questions allow.
class OpeningTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Mru(int entry) const
    {
        return GetPrivateProfileStringA(QStringLiteral("MRU"), QStringLiteral("MRU%1").arg(entry), QString(), 1024,
                                        QStringLiteral("PLANNER.INI"));
    }

    void Write(const QString& section, const QString& key, const QString& value)
    {
        WritePrivateProfileStringA(section, key, value, QStringLiteral("PLANNER.INI"));
    }

    // A planner with only some of its tables, closed again.
    void MakeOlder(const QString& name, const std::vector<TableDef>& tables)
    {
        Database database = DBEngine::CreateDatabase(m_program->folders.Path(name), schema::Locale);
        for (const TableDef& table : tables)
            database.Append(table);
        Recordset notes = database.OpenTable(schema::Notes);
        notes.AddNew();
        notes.SetField(QStringLiteral("qmtDate"), QStringLiteral("1999/3/17"));
        notes.SetField(QStringLiteral("qmtText"), QByteArray("{\\rtf1 kept}"));
        notes.Update();
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void ANewPlannerHasItsThreeTables()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("Notes.MDB"));
        QVERIFY(QFile::exists(program.folders.Path(QStringLiteral("notes.mdb"))));
        QCOMPARE(g_dbPlanner.TableNames().size(), 3);
        for (Recordset* records : {&g_rsQMT, &g_rsAlarm, &g_rsRecurse})
            QVERIFY(records->BOF() && records->EOF_());
        QCOMPARE(g_rsQMT.Index(), QStringLiteral("qmtPrimaryKey"));
        QCOMPARE(program.form->windowTitle(), QStringLiteral("Orrelin for Windows 95/98/NT - ") + g_sDBPath);
        QCOMPARE(Mru(1), QString()); // recent once it was opened
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("MARCH 1999"));
    }

    void NewOverAnExistingFileAsksFirst()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("kept"));
        program.Trigger("mnuSave");
        AnswerNextFileDialog(program.folders.Path(QStringLiteral("notes.mdb")));
        SeenBox seen;
        AnswerNextBox(msgbox::No, &seen);
        program.Trigger("mnuNew");
        QCOMPARE(seen.Title, QStringLiteral("File Exists!"));
        QCOMPARE(seen.DefaultButton, QStringLiteral("No"));
        QVERIFY(program.Box(20).Text().isEmpty() && program.Box(20).Locked());
        // The cells are empty, and clicking into them must not be taken for emptying the days.
        program.Type(20, QStringLiteral("x"));
        program.Trigger("mnuNextMonth");
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Box(20).Text(), QStringLiteral("kept"));
    }

    void CancelLeavesEverythingAsItWas()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("kept"));
        for (const char* entry : {"mnuNew", "mnuOpen"}) {
            CancelNextFileDialog();
            program.Trigger(entry);
            QCOMPARE(program.Box(20).Text(), QStringLiteral("kept"));
            QVERIFY(!g_sDBPath.isEmpty());
        }
        QCOMPARE(program.Log(), QByteArray());
    }

    void WhatIsNoPlannerIsRefusedAndLeftAsItWas_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("text") << QByteArray("Dear diary, this is no planner.\n").repeated(500);
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("head alone") << QByteArray("SQLite format 3\0", 16);
    }

    void WhatIsNoPlannerIsRefusedAndLeftAsItWas()
    {
        QFETCH(QByteArray, content);
        Program& program = *m_program;
        QFile file(program.folders.Path(QStringLiteral("other.mdb")));
        QVERIFY(file.open(QIODevice::ReadWrite));
        file.write(content);
        file.flush();
        AnswerNextFileDialog(file.fileName());
        Program::AnswerOpenAs(false);
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        program.Trigger("mnuOpen");
        QCOMPARE(seen.Title, QStringLiteral("Orrelin Help Wizard"));
        QCOMPARE(seen.Icon, QMessageBox::Warning);
        QCOMPARE(program.Bottom().Caption(), seen.Text);
        QCOMPARE(g_sDBPath, QString());
        QVERIFY(program.Box(20).Locked());
        QVERIFY(program.Log().startsWith(" 1:"));
        file.seek(0);
        QCOMPARE(file.readAll(), content);
    }

    void AnOlderFileIsUpgraded_data()
    {
        QTest::addColumn<bool>("lacksAlarms");
        QTest::addColumn<int>("answer"); // 0: no question comes
        QTest::newRow("both missing, yes") << true << msgbox::Yes;
        QTest::newRow("both missing, no") << true << msgbox::No;
        QTest::newRow("recursions missing") << false << 0;
    }

    void AnOlderFileIsUpgraded()
    {
        QFETCH(bool, lacksAlarms);
        QFETCH(int, answer);
        Program& program = *m_program;
        std::vector<TableDef> tables = {schema::NotesTable()};
        if (!lacksAlarms) tables.push_back(schema::AlarmsTable());
        MakeOlder(QStringLiteral("old.mdb"), tables);
        AnswerNextFileDialog(program.folders.Path(QStringLiteral("old.mdb")));
        Program::AnswerOpenAs(false);
        if (answer) AnswerNextBox(answer);
        program.Trigger("mnuOpen");
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(program.Box(18).Text(), QStringLiteral("kept"));
        const bool upgraded = answer != msgbox::No;
        QCOMPARE(g_dbPlanner.TableNames().size(), upgraded ? 3 : 1);
        QCOMPARE(g_rsRecurse.IsNothing(), !upgraded);
        QCOMPARE(program.form->windowTitle().endsWith(QStringLiteral("old.mdb")), upgraded);
        if (!upgraded) return;
        program.Open(QStringLiteral("old.mdb")); // asks no more
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(program.Box(18).Text(), QStringLiteral("kept"));
    }

    void TheRecentListMovesByItsRules()
    {
        Program& program = *m_program;
        for (const char* name : {"a.mdb", "b.mdb", "c.mdb", "d.mdb", "e.mdb"}) {
            MakeOlder(QString::fromLatin1(name),
                      {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()});
            program.Open(QString::fromLatin1(name));
        }
        const auto list = [&] {
            QString names;
            for (int entry = 1; entry <= 4; ++entry)
                names += Mru(entry).section(u'/', -1).left(1);
            return names;
        };
        QCOMPARE(list(), QStringLiteral("edcb"));
        QVERIFY(program.Entry("mnuMRU(3)").isVisible() && program.Entry("mnuMRUHyphen").isVisible());
        Program::AnswerOpenAs(false);
        program.Trigger("mnuMRU(2)"); // c
        QCOMPARE(list(), QStringLiteral("cedb"));
        QCOMPARE(program.Box(18).Text(), QStringLiteral("kept"));
        program.Open(QStringLiteral("c.mdb"));
        QCOMPARE(list(), QStringLiteral("cedb"));
        Write(QStringLiteral("MRU"), QStringLiteral("MRU2"), QString());
        program.Open(QStringLiteral("c.mdb"));
        QVERIFY(program.Entry("mnuMRU(0)").isVisible());
        QVERIFY(!program.Entry("mnuMRU(2)").isVisible()); // the first empty key ends the walk
    }

    void ALongerEntryThatBeginsWithThePathCountsAsTheSame()
    {
        Program& program = *m_program;
        MakeOlder(QStringLiteral("plan"), {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()});
        const QString path = program.folders.Path(QStringLiteral("plan")).toLower();
        Write(QStringLiteral("MRU"), QStringLiteral("MRU1"), QStringLiteral("/other.mdb"));
        Write(QStringLiteral("MRU"), QStringLiteral("MRU2"), path.toUpper() + QStringLiteral(".MDB"));
        program.Open(QStringLiteral("plan"));
        QCOMPARE(Mru(1), path);
        QCOMPARE(Mru(2), QStringLiteral("/other.mdb"));
        QCOMPARE(Mru(3), QString());
    }

    void TheStartUpPlannerIsOpenedWithoutAQuestion()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(18, QStringLiteral("good morning"));
        const QString path = g_sDBPath;
        program.Exit();
        Write(QStringLiteral("QMT2LOAD"), QStringLiteral("LOAD CONDITION"), QStringLiteral("1"));
        Write(QStringLiteral("QMT2LOAD"), QStringLiteral("FILEPATH"), path);
        Write(QStringLiteral("QMT2LOAD"), QStringLiteral("WORKGROUP"), QStringLiteral("1"));
        program.Start();
        QCOMPARE(program.Box(18).Text(), QStringLiteral("good morning"));
        QVERIFY(g_bDBShared && program.Box(18).Locked());
        program.Exit();

        Write(QStringLiteral("QMT2LOAD"), QStringLiteral("FILEPATH"), QStringLiteral("/gone/with.mdb"));
        AnswerNextBox(msgbox::Ok);
        program.Start();
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(g_sDBPath, QString());
    }

    void PersonalAndSharedOpensExcludeEachOther()
    {
        Program& program = *m_program;
        MakeOlder(QStringLiteral("a.mdb"), {schema::NotesTable(), schema::AlarmsTable(), schema::RecursionsTable()});
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--hold"), program.folders.Path(QStringLiteral("a.mdb"))});
        QVERIFY(other.waitForReadyRead(30000));
        SeenBox seen;
        AnswerNextFileDialog(program.folders.Path(QStringLiteral("a.mdb")));
        Program::AnswerOpenAs(false);
        AnswerNextBox(msgbox::Ok, &seen);
        program.Trigger("mnuOpen");
        QVERIFY2(seen.Text.contains(QStringLiteral("in use by user")), qPrintable(seen.Text));
        program.Open(QStringLiteral("a.mdb"), true);
        QCOMPARE(program.Box(18).Text(), QStringLiteral("kept"));
        other.kill();
        QVERIFY(other.waitForFinished());
        program.Open(QStringLiteral("a.mdb"));
        QVERIFY(!program.Box(18).Locked());
    }
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc == 3 && QLatin1StringView(argv[1]) == QLatin1StringView("--hold")) {
        const Database held = DBEngine::OpenDatabase(QString::fromLocal8Bit(argv[2]));
        std::puts("held");
        std::fflush(stdout);
        return application.exec();
    }
    OpeningTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "openingtest.moc"
