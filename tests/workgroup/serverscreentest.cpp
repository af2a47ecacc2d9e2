#include "editing/zoomboxform.h"
#include "platform/engine/cuttingproxy.h"
#include "settingsfile.h"
#include "testmain.h"
#include "workgroupprogram.h"

#include <QElapsedTimer>
#include <QToolButton>

// The screen over a planner on a server: changes by others, and typed text when the connection breaks.
class ServerScreenTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    std::unique_ptr<CuttingProxy> m_proxy; // between the program and the server, for one connection at a time
    QString m_direct;                      // a link that bypasses it
    QString m_planner;

    static void Link(const QString& path, const QString& uri)
    {
        SetContent(path, "Orrelin planner link 1\n" + uri.toUtf8() + '\n');
    }
    // Another user's work on the planner, by a separate connection.
    void Others(const std::function<void(Database&)>& work) const
    {
        Database planner = DBEngine::OpenDatabase(m_direct);
        work(planner);
    }
    void OthersDo(const std::function<void(Recordset&)>& work) const
    {
        Others([&](Database& planner) {
            Recordset notes = Days(planner);
            notes.Seek(u"="_s, m_program->Key);
            work(notes);
        });
    }
    void OthersWrite(const QString& key, const QByteArray& text) const
    {
        OthersDo([&](Recordset& notes) { Write(notes, key, text); });
    }
    QString Stored() const { return PlainText(m_program->Stored(QFileInfo(m_direct).fileName(), m_program->Key)); }
    bool IsFreeForOthers() const
    {
        int error = 0;
        OthersDo([&](Recordset& notes) { error = ErrorOf([&] { notes.Edit(); }); });
        return error == 0;
    }
    bool HasMark() const { return m_program->form->findChild<QToolButton*>(u"btnTunes(18)"_s) != nullptr; }
    QString Shown() const { return m_program->Box().Text(); }

private Q_SLOTS:
    void init()
    {
        ::setenv("PGPASSWORD", TestServer::Password, 1);
        m_program = std::make_unique<WorkgroupProgram>();
        m_planner = m_program->MakePlanner(true);
        m_proxy = std::make_unique<CuttingProxy>(TestServer::Get().Port());
        m_direct = m_program->folders.Path(u"direct.mdb"_s);
        Link(m_direct, TestServer::Get().Uri(m_planner));
        const QString through = TestServer::Get().TcpUri(m_planner, m_proxy->Port());
        Link(m_program->folders.Path(m_program->File), through);
        RememberServer(through);
        OthersWrite(m_program->Key, "old");
        m_program->Start();
        m_program->Open(m_program->File, true);
        QCOMPARE(Shown(), u"old"_s);
    }
    void cleanup()
    {
        m_program.reset();
        m_proxy.reset();
    }

    // The author of a link could have the program log in anywhere.
    void AServerNotSeenBeforeIsAskedAbout()
    {
        const QString address = TestServer::Get().Uri(m_planner);
        SetIni("Known Servers", QUrl::toPercentEncoding(DBEngine::ServerOf(address), "/:"), "0");
        const QString direct = QFileInfo(m_direct).fileName();
        QTRY_COMPARE_WITH_TIMEOUT(TestServer::Get().Sessions().size(), 1, TestServer::LongestWait);
        const QStringList before = TestServer::Get().Sessions();
        QVERIFY2(m_program->SaidAtOpening(direct, true, msgbox::No).Text.contains(address),
                 "it must tell where the link leads");
        QCOMPARE(TestServer::Get().Sessions(), before);
        QVERIFY(g_sDBPath.isEmpty());
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
        m_program->SaidAtOpening(direct, true, msgbox::Yes);
        QCOMPARE(Shown(), u"old"_s);
        m_program->Open(direct, true); // asks no question
        QCOMPARE(Shown(), u"old"_s);
    }

    // While the connection is broken, others can open the planner. Our save must keep a note of theirs.
    void aPersonalPlannersSaveKeepsWhatOthersWrote()
    {
        const QString file = QFileInfo(m_direct).fileName();
        m_program->Open(file, false);
        m_program->Type(WorkgroupProgram::Cell, u"mine "_s);
        TestServer::Get().Cut();
        OthersWrite(m_program->Key, "theirs");
        m_program->Trigger("mnuSave");
        m_program->Trigger("mnuSave");
        m_program->Open(file, true);
        QVERIFY2(Shown().startsWith(u"theirs"_s), qPrintable(Shown()));
        QVERIFY2(Shown().endsWith(u"oldmine "_s), qPrintable(Shown()));
    }

    void WhatOthersStoreIsShown()
    {
        m_program->Click(WorkgroupProgram::Cell);
        OthersWrite(u"1999/5/1"_s, "not shown");
        OthersWrite(m_program->Key, "first");
        QTRY_COMPARE_WITH_TIMEOUT(Shown(), u"first"_s, TestServer::LongestWait);
        QCOMPARE(int(g_iCurrentPanel), WorkgroupProgram::Cell); // the day stays the current one
        OthersDo([](Recordset& notes) { notes.Delete(); });
        QTRY_COMPARE_WITH_TIMEOUT(Shown(), QString(), TestServer::LongestWait);
        m_program->Trigger("mnuWeekView");
        OthersWrite(m_program->Key, "in the week");
        QTRY_COMPARE_WITH_TIMEOUT(m_program->Box(39).Text(), u"in the week"_s, TestServer::LongestWait);
        QCOMPARE(m_program->Box(m_program->CellOf(17)).Text(), QString());
        QVERIFY2(!m_program->Log().contains("subSeek"), m_program->Log());
    }

    // An alarm added or removed on the locked day does not touch the typed text.
    void AMarkComesToALockedDay()
    {
        m_program->LockAndType(u" and mine"_s);
        Others([&](Database& planner) {
            Recordset alarms = planner.OpenTable(schema::Alarms);
            alarms.AddNew();
            alarms.SetField(u"Alarm Date"_s, m_program->Key);
            alarms.Update();
        });
        QTRY_VERIFY_WITH_TIMEOUT(HasMark(), TestServer::LongestWait);
        QCOMPARE(Shown(), u"old and mine"_s);
        Others([](Database& planner) { planner.OpenTable(schema::Alarms).Delete(); });
        QTRY_VERIFY_WITH_TIMEOUT(!HasMark(), TestServer::LongestWait);
        QCOMPARE(Shown(), u"old and mine"_s);
        QVERIFY(m_program->ShowsLocked());
        m_program->PressLock();
        QCOMPARE(Stored(), u"old and mine"_s);
    }

    void WhatWasTypedOutlivesABreak()
    {
        // How the connection breaks, and the message of the first unlock.
        for (const auto& [what, broken, said] : Rows<QByteArray, QString>{
                 {"cut", "cut", u"and the lock of this record with it. Nothing was saved."_s},
                 {"unnoticed", "unnoticed", u"There is no connection to the server of 'team.mdb'"_s},
                 {"server down", "down", u"There is no connection to the server of 'team.mdb'"_s},
                 {"before COMMIT", "before", u"There is no connection to the server of 'team.mdb'"_s},
                 {"answer to COMMIT", "after", u""_s},
                 {"in doubt", "doubt", u"It is not known whether the change was saved."_s}}) {
            const InRow row(this, what);
            m_program->LockAndType(u" and mine"_s);
            TestServer& server = TestServer::Get();
            if (broken == "cut" || broken == "unnoticed") server.Cut();
            if (broken == "cut") {
                QTRY_VERIFY_WITH_TIMEOUT(!m_proxy->IsForwarding(), TestServer::LongestWait);
                QTest::qWait(300); // the program notices
            }
            if (broken == "down") server.Stop(SIGQUIT);
            if (broken == "before") m_proxy->CutAt(CuttingProxy::BeforeWord);
            if (broken == "after" || broken == "doubt") m_proxy->CutAt(CuttingProxy::AfterAnswer);
            m_proxy->Shut(broken == "doubt");
            if (!said.isEmpty()) {
                QElapsedTimer attempt;
                attempt.start();
                const QString heard = m_program->PressLockAndHear();
                const auto pause = int(std::min<qint64>(5 * attempt.elapsed(), 15000)); // after a failed attempt
                QVERIFY2(heard.contains(said), qPrintable(heard));
                QVERIFY(m_program->ShowsLocked());
                QCOMPARE(Shown(), u"old and mine"_s);
                if (broken == "down") server.Start();
                m_proxy->Shut(false);
                QTest::qWait(50 + pause);
                m_program->TypeOn(u"!"_s);
            }
            m_program->PressLock();
            QVERIFY(m_program->ShowsFree());
            QCOMPARE(Shown(), said.isEmpty() ? u"old and mine"_s : u"old and mine!"_s);
            QCOMPARE(Stored(), Shown());
            QVERIFY(IsFreeForOthers());
            QVERIFY(m_program->form->isActiveWindow()); // no other question came
        }
    }

    // A person who kills a hanging program must find the typed text in the journal. So the test server continues only
    // when it is there.
    void AServerIsEnteredWhenTheTypingIsKept()
    {
        for (const auto& [what, shared] : Rows<bool>{{"unlock", true}, {"turn", false}}) {
            const InRow row(this, what);
            if (!shared) m_program->Open(QFileInfo(m_direct).fileName(), false);
            if (shared) m_program->LockAndType(u" and mine"_s);
            if (!shared) m_program->Type(WorkgroupProgram::Cell, u"mine "_s);
            const QStringList frozen = TestServer::Get().Freeze();
            const QString journal = folders::ApplicationDirectory() + u"/journal/1.notes"_s;
            QVERIFY(!QFile::exists(journal));
            std::atomic<bool> isKept = false;
            std::thread server([&] {
                const QDeadlineTimer end(TestServer::LongestWait);
                while (!isKept && !end.hasExpired()) {
                    isKept = Content(journal).contains("mine");
                    QThread::msleep(5);
                }
                TestServer::Signal(frozen, SIGCONT);
            });
            if (shared)
                m_program->PressLock();
            else
                m_program->Trigger("mnuNextMonth");
            server.join();
            QVERIFY(isKept);
            QCOMPARE(Stored(), shared ? u"old and mine"_s : u"oldmine "_s);
            QVERIFY(!QFile::exists(journal));
        }
    }

    void SomebodyElseUsedTheTime()
    {
        for (const auto& [what, answer, expected] :
             Rows<int, QString>{{"Yes", msgbox::Yes, u"old and mine"_s},
                                {"No", msgbox::No, u"theirs"_s},
                                {"Cancel, then Yes", msgbox::Cancel, u"old and mine"_s}}) {
            const InRow row(this, what);
            const QString question = u"Another user has changed this day while the connection was broken."_s;
            m_program->LockAndType(u" and mine"_s);
            TestServer::Get().Cut();
            QVERIFY(m_program->PressLockAndHear().contains(u"connection"_s));
            OthersWrite(m_program->Key, "theirs");
            QTest::qWait(50); // the notification comes while the day is being edited
            QCOMPARE(Shown(), u"old and mine"_s);
            QVERIFY(m_program->PressLockAndHear(answer).startsWith(question));
            if (answer == msgbox::Cancel) {
                QVERIFY(m_program->ShowsLocked());
                QCOMPARE(Shown(), u"old and mine"_s);
                QCOMPARE(Stored(), u"theirs"_s);
                QVERIFY(m_program->PressLockAndHear(msgbox::Yes).startsWith(question));
            }
            QVERIFY(m_program->ShowsFree());
            QCOMPARE(Shown(), expected);
            QCOMPARE(Stored(), expected);
            QVERIFY(IsFreeForOthers());
        }
    }

    // The timers continue behind a message, but no second message may come up over it.
    void SomebodyElseHoldsTheDay()
    {
        m_program->LockAndType(u" and mine"_s);
        TestServer::Get().Cut();
        QVERIFY(m_program->PressLockAndHear().contains(u"connection"_s));
        OthersDo([&](Recordset& notes) {
            notes.Edit();
            SeenBox seen;
            OnNextModal<QMessageBox>([&](QMessageBox& box) {
                seen.Text = box.text();
                DropAnswers();
                WorkgroupProgram::ExpectNoBox(&box);
                g_lUnlockDelay = 1;
                for (const char* timer : {"tmUnLock", "tmAutoRefresh"}) {
                    if (QTest::currentTestFailed()) break;
                    g_bAutoRefresh = true;
                    g_lRefreshDelay = g_lRefreshTicks = 0;
                    m_program->Tick(timer);
                    QTest::qWait(20);
                }
                box.button(QMessageBox::Ok)->click();
            });
            m_program->PressLock();
            QVERIFY2(seen.Text.startsWith(u"Could not update; currently locked by"_s), qPrintable(seen.Text));
            QVERIFY(m_program->ShowsFree());
            QCOMPARE(Shown(), u"old and mine"_s);
        });
        m_program->PressLock();
        QVERIFY(m_program->ShowsLocked());
        m_program->PressLock();
        QCOMPARE(Stored(), u"old and mine"_s);
    }

    void AServerThatComesBackIsHeardByItself()
    {
        TestServer::Get().Stop(SIGQUIT);
        QTest::qWait(100); // the program notices
        TestServer::Get().Start();
        OthersWrite(m_program->Key, "told without a touch");
        QTRY_COMPARE_WITH_TIMEOUT(Shown(), u"told without a touch"_s, TestServer::LongestWait);
    }

    void WithoutItsServerTheScreenKeepsWhatItShows()
    {
        m_proxy->Slow();
        m_proxy->Shut(true);
        TestServer::Get().Stop(SIGQUIT);
        m_program->Trigger("mnuRefresh");
        QCOMPARE(Shown(), u"old"_s);
        QCOMPARE(m_program->Bottom().Caption(), u"There is no connection to the planner's server."_s);
        m_program->Click(WorkgroupProgram::Cell);
        QVERIFY(m_program->PressLockAndHear().contains(u"no connection to the server of 'team.mdb'"_s));
        QVERIFY(m_program->ShowsFree());
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Shown(), QString()); // never under another date
        m_program->Trigger("mnuPrevMonth");
        TestServer::Get().Start();
        m_proxy->Shut(false);
        // By itself.
        QTRY_COMPARE_WITH_TIMEOUT(m_program->Bottom().Caption(), u"MARCH 1999"_s, TestServer::LongestWait);
        QCOMPARE(Shown(), u"old"_s);
        OthersWrite(m_program->Key, "told again");
        QTRY_COMPARE_WITH_TIMEOUT(Shown(), u"told again"_s, TestServer::LongestWait);
    }
};

ORRELIN_TEST(ServerScreenTest)
#include "serverscreentest.moc"
