#include "editing/zoomboxform.h"
#include "failingstore.h"
#include "settingsfile.h"
#include "testmain.h"
#include "workgroupprogram.h"

// Two users of one planner: the program, which shows March 1999, and a recordset of another connection. The 17th is in
// cell 18.
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
        m_other.Seek(u"="_s, m_program->Key);
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
        QCOMPARE(m_program->Said("mnuLockDay").Text, u"Please select a daily cell to lock"_s);
        QVERIFY(ShowsFree());
        SeenBox seen;
        m_program->Click(18);
        AnswerNextBox(msgbox::Ok, &seen); // no typing before the lock
        QTest::keyClick(&Box(), Qt::Key_X);
        QVERIFY(seen.Text.startsWith(u"Please lock current day in order to edit a shared database."_s));
        LockAndType(u"meeting"_s);
        QCOMPARE(Box().Text(), u"meeting"_s);
        QVERIFY(OtherIsRefused());
        QCOMPARE(m_other.Fields(u"qmtPadding"_s).toString(), QString(1005, u'.'));
        m_program->Activate();
        QTest::keyClick(&Box(), Qt::Key_F2);
        QVERIFY(ShowsFree());
        QVERIFY(!Box().hasFocus());
        QCOMPARE(Stored(), u"meeting"_s);
        QVERIFY(!OtherIsRefused());
        m_program->Click(18);
        m_program->Trigger("mnuNextMonth"); // the caret's cell now shows another day
        QVERIFY(m_program->PressLockAndHear().startsWith(u"Please select"_s));
    }

    void theLockKeepsThePersonInPlace()
    {
        LockAndType(u"kept"_s);
        SeenBox seen;
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            seen = {};
            AnswerNextBox(msgbox::Ok, &seen);
            m_program->ExpectNoBox(); // only this one
            QTest::mouseClick(m_program->Box(20).viewport(), button, {}, QPoint(20, 8));
            QTRY_COMPARE(seen.Text, u"Mar 17, 1999 is locked(Edit Mode), please unlock first."_s);
            QTRY_COMPARE(m_program->form->focusWidget(), &Box());
            QTRY_COMPARE(QApplication::activePopupWidget() != nullptr, button == Qt::RightButton);
            if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
            DropAnswers();
            m_program->Activate();
        }
        for (const char* entry : {"mnuNextMonth", "mnuRefresh"}) {
            m_program->Find<QWidget>("tabSidebar").setFocus();
            QCOMPARE(m_program->Said(entry).Text, u"Mar 17, 1999 is locked, please unlock first."_s);
            QCOMPARE(m_program->form->focusWidget(), &Box());
        }
        m_program->ExpectNoBox(); // from the click of a double click
        QTest::mouseClick(&m_program->Panel(20), Qt::LeftButton);
        DropAnswers();
        QCOMPARE(m_program->form->focusWidget(), &Box());
        AnswerNextBox(msgbox::Ok, &seen);
        Q_EMIT m_program->Panel(20).DblClick(); // opening the day view of another day would move the lock
        QCOMPARE(seen.Text, u"Mar 17, 1999 is locked, please unlock first."_s);
        QVERIFY(ShowsLocked() && OtherIsRefused());
        QCOMPARE(Box().Text(), u"kept"_s);
        PressLock();
        QCOMPARE(Stored(), u"kept"_s);
    }

    // Ways to leave the day without closing anything commit first.
    void otherWaysOutCommit()
    {
        for (const auto& [what, entry] : Rows<QString>{{"this month", u"mnuThisMonth"_s},
                                                       {"week view", u"mnuWeekView"_s},
                                                       {"midnight", {}},
                                                       {"a new planner that is not made", u"mnuNew"_s}}) {
            const InRow row(this, what);
            LockAndType(u"on the way"_s);
            if (entry == u"mnuNew") {
                AnswerNextFileDialog(m_program->folders.Path(m_program->File)); // an existing file
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
            QCOMPARE(Stored(), u"on the way"_s);
            QVERIFY(!OtherIsRefused());
        }
    }

    void aDayLeftIdleIsCommitted()
    {
        SetIni("Network Options", "AutoUnLock", "1");
        LockAndType(u"idle"_s);
        QCOMPARE(g_lUnlockDelay, 300); // the default
        g_lUnlockDelay = 3;
        g_lUnlockTicks = 1;
        QTest::keyClicks(&Box(), u"!"_s); // resets the idle counter
        QCOMPARE(g_lUnlockTicks, 0);
        for (int second = 0; second < 2; ++second)
            m_program->Tick("tmUnLock");
        QTRY_COMPARE(g_lUnlockTicks, 2);
        QVERIFY(ShowsLocked());
        QWidget other; // the calendar is not the active window
        other.show();
        Activate(other);
        m_program->Tick("tmUnLock");
        QTRY_VERIFY(ShowsFree());
        QVERIFY(!m_program->Panel(18).IsActive());
        QCOMPARE(Stored(), u"idle!"_s);
    }

    void theDayViewLocksByItself()
    {
        m_program->Click(18);
        for (const char* button : {"btnOk", "btnCancel"}) {
            m_program->InWindow<ZoomBoxForm>("mnuDayView", [&](ZoomBoxForm& form) {
                QVERIFY(m_program->ShowsLocked() && OtherIsRefused());
                QTest::keyClicks(&form.tbZoom(), u"agreed"_s);
                Press(form, button);
            });
            QVERIFY(ShowsFree());
            QCOMPARE(Stored(), u"agreed"_s);
        }
        m_other.Seek(schema::Equal, m_program->Key);
        m_other.Edit(); // now the other user has the lock
        QVERIFY(m_program->Said("mnuDayView").Text.contains(u"currently locked by"_s));
        QVERIFY(ShowsFree());
        m_other.CancelUpdate();
    }

    // The day view starts with the text that this screen shows.
    void theDayViewKeepsWhatOthersWrote()
    {
        for (const auto& [what, typed, stored] :
             Rows<QString, QString>{{"typed", u"mine"_s, u"theirs\nmine"_s}, {"looked at", {}, u"theirs"_s}}) {
            const InRow row(this, what);
            m_program->Click(18);
            OtherWrites("theirs");
            m_program->InWindow<ZoomBoxForm>("mnuDayView", [&](ZoomBoxForm& form) {
                QTest::keyClicks(&form.tbZoom(), typed);
                Press(form, "btnOk");
            });
            QCOMPARE(Stored(), stored);
            QCOMPARE(Box().Text(), stored);
        }
    }

    void theRefreshReadsAgain()
    {
        auto& refresh = m_program->Find<PictureButton>("picRefresh");
        m_program->Click(18);
        OtherWrites("first");
        QTest::mouseClick(&refresh, Qt::LeftButton);
        QCOMPARE(Box().Text(), u"first"_s);
        QVERIFY(refresh.Visible(0));
        m_program->ExpectNoBox();
        m_program->Trigger("mnuLockDay"); // locks the day with the caret
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
        OtherWrites("third"); // the lock reads it, and the refresh then skips its turn
        LockAndType(u"!"_s);
        g_lRefreshTicks = 2;
        m_program->Tick("tmAutoRefresh");
        QTRY_COMPARE(g_lRefreshTicks, 1);
        QCOMPARE(Box().Text(), u"third!"_s);
        PressLock();
        QCOMPARE(Stored(), u"third!"_s);
    }

    // The commit fails on a full disk. The day stays locked with its text, and the next try stores it.
    void whatCannotBeStoredStays()
    {
        const FailingStores failing;
        m_program->Open(m_program->File, true);
        LockAndType(u"not lost"_s);
        *failing.plan = {1, FailurePlan::Before, {3026, u"Disk full"_s}, u"Replace"_s};
        QCOMPARE(m_program->Said("mnuWeekView").Text, u"Disk full"_s);
        QVERIFY(ShowsLocked());
        QVERIFY(!Box().isHidden()); // the view has not changed
        QCOMPARE(Box().Text(), u"not lost"_s);
        PressLock();
        QVERIFY(ShowsFree());
        QCOMPARE(Stored(), u"not lost"_s);
    }
};

ORRELIN_TEST(DayLockTest)
#include "daylocktest.moc"
