#include "failingstore.h"
#include "plannerfile/rescuefiles.h"
#include "program.h"

// What becomes of notes when the store fails at any call.
class FaultsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    std::optional<FailingStores> m_failing;

    void StartWithFailingStore()
    {
        m_failing.emplace();
        m_program = Program::Started();
        m_program->New(QStringLiteral("notes.mdb"));
    }

    void Fail(FailurePlan::When when, int at, int number, const QString& only = {})
    {
        *m_failing->plan = {at, when, {number, QStringLiteral("The disk is full")}, only};
    }

    void Replace(int cell, const QString& text)
    {
        m_program->Click(cell);
        Select(m_program->Box(cell), 0, 1000);
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
        m_failing.reset();
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
        m_program->Type(22, QStringLiteral("untouched"));
        m_program->Trigger("mnuSave");
        int calls = 1;
        for (int at = 1; at <= calls; at += calls > 100 ? 5 : 1) {
            const QString text = QStringLiteral("note%1").arg(at);
            Replace(20, text);
            Replace(21, text);
            m_program->Click(22); // entered, and so written again
            Fail(FailurePlan::When(when), at, number);
            m_program->Trigger("mnuNextMonth");
            m_program->Trigger("mnuPrevMonth");
            calls = when == FailurePlan::ForEver ? qMax(calls, 120) : m_failing->plan->calls;
            Fail(FailurePlan::Before, 0, 0);
            m_program->Trigger("mnuSave"); // what was left over goes with the next save
            QVERIFY2(Stored("1999/3/19").contains(text.toLatin1()), qPrintable(text));
            QVERIFY2(Stored("1999/3/20").contains(text.toLatin1()), qPrintable(text));
            QVERIFY2(Stored("1999/3/21").contains("untouched"), qPrintable(text));
            QCOMPARE(m_program->Box(20).Text(), text);
            QCOMPARE(m_program->Box(22).Text(), QStringLiteral("untouched"));
        }
    }

    void ANoteThatCouldNotBeWrittenIsShownAgain()
    {
        StartWithFailingStore();
        m_program->Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        m_program->Trigger("mnuNextMonth");
        const QString told = QStringLiteral(" - Notes not saved yet: The disk is full");
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("APRIL 1999") + told);
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("MARCH 1999") + told);
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("shelved"));
        Fail(FailurePlan::Before, 0, 0);
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("MARCH 1999"));
        // The exit tells of it instead of losing it.
        m_program->Type(20, QStringLiteral("!"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        SeenBox seen;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            seen.Text = box.text();
            Fail(FailurePlan::Before, 0, 0);
            box.button(QMessageBox::Retry)->click();
        });
        m_program->Trigger("mnuExit");
        QVERIFY(seen.Text.contains(QStringLiteral("Mar 19, 1999\n\nThe disk is full\n")));
        m_program->form.reset();
        QVERIFY(Stored("1999/3/19").contains("!"));
    }

    void WhatNoPlannerTakesAtExitIsKept_data()
    {
        QTest::addColumn<bool>("asked");
        QTest::addColumn<QString>("place");
        QTest::newRow("asked") << true << QStringLiteral("/unsaved/notes 1999-3-19.rtf");
        QTest::newRow("ended by a signal")
            << false << QStringLiteral("/journal/1.notes"); // offered by the next opening
    }

    void WhatNoPlannerTakesAtExitIsKept()
    {
        QFETCH(bool, asked);
        QFETCH(QString, place);
        StartWithFailingStore();
        m_program->Type(20, QStringLiteral("shelved"));
        Fail(FailurePlan::ForEver, 1, 3026, QStringLiteral("Commit"));
        if (asked) AnswerNextBox(msgbox::Cancel);
        m_program->form->subExitProgram(asked ? Mainform::CloseBox : Mainform::ProcessIsEnded);
        QVERIFY(m_program->form->HasEnded());
        QVERIFY(Content(folders::ApplicationDirectory() + place).contains("shelved"));
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
        m_program->Type(20, QStringLiteral("precious"));
        m_program->Trigger("mnuNextMonth");
        Fail(FailurePlan::ForEver, 1, 3043, QStringLiteral("Find"));
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Box(20).Text(), QString());
        m_program->Type(20, QStringLiteral("x"));
        QCOMPARE(m_program->Box(20).Text(), QString());
        Fail(FailurePlan::Before, 0, 0);
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("precious"));
    }
};

QTEST_MAIN(FaultsTest)
#include "faultstest.moc"
