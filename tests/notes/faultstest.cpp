#include "failingstore.h"
#include "notes/rescuefiles.h"
#include "program.h"
#include "testmain.h"

// Notes when the store fails at any call.
class FaultsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    std::optional<FailingStores> m_failing;

    void StartWithFailingStore()
    {
        m_failing.emplace();
        m_program = Program::Started();
        m_program->New(u"notes.mdb"_s);
    }

    void Fail(FailurePlan::When when, int at, int number, const QString& only = {})
    {
        *m_failing->plan = {at, when, {number, u"The disk is full"_s}, only};
    }

    void Replace(int cell, const QString& text)
    {
        m_program->Click(cell);
        Select(m_program->Box(cell), 0, 1000);
        QTest::keyClicks(&m_program->Box(cell), text);
    }

    QByteArray Stored(const char* key) { return m_program->Stored(u"notes.mdb"_s, QString::fromLatin1(key)); }

private Q_SLOTS:
    void cleanup()
    {
        m_program.reset();
        m_failing.reset();
    }

    void NoFailingCallLosesANote()
    {
        for (const auto& [what, when, number] : Rows<int, int>{{"before", int(FailurePlan::Before), 3043},
                                                               {"after", int(FailurePlan::After), 3043},
                                                               {"for ever, disk full", int(FailurePlan::ForEver), 3026},
                                                               {"for ever, busy", int(FailurePlan::ForEver), 3186}}) {
            const InRow row(this, what);
            StartWithFailingStore();
            m_program->Type(22, u"untouched"_s);
            m_program->Trigger("mnuSave");
            int calls = 1;
            for (int at = 1; at <= calls; at += calls > 100 ? 5 : 1) {
                const QString text = u"note%1"_s.arg(at);
                Replace(20, text);
                Replace(21, text);
                m_program->Click(22); // entering the cell makes the save write it again
                Fail(FailurePlan::When(when), at, number);
                m_program->Trigger("mnuNextMonth");
                m_program->Trigger("mnuPrevMonth");
                calls = when == FailurePlan::ForEver ? qMax(calls, 120) : m_failing->plan->calls;
                Fail(FailurePlan::Before, 0, 0);
                m_program->Trigger("mnuSave"); // the next save writes what failed
                QVERIFY2(Stored("1999/3/19").contains(text.toLatin1()), qPrintable(text));
                QVERIFY2(Stored("1999/3/20").contains(text.toLatin1()), qPrintable(text));
                QVERIFY2(Stored("1999/3/21").contains("untouched"), qPrintable(text));
                QCOMPARE(m_program->Box(20).Text(), text);
                QCOMPARE(m_program->Box(22).Text(), u"untouched"_s);
            }
        }
    }

    void ANoteThatCouldNotBeWrittenIsShownAgain()
    {
        StartWithFailingStore();
        m_program->Type(20, u"shelved"_s);
        Fail(FailurePlan::ForEver, 1, 3026, u"Commit"_s);
        m_program->Trigger("mnuNextMonth");
        const QString told = u" - Notes not saved yet: The disk is full"_s;
        QCOMPARE(m_program->Bottom().Caption(), u"APRIL 1999"_s + told);
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s + told);
        QCOMPARE(m_program->Box(20).Text(), u"shelved"_s);
        Fail(FailurePlan::Before, 0, 0);
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
        // The exit reports the error instead of losing the note.
        m_program->Type(20, u"!"_s);
        Fail(FailurePlan::ForEver, 1, 3026, u"Commit"_s);
        SeenBox seen;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            seen.Text = box.text();
            Fail(FailurePlan::Before, 0, 0);
            box.button(QMessageBox::Retry)->click();
        });
        m_program->Trigger("mnuExit");
        QVERIFY(seen.Text.contains(u"Mar 19, 1999\n\nThe disk is full\n"_s));
        m_program->form.reset();
        QVERIFY(Stored("1999/3/19").contains("!"));
    }

    void ANoteThatWasStoredUnheardIsNotStoredTwice()
    {
        StartWithFailingStore();
        m_program->Type(20, u"once"_s);
        Fail(FailurePlan::After, 1, 3043, u"Commit"_s);
        for (int times = 0; times < 2; ++times)
            m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Box(20).Text(), u"once"_s);
    }

    void WhatNoPlannerTakesAtExitIsKept()
    {
        StartWithFailingStore();
        m_program->Type(20, u"shelved"_s);
        Fail(FailurePlan::ForEver, 1, 3026, u"Commit"_s);
        AnswerNextBox(msgbox::Cancel);
        m_program->form->subExitProgram(Mainform::CloseBox);
        QVERIFY(m_program->form->HasEnded());
        QVERIFY(Content(RescueFolder() + u"/notes 1999-3-19.rtf"_s).contains("shelved"));
    }

    // The session or a signal ends the program while a question is open that nobody can answer any more.
    void AnEndBehindTheQuestionIsTheEnd()
    {
        StartWithFailingStore();
        m_program->Type(20, u"shelved"_s);
        Fail(FailurePlan::ForEver, 1, 3026);
        QFile inTheWay(RescueFolder());
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        connect(m_program->form.get(), &Mainform::Ended, qApp, &QCoreApplication::quit);
        OnNextModal<QMessageBox>([&](QMessageBox&) { m_program->form->subExitProgram(Mainform::ProcessIsEnded); });
        QTimer::singleShot(0, m_program->form.get(), [&] { m_program->Trigger("mnuExit"); });
        QCoreApplication::exec();
        QFile journal(folders::ApplicationDirectory() + u"/journal/1.notes"_s);
        QVERIFY(journal.open(QIODevice::ReadOnly));
        QVERIFY(journal.readAll().contains("shelved"));
    }

    void ALeftPlannerGetsItsNotesAtExit()
    {
        StartWithFailingStore();
        m_program->Type(20, u"shelved"_s);
        Fail(FailurePlan::ForEver, 1, 3026, u"Commit"_s);
        m_program->Trigger("mnuSave");
        Fail(FailurePlan::Before, 0, 0);
        m_program->New(u"other.mdb"_s);
        m_program->Exit();
        QVERIFY(Stored("1999/3/19").contains("shelved"));
    }

    void ADayThatCouldNotBeReadIsNeverEmptied()
    {
        StartWithFailingStore();
        m_program->Type(20, u"precious"_s);
        m_program->Trigger("mnuNextMonth");
        Fail(FailurePlan::ForEver, 1, 3043, u"Find"_s);
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Box(20).Text(), QString());
        m_program->Type(20, u"x"_s);
        QCOMPARE(m_program->Box(20).Text(), QString());
        Fail(FailurePlan::Before, 0, 0);
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Box(20).Text(), u"precious"_s);
    }
};

ORRELIN_TEST(FaultsTest)
#include "faultstest.moc"
