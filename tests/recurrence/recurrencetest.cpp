#include "recurrence/recurrence.h"

#include "failingstore.h"
#include "files.h"
#include "plannerfile/plannerstate.h"
#include "planners.h"
#include "platform/engine/engineerrors.h"
#include "platform/richtext/rtfreader.h"
#include "platform/runtime/errortail.h"
#include "support.h"

#include <QProcess>
#include <QTextDocument>

#include <cstdlib>

// Recurring events in a planner's file: what is written, what an error leaves out, and what a kill leaves behind.
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

    static Recurrence MakeEvent(DayRun::Progress progress = [](qsizetype, qsizetype) {})
    {
        return {Event(), QTextCharFormat(), std::move(progress)};
    }

    static void Open(const QString& path, bool isNew)
    {
        g_dbPlanner = isNew ? MakePlanner(path) : DBEngine::OpenDatabase(path, true);
        g_rsQMT = schema::OpenNotes(g_dbPlanner);
        g_rsRecurse = schema::OpenRecursions(g_dbPlanner);
    }

    QString Path() const { return m_folders->Path(QStringLiteral("notes.mdb")); }

    static void PutOldNotes(const QStringList& dates)
    {
        WriteTransaction writing(g_dbPlanner);
        for (const QString& date : dates)
            Write(g_rsQMT, date, OldNote(date));
        writing.Commit();
    }

    static QStringList March()
    {
        return EventDates(Frequency::Daily, QStringLiteral("1999/3/1"), QStringLiteral("1999/3/20"), 1);
    }

    static QString FirstDay() { return QStringLiteral("2000/1/1"); }
    static QString LastDay() { return QStringLiteral("2009/12/31"); }

    static QString TextOf(const QString& date) // "none" without a record
    {
        g_rsQMT.Seek(QStringLiteral("="), date);
        if (g_rsQMT.NoMatch()) return QStringLiteral("none");
        QTextDocument document;
        ReadRtf(g_rsQMT.Fields(QStringLiteral("qmtText")).toByteArray(), document);
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

    static QByteArray Log() { return Content(folders::ApplicationDirectory() + QStringLiteral("/planner.err")); }

    void Fail(FailurePlan::When when, int at, int number, const QString& only = {})
    {
        *m_failing->plan = {at, when, {number, QStringLiteral("The test's reason")}, only};
    }

private Q_SLOTS:
    void init()
    {
        m_folders = std::make_unique<TemporaryFolders>();
        m_failing.emplace();
        QDir().mkpath(folders::ApplicationDirectory());
        OpenErrorLog(folders::ApplicationDirectory() + QStringLiteral("/planner.err"));
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

    void IsKeptAndWrittenAndTakenOut()
    {
        PutOldNotes({QStringLiteral("1999/3/9")});
        QVERIFY(MakeEvent().fnRecurseWeekly(QStringLiteral("03/02/1999"), QStringLiteral("03/16/1999"), 1));
        g_rsRecurse.MoveFirst();
        const QMap<QString, QVariant> record = {{QStringLiteral("Start Date"), QStringLiteral("1999/3/2")},
                                                {QStringLiteral("End Date"), QStringLiteral("1999/3/16")},
                                                {QStringLiteral("Frequency"), QStringLiteral("WEEKLY")},
                                                {QStringLiteral("Recursion Text"), Event()}};
        for (auto field = record.cbegin(); field != record.cend(); ++field)
            QCOMPARE(g_rsRecurse.Fields(field.key()), field.value());
        QCOMPARE(TextOf(QStringLiteral("1999/3/2")), QStringLiteral("Rent"));
        QCOMPARE(g_rsQMT.Fields(QStringLiteral("qmtText")).toByteArray(), Event());
        QVERIFY(g_rsQMT.Fields(QStringLiteral("qmtFontName")).isNull());
        QCOMPARE(TextOf(QStringLiteral("1999/3/3")), QStringLiteral("none"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/9")), QStringLiteral("old 1999/3/9\nRent"));
        QCOMPARE(TextOf(QStringLiteral("1999/3/23")), QStringLiteral("none"));
        // Once more, and each walk takes one of the two out; the records of days that held nothing else stay.
        QVERIFY(MakeEvent().fnRecurseWeekly(QStringLiteral("03/02/1999"), QStringLiteral("03/16/1999"), 1));
        QCOMPARE(TextOf(QStringLiteral("1999/3/2")), QStringLiteral("Rent\nRent"));
        for (const char* rest : {"\nRent", "\n"}) {
            QVERIFY(MakeEvent().TakeOut(Frequency::Weekly, QStringLiteral("1999/3/2"), QStringLiteral("1999/3/16")));
            QCOMPARE(TextOf(QStringLiteral("1999/3/2")), QString::fromLatin1(rest));
            QCOMPARE(TextOf(QStringLiteral("1999/3/9")), QStringLiteral("old 1999/3/9\n") + QLatin1StringView(rest));
        }
    }

    void RefusesBeforeAnythingIsWritten()
    {
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        Recurrence empty("{\\rtf1 }", {}, [](qsizetype, qsizetype) {});
        QVERIFY(!empty.fnRecurseDaily(QStringLiteral("3/1/1999"), QStringLiteral("3/2/1999"), 1));
        QCOMPARE(seen.Text, QStringLiteral("Recurring event cannot be empty"));
        AnswerNextBox(msgbox::Ok, &seen);
        QVERIFY(!MakeEvent().fnRecurseYearly(QStringLiteral("2/1/1999"), QStringLiteral("2/29/1999"), 1));
        QCOMPARE(seen.Text, QStringLiteral("End Date is not a valid date"));
        QCOMPARE(seen.Title, QStringLiteral("Orrelin Help Wizard"));
        AnswerNextBox(msgbox::Ok, &seen);
        Fail(FailurePlan::Before, 1, engineerrors::DiskFull, QStringLiteral("Insert"));
        QVERIFY(!MakeEvent().fnRecurseDaily(QStringLiteral("3/1/1999"), QStringLiteral("3/2/1999"), 1));
        QCOMPARE(seen.Text, QStringLiteral("The recurring event could not be saved."));
        QVERIFY(Log().contains("The test's reason in RecurForm, fnRecurseDaily"));
        QCOMPARE(Records(), 0);
        QCOMPARE(TextOf(QStringLiteral("1999/3/1")), QStringLiteral("none"));
        // The end's day is looked at by all but the daily events.
        QVERIFY(MakeEvent().fnRecurseDaily(QStringLiteral("2/28/1999"), QStringLiteral("2/29/1999"), 1));
        QCOMPARE(TextOf(QStringLiteral("1999/2/28")), QStringLiteral("Rent"));
    }

    void AsksForALockedDay_data()
    {
        QTest::addColumn<bool>("retry");
        QTest::newRow("retried") << true;
        QTest::newRow("left out") << false;
    }

    void AsksForALockedDay()
    {
        QFETCH(bool, retry);
        PutOldNotes(March());
        Fail(FailurePlan::ForEver, 4, engineerrors::RecordLocked, QStringLiteral("TryLock"));
        SeenBox seen;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            seen = {box.windowTitle(), box.text(), box.icon(), {}};
            // The days before are in the file already, for nobody may wait inside a transaction.
            QCOMPARE(TextOf(QStringLiteral("1999/3/3")), QStringLiteral("old 1999/3/3\nRent"));
            Fail(FailurePlan::Before, 0, 0);
            support::Press(
                box,
                [&](QAbstractButton* b) { return support::PlainText(b) == QLatin1StringView(retry ? "Yes" : "No"); },
                nullptr);
        });
        QVERIFY(MakeEvent().fnRecurseDaily(QStringLiteral("3/1/1999"), QStringLiteral("3/20/1999"), 1));
        QCOMPARE(seen.Title, QStringLiteral("Orrelin Help Wizard"));
        QCOMPARE(seen.Text, QStringLiteral("Mar 4, 1999 is locked.\nThe test's reason\n\nDo you want to retry?"));
        QCOMPARE(seen.Icon, QMessageBox::Question);
        for (const QString& date : March()) {
            const bool leftOut = !retry && date == QStringLiteral("1999/3/4");
            QCOMPARE(TextOf(date), QStringLiteral("old ") + date + (leftOut ? QString() : QStringLiteral("\nRent")));
        }
    }

    void AnErrorLeavesOutItsDayAlone_data()
    {
        QTest::addColumn<int>("when");
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("removing");
        for (const bool removing : {false, true}) {
            const char* what = removing ? "taking out" : "writing";
            QTest::addRow("%s, before", what) << int(FailurePlan::Before) << engineerrors::InputOutput << removing;
            QTest::addRow("%s, disk full", what) << int(FailurePlan::ForEver) << engineerrors::DiskFull << removing;
        }
    }

    // At any call of the store: each day is as it was or as it should be, and those that an error left out are told of.
    void AnErrorLeavesOutItsDayAlone()
    {
        QFETCH(int, when);
        QFETCH(int, number);
        QFETCH(bool, removing);
        PutOldNotes(March());
        const auto run = [&] {
            return removing ? MakeEvent().TakeOut(Frequency::Daily, March().first(), March().last())
                            : MakeEvent().fnRecurseDaily(Entry(March().first()), Entry(March().last()), 1);
        };
        int calls = 1, copies = 0;
        if (removing) {
            for (; copies < 60; ++copies)
                QVERIFY(MakeEvent().fnRecurseDaily(Entry(March().first()), Entry(March().last()), 1));
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
                                                 : before.at(i) + QStringLiteral("\nRent");
                QVERIFY2(text == before.at(i) || text == changed, qPrintable(text));
                untouched += text == before.at(i);
                before[i] = text;
            }
            QVERIFY2(untouched == 0 || wasTold, qPrintable(QString::number(at)));
            if (when != FailurePlan::ForEver) QVERIFY(untouched <= 1 || Records() == records);
        }
    }

    void AKillLeavesWholeDays_data()
    {
        QTest::addColumn<int>("at");
        QTest::newRow("before the record") << 1;
        QTest::newRow("in the first group") << 100;
        QTest::newRow("in a later one") << 3000;
    }

    // Ten years of days, every other one with a note, and the second event among those of a first one.
    void AKillLeavesWholeDays()
    {
        QFETCH(int, at);
        const QStringList dates = EventDates(Frequency::Daily, FirstDay(), LastDay(), 1);
        QStringList withNotes;
        for (qsizetype i = 0; i < dates.size(); i += 2)
            withNotes += dates.at(i);
        PutOldNotes(withNotes);
        QVERIFY(MakeEvent().fnRecurseDaily(Entry(FirstDay()), Entry(FirstDay()), 1));
        ResetPlannerStateForTests();
        QProcess writer;
        writer.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--write-event"), Path(), QString::number(at)});
        QVERIFY(writer.waitForFinished(120000));
        QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
        Open(Path(), false);
        QCOMPARE(Records(), at == 1 ? 1 : 2);
        int written = 0;
        for (qsizetype i = 0; i < dates.size(); ++i) {
            const QString text = TextOf(dates.at(i));
            QString old = i % 2 == 0 ? QStringLiteral("old ") + dates.at(i) : QString();
            if (i == 0) old += QStringLiteral("\nRent");
            if (text == old || (old.isEmpty() && text == QStringLiteral("none"))) continue;
            QCOMPARE(text, old.isEmpty() ? QStringLiteral("Rent") : old + QStringLiteral("\nRent"));
            QCOMPARE(written++, i); // no day is left out before one that is written
        }
        QVERIFY(at < 3000 ? written == 0 : written > 0 && written < dates.size());
    }

public:
    // The child, which is killed at a call of its store. An error before that ends its first group of days.
    static int WriteEvent(const QString& path, int at)
    {
        const auto plan = std::make_shared<FailurePlan>(), error = std::make_shared<FailurePlan>();
        DBEngine::SetStoreWrapperForTests([&](std::shared_ptr<Store> inner) {
            return std::make_shared<FailingStore>(std::make_shared<FailingStore>(inner, error), plan);
        });
        Open(path, false);
        *error = {500, FailurePlan::Before};
        *plan = {at, FailurePlan::Kill};
        return MakeEvent().fnRecurseDaily(Entry(FirstDay()), Entry(LastDay()), 1) ? 0 : 1;
    }
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc == 4 && QLatin1StringView(argv[1]) == QLatin1StringView("--write-event"))
        return RecurrenceTest::WriteEvent(QString::fromLocal8Bit(argv[2]), std::atoi(argv[3]));
    RecurrenceTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "recurrencetest.moc"
