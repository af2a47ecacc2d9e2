#include "failingstore.h"
#include "plannerfile/rescuefiles.h"
#include "program.h"

#include <QProcess>

#include <csignal>

// What becomes of notes when the store fails at any call, and when the process is killed at any moment.
class FaultsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    std::shared_ptr<FailurePlan> m_plan;

    void StartWithFailingStore()
    {
        m_plan = std::make_shared<FailurePlan>();
        DBEngine::SetStoreWrapperForTests(
            [plan = m_plan](std::shared_ptr<Store> inner) { return std::make_shared<FailingStore>(inner, plan); });
        m_program = std::make_unique<Program>();
        m_program->Start();
        m_program->New(QStringLiteral("notes.mdb"));
    }

    void Fail(FailurePlan::When when, int at, int number, const QString& only = {})
    {
        *m_plan = {at, when, {number, QStringLiteral("The disk is full")}, only};
    }

    void Replace(int cell, const QString& text)
    {
        m_program->Click(cell);
        m_program->Box(cell).SetSelStart(0);
        m_program->Box(cell).SetSelLength(1000);
        QTest::keyClicks(&m_program->Box(cell), text);
    }

    QByteArray Stored(const char* key)
    {
        return m_program->Stored(QStringLiteral("notes.mdb"), QString::fromLatin1(key));
    }

private Q_SLOTS:
    void cleanup()
    {
        m_program.reset();
        DBEngine::SetStoreWrapperForTests(nullptr);
    }

    void NoFailingCallLosesANote_data()
    {
        QTest::addColumn<int>("when");
        QTest::addColumn<int>("number");
        QTest::newRow("before") << int(FailurePlan::Before) << 3043;
        QTest::newRow("after") << int(FailurePlan::After) << 3043;
        QTest::newRow("for ever, disk full") << int(FailurePlan::ForEver) << 3026;
        QTest::newRow("for ever, busy") << int(FailurePlan::ForEver) << 3186;
    }

    void NoFailingCallLosesANote()
    {
        QFETCH(int, when);
        QFETCH(int, number);
        StartWithFailingStore();
        Program& program = *m_program;
        program.Type(22, QStringLiteral("untouched"));
        program.Trigger("mnuSave");
        int calls = 1;
        for (int at = 1; at <= calls; at += calls > 100 ? 5 : 1) {
            const QString text = QStringLiteral("note%1").arg(at);
            Replace(20, text);
            Replace(21, text);
            program.Click(22); // entered, and so written again
            Fail(FailurePlan::When(when), at, number);
            program.Trigger("mnuNextMonth");
            program.Trigger("mnuPrevMonth");
            calls = when == FailurePlan::ForEver ? qMax(calls, 120) : m_plan->calls;
            Fail(FailurePlan::Before, 0, 0);
            program.Trigger("mnuSave"); // what was left over goes with the next save
            QVERIFY2(Stored("1999/3/19").contains(text.toLatin1()), qPrintable(text));
            QVERIFY2(Stored("1999/3/20").contains(text.toLatin1()), qPrintable(text));
            QVERIFY2(Stored("1999/3/21").contains("untouched"), qPrintable(text));
            QCOMPARE(program.Box(20).Text(), text);
            QCOMPARE(program.Box(22).Text(), QStringLiteral("untouched"));
        }
    }

    void ANoteThatCouldNotBeWrittenIsShownAgain()
    {
        StartWithFailingStore();
        Program& program = *m_program;
        program.Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        program.Trigger("mnuNextMonth");
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Box(20).Text(), QStringLiteral("shelved"));
        // The exit tells of it instead of losing it.
        SeenBox seen;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            seen.Text = box.text();
            Fail(FailurePlan::Before, 0, 0);
            box.button(QMessageBox::Retry)->click();
        });
        program.Trigger("mnuExit");
        QVERIFY(seen.Text.contains(QStringLiteral("Mar 19, 1999")));
        program.form.reset();
        QVERIFY(Stored("1999/3/19").contains("shelved"));
    }

    void WhatNoPlannerTakesAtExitIsKeptAsAFile_data()
    {
        QTest::addColumn<bool>("asked");
        QTest::newRow("asked") << true;
        QTest::newRow("ended by a signal") << false;
    }

    void WhatNoPlannerTakesAtExitIsKeptAsAFile()
    {
        QFETCH(bool, asked);
        StartWithFailingStore();
        m_program->Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        if (asked) AnswerNextBox(msgbox::Cancel);
        m_program->form->subExitProgram(asked ? Mainform::CloseBox : Mainform::ProcessIsEnded);
        QVERIFY(m_program->form->HasEnded());
        QFile kept(folders::ApplicationDirectory() + QStringLiteral("/unsaved/notes 1999-3-19.rtf"));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QVERIFY(kept.readAll().contains("shelved"));
    }

    // By the session or a signal, while a question waits that nobody can answer any more.
    void AnEndBehindTheQuestionIsTheEnd()
    {
        StartWithFailingStore();
        m_program->Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026);
        QFile inTheWay(RescueFolder());
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        connect(m_program->form.get(), &Mainform::Ended, qApp, &QCoreApplication::quit);
        OnNextModal<QMessageBox>([&](QMessageBox&) { m_program->form->subExitProgram(Mainform::ProcessIsEnded); });
        QTimer::singleShot(0, m_program->form.get(), [&] { m_program->Trigger("mnuExit"); });
        QCoreApplication::exec();
        QFile journal(folders::ApplicationDirectory() + QStringLiteral("/journal/1.notes"));
        QVERIFY(journal.open(QIODevice::ReadOnly));
        QVERIFY(journal.readAll().contains("shelved"));
    }

    void ALeftPlannerGetsItsNotesAtExit()
    {
        StartWithFailingStore();
        m_program->Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        m_program->Trigger("mnuSave");
        Fail(FailurePlan::Before, 0, 0);
        m_program->New(QStringLiteral("other.mdb"));
        m_program->Exit();
        QVERIFY(Stored("1999/3/19").contains("shelved"));
    }

    void ADayThatCouldNotBeReadIsNeverEmptied()
    {
        StartWithFailingStore();
        Program& program = *m_program;
        program.Type(20, QStringLiteral("precious"));
        program.Trigger("mnuNextMonth");
        Fail(FailurePlan::ForEver, 1, 3043, QStringLiteral("Find"));
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Box(20).Text(), QString());
        program.Type(20, QStringLiteral("x"));
        QCOMPARE(program.Box(20).Text(), QString());
        Fail(FailurePlan::Before, 0, 0);
        program.Trigger("mnuSave");
        QCOMPARE(program.Box(20).Text(), QStringLiteral("precious"));
    }

    void AKilledProcessLeavesEveryNoteThatWasSaved()
    {
        m_program = std::make_unique<Program>();
        int lastSeen = 0;
        for (int round = 0; round < 4; ++round) {
            QProcess writer;
            writer.start(QCoreApplication::applicationFilePath(),
                         {QStringLiteral("--write-notes"), m_program->folders.Path({})});
            QByteArray output;
            const int wanted = 2 + round * 3;
            while (output.count('\n') < wanted && writer.waitForReadyRead(60000))
                output += writer.readAll();
            ::kill(static_cast<pid_t>(writer.processId()), SIGKILL);
            writer.waitForFinished();
            const QList<QByteArray> saved = (output + writer.readAll()).split('\n');
            QVERIFY(saved.size() > wanted);
            lastSeen = saved.at(saved.size() - 2).toInt();
            for (int day = 1; day <= qMin(lastSeen, 28); ++day) {
                QVERIFY2(Stored(qPrintable(QStringLiteral("1999/3/%1").arg(day))).contains("note"),
                         qPrintable(QString::number(day)));
            }
        }
    }

public:
    // The child: one note after the other, each told of once the save has come back.
    static int WriteNotes(const QString& root)
    {
        folders::SetRootForTests(root);
        Program program;
        folders::SetRootForTests(root);
        program.Start();
        g_sDBPath.clear();
        const QString path = root + QStringLiteral("/notes.mdb");
        if (QFile::exists(path)) {
            AnswerNextFileDialog(path);
            Program::AnswerOpenAs(false);
            program.Trigger("mnuOpen");
        } else {
            AnswerNextFileDialog(path);
            Program::AnswerOpenAs(false);
            AnswerNextBox(msgbox::Ok);
            program.Trigger("mnuNew");
        }
        for (int i = 0; i < 28; ++i) {
            program.Type(program.CellOf(i + 1), QStringLiteral("note %1 ").arg(i).repeated(20));
            program.Trigger("mnuSave");
            std::printf("%d\n", i + 1);
            std::fflush(stdout);
        }
        std::printf("99\n");
        return 0;
    }
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc == 3 && QLatin1StringView(argv[1]) == QLatin1StringView("--write-notes")) {
        return FaultsTest::WriteNotes(QString::fromLocal8Bit(argv[2]));
    }
    FaultsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "faultstest.moc"
