#include "recurrence/recurrence.h"

#include "failingstore.h"
#include "files.h"
#include "planners.h"
#include "platform/engine/engineerrors.h"
#include "platform/richtext/rtfreader.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"
#include "support.h"
#include "testmain.h"

#include <QDialog>
#include <QTextDocument>

// Recurring events in a planner's file: the written days, and the days that an error leaves out.
class RecurrenceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<TemporaryFolders> m_folders;
    std::optional<FailingStores> m_failing;

    static QByteArray Event() { return QByteArrayLiteral("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs16\\b Rent}"); }
    static QByteArray OldNote(const QString& date)
    {
        return "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs16\\i old " + date.toLatin1() + "\\par}";
    }
    static QString Entry(const QString& key)
    {
        return key.section(u'/', 1, 1) + u'/' + key.section(u'/', 2) + u'/' + key.section(u'/', 0, 0);
    }

    static Recurrence MakeEvent() { return {Event(), QTextCharFormat()}; }

    static void Open(const QString& path, bool isNew)
    {
        g_dbPlanner = isNew ? MakePlanner(path) : DBEngine::OpenDatabase(path, true);
        g_rsQMT = schema::OpenNotes(g_dbPlanner);
        g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    }

    QString Path() const { return m_folders->Path(u"notes.mdb"_s); }

    static void PutOldNotes(const QStringList& dates)
    {
        WriteTransaction writing(g_dbPlanner);
        for (const QString& date : dates)
            Write(g_rsQMT, date, OldNote(date));
        writing.Commit();
    }

    static QStringList March() { return EventDates(Frequency::Daily, u"1999/3/1"_s, u"1999/3/20"_s, 1); }

    static QString TextOf(const QString& date) // "none" without a record
    {
        g_rsQMT.Seek(u"="_s, date);
        if (g_rsQMT.NoMatch()) return u"none"_s;
        QTextDocument document;
        ReadRtf(g_rsQMT.Fields(u"qmtText"_s).toByteArray(), document);
        return document.toPlainText();
    }

    static int Records()
    {
        int count = 0;
        g_rsRecurse.SetIndex(schema::RecursionsIndex);
        for (; !g_rsRecurse.EOF_(); g_rsRecurse.MoveNext())
            ++count;
        return count;
    }

    static QByteArray Log() { return Content(folders::ApplicationDirectory() + u"/planner.err"_s); }

    void Fail(FailurePlan::When when, int at, int number, const QString& only = {})
    {
        *m_failing->plan = {at, when, {number, u"The test's reason"_s}, only};
    }

private Q_SLOTS:
    void init()
    {
        m_folders = std::make_unique<TemporaryFolders>();
        m_failing.emplace();
        QDir().mkpath(folders::ApplicationDirectory());
        OpenErrorLog(folders::ApplicationDirectory() + u"/planner.err"_s);
        g_bErrorTrap = true;
        Open(Path(), true);
    }

    void cleanup()
    {
        QCOMPARE(WaitingAnswers(), 0);
        DropAnswers();
        ResetPlannerStateForTests();
        CloseErrorLog();
        m_failing.reset();
        m_folders.reset();
    }

    // The event is written twice, and each removal takes one out. Records of days that held nothing else stay.
    void IsKeptAndWrittenAndTakenOut()
    {
        PutOldNotes({u"1999/3/9"_s});
        for (const QString& text : {u"Rent"_s, u"Rent\nRent"_s}) {
            QVERIFY(MakeEvent().Save(Frequency::Weekly, u"03/02/1999"_s, u"03/16/1999"_s, 1));
            QCOMPARE(TextOf(u"1999/3/2"_s), text);
            QVERIFY(g_rsQMT.Fields(u"qmtFontName"_s).isNull());
            QCOMPARE(TextOf(u"1999/3/9"_s), u"old 1999/3/9\n"_s + text);
        }
        g_rsRecurse.MoveFirst();
        for (const auto& [field, value] :
             {std::pair(u"Start Date"_s, "1999/3/2"), {u"End Date"_s, "1999/3/16"}, {u"Frequency"_s, "WEEKLY"}})
            QCOMPARE(g_rsRecurse.Fields(field).toString(), QString::fromLatin1(value));
        QCOMPARE(g_rsRecurse.Fields(u"Recursion Text"_s).toByteArray(), Event());
        for (const QString& rest : {u"\nRent"_s, u"\n"_s}) {
            QVERIFY(MakeEvent().TakeOut(Frequency::Weekly, u"1999/3/2"_s, u"1999/3/16"_s));
            QCOMPARE(TextOf(u"1999/3/2"_s), rest);
            QCOMPARE(TextOf(u"1999/3/9"_s), u"old 1999/3/9\n"_s + rest);
        }
    }

    void IsNotBegunOnAFullDisk()
    {
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        Fail(FailurePlan::Before, 1, engineerrors::DiskFull, u"Insert"_s);
        QVERIFY(!MakeEvent().Save(Frequency::Daily, u"3/1/1999"_s, u"3/2/1999"_s, 1));
        QCOMPARE(seen.Title + u':' + seen.Text, u"Orrelin Help Wizard:The recurring event could not be saved."_s);
        QVERIFY(Log().contains("The test's reason in RecurForm, fnRecurseDaily"));
        QCOMPARE(Records(), 0);
        QCOMPARE(TextOf(u"1999/3/1"_s), u"none"_s);
        // All methods but Daily check the end date.
        QVERIFY(MakeEvent().Save(Frequency::Daily, u"2/28/1999"_s, u"2/29/1999"_s, 1));
        QCOMPARE(TextOf(u"1999/2/28"_s), u"Rent"_s);
    }

    // Other events stay, those that begin on the same date too, and what another user writes meanwhile.
    void CancelledItIsTakenOutAgain()
    {
        struct Canceller : QObject
        {
            bool eventFilter(QObject* object, QEvent* event) override
            {
                auto* const dialog = qobject_cast<QDialog*>(object);
                if (!dialog || event->type() != QEvent::Show) return false;
                // The second window, of the taking back, cannot be cancelled.
                if (dialog->findChild<QAbstractButton*>())
                    Write(g_rsQMT, u"1999/3/6"_s, "{\\rtf1 old\\par Rent\\par of another}");
                dialog->reject();
                return false;
            }
        } canceller;
        for (const QString& date : {u"3/5/1999"_s, u"2/5/1999"_s})
            QVERIFY(MakeEvent().Save(Frequency::Daily, date, date, 1));
        PutOldNotes(March());
        qApp->installEventFilter(&canceller);
        QVERIFY(!MakeEvent().Save(Frequency::Daily, u"3/5/1999"_s, u"3/5/2999"_s, 1));
        QCOMPARE(Records(), 2);
        for (g_rsRecurse.MoveFirst(); !g_rsRecurse.EOF_(); g_rsRecurse.MoveNext())
            QVERIFY(g_rsRecurse.Fields(u"End Date"_s) != u"2999/3/5"_s);
        for (const QString& date : March())
            QCOMPARE(TextOf(date), date == u"1999/3/6"_s ? u"old\n\nof another"_s : u"old "_s + date);
        QCOMPARE(TextOf(u"1999/3/21"_s), u"none"_s);
    }

    void AsksForALockedDay()
    {
        for (const auto& [what, retry] : Rows<bool>{{"retried", true}, {"left out", false}}) {
            const InRow row(this, what);
            PutOldNotes(March());
            Fail(FailurePlan::ForEver, 4, engineerrors::RecordLocked, u"TryLock"_s);
            SeenBox seen;
            OnNextModal<QMessageBox>([&](QMessageBox& box) {
                seen = {box.windowTitle(), box.text(), box.icon(), {}};
                // The earlier days are already committed, because nobody may wait inside a transaction.
                QCOMPARE(TextOf(u"1999/3/3"_s), u"old 1999/3/3\nRent"_s);
                Fail(FailurePlan::Before, 0, 0);
                support::Press(
                    box,
                    [&](QAbstractButton* b) {
                        return support::PlainText(b) == QLatin1StringView(retry ? "Yes" : "No");
                    },
                    nullptr);
            });
            QVERIFY(MakeEvent().Save(Frequency::Daily, u"3/1/1999"_s, u"3/20/1999"_s, 1));
            QCOMPARE(seen.Title, u"Orrelin Help Wizard"_s);
            QCOMPARE(seen.Text, u"Mar 4, 1999 is locked.\nThe test's reason\n\nDo you want to retry?"_s);
            QCOMPARE(seen.Icon, QMessageBox::Question);
            for (const QString& date : March()) {
                const bool leftOut = !retry && date == u"1999/3/4"_s;
                QCOMPARE(TextOf(date), u"old "_s + date + (leftOut ? QString() : u"\nRent"_s));
            }
        }
    }

    // Fails each call of the store: each day is unchanged or complete, and the error message names the days left out.
    void AnErrorLeavesOutItsDayAlone()
    {
        for (const auto& [what, when, number, removing] :
             Rows<int, int, bool>{{"writing, once", int(FailurePlan::Before), engineerrors::InputOutput, false},
                                  {"writing, disk full", int(FailurePlan::ForEver), engineerrors::DiskFull, false},
                                  {"taking out, once", int(FailurePlan::Before), engineerrors::InputOutput, true},
                                  {"taking out, disk full", int(FailurePlan::ForEver), engineerrors::DiskFull, true}}) {
            const InRow row(this, what);
            PutOldNotes(March());
            const auto run = [&] {
                return removing ? MakeEvent().TakeOut(Frequency::Daily, March().first(), March().last())
                                : MakeEvent().Save(Frequency::Daily, Entry(March().first()), Entry(March().last()), 1);
            };
            int calls = 1, copies = 0;
            if (removing) {
                for (; copies < 60; ++copies)
                    QVERIFY(MakeEvent().Save(Frequency::Daily, Entry(March().first()), Entry(March().last()), 1));
            }
            QStringList before;
            for (const QString& date : March())
                before += TextOf(date);
            for (int at = 1; at <= calls; at += 4) {
                const int records = Records();
                bool wasTold = false;
                AnswerNextBox(msgbox::Ok);
                Fail(FailurePlan::When(when), at, number);
                run();
                calls = when == FailurePlan::ForEver ? 90 : m_failing->plan->calls;
                Fail(FailurePlan::Before, 0, 0);
                wasTold = WaitingAnswers() == 0;
                DropAnswers();
                int untouched = 0;
                for (int i = 0; i < March().size(); ++i) {
                    const QString text = TextOf(March().at(i));
                    const QString changed = removing ? QString(before.at(i)).remove(before.at(i).indexOf(u'R'), 4)
                                                     : before.at(i) + u"\nRent"_s;
                    QVERIFY2(text == before.at(i) || text == changed, qPrintable(text));
                    untouched += text == before.at(i);
                    before[i] = text;
                }
                QVERIFY2(untouched == 0 || wasTold, qPrintable(QString::number(at)));
                if (when != FailurePlan::ForEver) QVERIFY(untouched <= 1 || Records() == records);
            }
        }
    }
};

ORRELIN_TEST(RecurrenceTest)

#include "recurrencetest.moc"
