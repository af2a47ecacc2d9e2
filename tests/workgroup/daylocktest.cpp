#include "editing/zoomboxform.h"
#include "failingstore.h"
#include "settingsfile.h"
#include "workgroupprogram.h"

// Two users of one planner: the program, which is in March 1999, and a recordset of another connection. The 17th stands
// in cell 18.
class DayLockTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    Recordset m_other;

    bool ShowsLocked() const { return m_program->ShowsLocked() && m_program->Panel(18).IsHeld(); }
    bool ShowsFree() const { return m_program->ShowsFree() && !m_program->Panel(18).IsHeld(); }
    void PressLock() const { QTest::mouseClick(&m_program->Lock(), Qt::LeftButton); }
    void LockAndType(const QString& text) const { m_program->LockAndType(text); }
    QString Stored() const { return PlainText(m_program->Stored(m_program->File, m_program->Key)); }
    RichTextBox& Box() const { return m_program->Box(); }

    void OtherWrites(const QByteArray& text) { Write(m_other, m_program->Key, text); }
    bool OtherIsRefused()
    {
        m_other.Seek(QStringLiteral("="), m_program->Key);
        const bool isRefused = ErrorOf([this] { m_other.Edit(); }) != 0;
        if (!isRefused) m_other.CancelUpdate();
        return isRefused;
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<WorkgroupProgram>();
        m_program->Start();
        m_program->New(m_program->File, true);
        m_other = schema::OpenNotes(DBEngine::OpenDatabase(m_program->folders.Path(m_program->File)));
    }
    void cleanup()
    {
        m_other = Recordset();
        m_program.reset();
    }

    void aDayIsLockedTypedAndUnlocked()
    {
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuLockDay");
        QCOMPARE(seen.Text, QStringLiteral("Please select a daily cell to lock"));
        QVERIFY(ShowsFree());
        m_program->Click(18);
        AnswerNextBox(msgbox::Ok, &seen); // no key before the lock
        QTest::keyClick(&Box(), Qt::Key_X);
        QVERIFY(seen.Text.startsWith(QStringLiteral("Please lock current day in order to edit a shared database.")));
        LockAndType(QStringLiteral("meeting"));
        QCOMPARE(Box().Text(), QStringLiteral("meeting"));
        QVERIFY(OtherIsRefused());
        QCOMPARE(m_other.Fields(QStringLiteral("qmtPadding")).toString(), QString(1005, u'.'));
        m_program->Activate();
        QTest::keyClick(&Box(), Qt::Key_F2);
        QVERIFY(ShowsFree());
        QVERIFY(!Box().hasFocus());
        QCOMPARE(Stored(), QStringLiteral("meeting"));
        QVERIFY(!OtherIsRefused());
        m_program->Click(18);
        m_program->Trigger("mnuNextMonth"); // another day stands where the caret is
        QVERIFY(m_program->PressLockAndHear().startsWith(QStringLiteral("Please select")));
    }

    // What stands in the file at this instant takes the place of what the screen showed.
    void lockingShowsWhatOthersHaveWritten()
    {
        OtherWrites("theirs");
        LockAndType(QStringLiteral(" and ours"));
        PressLock();
        QCOMPARE(Stored(), QStringLiteral("theirs and ours"));
    }

    void theLockKeepsThePersonInPlace()
    {
        LockAndType(QStringLiteral("kept"));
        SeenBox seen;
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            seen = {};
            AnswerNextBox(msgbox::Ok, &seen);
            m_program->ExpectNoBox(); // but this one
            QTest::mouseClick(m_program->Box(20).viewport(), button, {}, QPoint(20, 8));
            QTRY_COMPARE(seen.Text, QStringLiteral("Mar 17, 1999 is locked(Edit Mode), please unlock first."));
            QTRY_COMPARE(m_program->form->focusWidget(), &Box());
            QTRY_COMPARE(QApplication::activePopupWidget() != nullptr, button == Qt::RightButton);
            if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
            DropAnswers();
            m_program->Activate();
        }
        for (const char* entry : {"mnuNextMonth", "mnuRefresh"}) {
            AnswerNextBox(msgbox::Ok, &seen);
            m_program->Trigger(entry);
            QCOMPARE(seen.Text, QStringLiteral("Mar 17, 1999 is locked, please unlock first."));
            QCOMPARE(WaitingAnswers(), 0);
        }
        AnswerNextBox(msgbox::Ok, &seen);
        Q_EMIT m_program->Panel(20).DblClick(); // the day view of another day would take the lock away
        QCOMPARE(seen.Text, QStringLiteral("Mar 17, 1999 is locked, please unlock first."));
        QVERIFY(ShowsLocked() && OtherIsRefused());
        QCOMPARE(Box().Text(), QStringLiteral("kept"));
        PressLock();
        QCOMPARE(Stored(), QStringLiteral("kept"));
    }

    // The ways out that nothing closes commit first.
    void otherWaysOutCommit_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::newRow("this month") << QStringLiteral("mnuThisMonth");
        QTest::newRow("week view") << QStringLiteral("mnuWeekView");
        QTest::newRow("midnight") << QString();
        QTest::newRow("a new planner that is not made") << QStringLiteral("mnuNew");
    }
    void otherWaysOutCommit()
    {
        QFETCH(QString, entry);
        LockAndType(QStringLiteral("on the way"));
        if (entry == u"mnuNew") {
            AnswerNextFileDialog(m_program->folders.Path(m_program->File)); // which is there
            AnswerNextBox(msgbox::No);
        }
        if (entry.isEmpty()) {
            desktopclock::SetForTests(QDateTime(QDate(1999, 3, 18), QTime(0, 0)));
            m_program->Tick("tmMidnightRefresh");
            QTRY_VERIFY(ShowsFree());
        } else {
            m_program->Trigger(entry.toLatin1());
        }
        QVERIFY(ShowsFree());
        QCOMPARE(Stored(), QStringLiteral("on the way"));
        QVERIFY(!OtherIsRefused());
    }

    void aDayLeftIdleIsCommitted()
    {
        SetIni("Network Options", "AutoUnLock", "1");
        LockAndType(QStringLiteral("idle"));
        QCOMPARE(g_lUnlockDelay, 300); // nobody has opened the new planner and read it before
        g_lUnlockDelay = 3;
        g_lUnlockTicks = 1;
        QTest::keyClicks(&Box(), QStringLiteral("!")); // a sign of life
        QCOMPARE(g_lUnlockTicks, 0);
        for (int second = 0; second < 2; ++second)
            m_program->Tick("tmUnLock");
        QTRY_COMPARE(g_lUnlockTicks, 2);
        QVERIFY(ShowsLocked());
        QWidget other; // nobody looks at the calendar
        other.show();
        Activate(other);
        m_program->Tick("tmUnLock");
        QTRY_VERIFY(ShowsFree());
        QVERIFY(!m_program->Panel(18).IsActive());
        QCOMPARE(Stored(), QStringLiteral("idle!"));
    }

    // Opened on a day that is locked by hand, the day view gives the lock back with the text, or leaves it.
    void theDayViewOfALockedDay()
    {
        LockAndType(QStringLiteral("by hand"));
        OnNextModal<ZoomBoxForm>(
            [](ZoomBoxForm& form) { QTest::mouseClick(&In<QPushButton>(form, "btnCancel"), Qt::LeftButton); });
        m_program->Trigger("mnuDayView");
        QVERIFY(ShowsLocked());
        QCOMPARE(Box().Text(), QStringLiteral("by hand"));
        QVERIFY(OtherIsRefused());
        OnNextModal<ZoomBoxForm>([](ZoomBoxForm& form) {
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("zoomed "));
            QTest::mouseClick(&In<QPushButton>(form, "btnOk"), Qt::LeftButton);
        });
        m_program->Trigger("mnuDayView");
        QVERIFY(ShowsFree());
        QCOMPARE(Stored(), QStringLiteral("zoomed by hand"));
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("APRIL 1999"));
    }

    // It opens on what this screen knows of the day.
    void theDayViewKeepsWhatOthersWrote_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("stored");
        QTest::newRow("typed") << QStringLiteral("mine") << QStringLiteral("theirs\nmine");
        QTest::newRow("looked at") << QString() << QStringLiteral("theirs");
    }
    void theDayViewKeepsWhatOthersWrote()
    {
        QFETCH(QString, typed);
        QFETCH(QString, stored);
        m_program->Click(18);
        OtherWrites("theirs");
        OnNextModal<ZoomBoxForm>([&](ZoomBoxForm& form) {
            QTest::keyClicks(&form.tbZoom(), typed);
            QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("btnOk")), Qt::LeftButton);
        });
        m_program->Trigger("mnuDayView");
        QCOMPARE(Stored(), stored);
        QCOMPARE(Box().Text(), stored);
    }

    void theRefreshReadsAgain()
    {
        auto& refresh = m_program->Find<PictureButton>("picRefresh");
        m_program->Click(18);
        OtherWrites("first");
        QTest::mouseClick(&refresh, Qt::LeftButton);
        QCOMPARE(Box().Text(), QStringLiteral("first"));
        QVERIFY(refresh.Visible(0));
        m_program->ExpectNoBox();
        m_program->Trigger("mnuLockDay"); // the day with the caret
        QVERIFY(ShowsLocked());
        PressLock();
        DropAnswers();
        g_bAutoRefresh = true;
        g_lRefreshDelay = 2;
        g_lRefreshTicks = 0;
        OtherWrites("second");
        for (const char* text : {"first", "first", "second"}) {
            m_program->Tick("tmAutoRefresh");
            QTest::qWait(1);
            QCOMPARE(Box().Text(), QString::fromLatin1(text));
        }
        // A lock makes it skip its turn.
        LockAndType(QStringLiteral("!"));
        g_lRefreshTicks = 2;
        m_program->Tick("tmAutoRefresh");
        QTRY_COMPARE(g_lRefreshTicks, 1);
        QCOMPARE(Box().Text(), QStringLiteral("second!"));
    }

    // A full disk at the commit: the day stays locked with its text, and the next try stores it.
    void whatCannotBeStoredStays()
    {
        const FailingStores failing;
        m_program->Open(m_program->File, true);
        LockAndType(QStringLiteral("not lost"));
        *failing.plan = {1, FailurePlan::Before, {3026, QStringLiteral("Disk full")}, QStringLiteral("Replace")};
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuWeekView");
        QCOMPARE(seen.Text, QStringLiteral("Disk full"));
        QVERIFY(ShowsLocked());
        QVERIFY(!Box().isHidden()); // the month has not gone
        QCOMPARE(Box().Text(), QStringLiteral("not lost"));
        PressLock();
        QVERIFY(ShowsFree());
        QCOMPARE(Stored(), QStringLiteral("not lost"));
    }
};

QTEST_MAIN(DayLockTest)
#include "daylocktest.moc"
