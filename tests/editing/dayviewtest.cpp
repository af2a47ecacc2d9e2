#include "editing/zoomboxform.h"
#include "failingstore.h"
#include "platform/controls/picturebutton.h"
#include "program.h"
#include "settingsfile.h"

#include <QGroupBox>

// The day view over the real window; today is 17 March 1999, which stands in cell 18.
class DayViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = QStringLiteral("notes.mdb");

    static void InDayView(std::function<void(ZoomBoxForm&)> act) { OnNextModal<ZoomBoxForm>(std::move(act)); }

    static void Press(ZoomBoxForm& form, const char* button)
    {
        QTest::keyClick(&In<QPushButton>(form, button), Qt::Key_Return);
    }

    static QString Heading(const ZoomBoxForm& form) { return In<QGroupBox>(form, "frZoom").title(); }

    bool ScratchExists() const
    {
        return QFile::exists(folders::ApplicationDirectory() + QStringLiteral("/dayview.rtf"));
    }

    QByteArray StoredAfterSave(const QString& key)
    {
        m_program->Trigger("mnuSave");
        return m_program->Stored(m_file, key);
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void okTakesTheTextOver()
    {
        m_program->New(m_file);
        m_program->Type(18, QStringLiteral("tea"));
        InDayView([&](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), QStringLiteral("Zoom View/Edit For MARCH 17, 1999"));
            QCOMPARE(form.size(), QSize(411, 311)); // until it was closed at another size
            QVERIFY(ScratchExists());
            QVERIFY(m_program->Find<PictureButton>("picDay").Visible(1));
            form.move(60, 50);
            form.resize(500, 400);
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("green "));
            Select(form.tbZoom(), 0, 5);
            Activate(form);
            QTest::keyClick(&form.tbZoom(), Qt::Key_B, Qt::ControlModifier);
            Press(form, "btnOk");
        });
        QTest::keyClick(&m_program->Box(18), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(m_program->Box(18).Text(), QStringLiteral("green tea"));
        QVERIFY(!ScratchExists());
        QVERIFY(StoredAfterSave(QStringLiteral("1999/3/17")).contains("green"));
        Select(m_program->Box(18), 0, 5);
        QCOMPARE(m_program->Box(18).SelBold(), true);
        QCOMPARE(Ini("Zoombox", "Left"), QStringLiteral("900"));
        QCOMPARE(Ini("Zoombox", "Width"), QStringLiteral("7500"));
        QCOMPARE(Ini("Zoombox", "Height"), QStringLiteral("6000"));
    }

    void waysOutWithoutTheText_data()
    {
        QTest::addColumn<bool>("cancels");
        QTest::newRow("cancel") << true;
        QTest::newRow("escape") << false;
    }
    void waysOutWithoutTheText()
    {
        QFETCH(bool, cancels);
        m_program->New(m_file);
        m_program->Type(18, QStringLiteral("kept"));
        InDayView([cancels](ZoomBoxForm& form) {
            form.move(60, 50);
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("never "));
            if (cancels)
                Press(form, "btnCancel");
            else
                QTest::keyClick(&form.tbZoom(), Qt::Key_Escape);
        });
        Q_EMIT m_program->Panel(18).DblClick();
        QCOMPARE(WaitingAnswers(), 0);
        RichTextBox& box = m_program->Box(18);
        QCOMPARE(m_program->Bottom().Caption().contains(QStringLiteral("Ctrl+Z")), !cancels);
        QCOMPARE(box.Text(), QStringLiteral("kept"));
        for (const char* undone : {"never kept", "kept"}) {
            if (!cancels) QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
            if (!cancels) QCOMPARE(box.Text(), QString::fromLatin1(undone));
            QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("MARCH 1999")); // the offer is over
        }
        QCOMPARE(Ini("Zoombox", "Left"), QStringLiteral("none"));
        QVERIFY(StoredAfterSave(QStringLiteral("1999/3/17")).contains("kept"));
    }

    // Whoever closes a window by its title expects what was written to be there.
    void theCloseBoxKeepsTheText()
    {
        m_program->New(m_file);
        m_program->Click(33);
        InDayView([](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), QStringLiteral("Zoom View/Edit For MARCH Memo"));
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("roses"));
            form.close();
        });
        m_program->Trigger("mnuDayView");
        QVERIFY(StoredAfterSave(QStringLiteral("1999/3/Memo2")).contains("roses"));
    }

    // The four styles of the initial font are the cell's alone.
    void anEmptyDayBeginsInTheInitialFont()
    {
        SetIni("DEFAULT FONTS", "BOLD", "1");
        SetIni("DEFAULT FONTS", "FONTSIZE", "15");
        m_program->New(m_file);
        m_program->Click(20);
        QCOMPARE(m_program->Box(20).SelBold(), true);
        InDayView([](ZoomBoxForm& form) {
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("x"));
            Select(form.tbZoom(), 0, 1);
            QCOMPARE(form.tbZoom().SelBold(), false);
            QCOMPARE(form.tbZoom().SelFontSize(), 15.0);
            AnswerFontDialog(
                [](QFontDialog& fonts) { fonts.setCurrentFont(QFont(QStringLiteral("Liberation Serif"), 22)); });
            Press(form, "btnFonts");
            QCOMPARE(form.tbZoom().SelFontSize(), 22.0);
            Press(form, "btnOk");
        });
        m_program->Trigger("mnuDayView");
        QCOMPARE(WaitingAnswers(), 0);
    }

    // The clock turns the calendar to today behind the window; the text must not come to stand under another date.
    void midnightBehindTheWindow()
    {
        m_program->New(m_file);
        m_program->Trigger("mnuPrevMonth");
        m_program->Type(18, QStringLiteral("february"));
        InDayView([&](ZoomBoxForm& form) {
            desktopclock::SetForTests(QDateTime(QDate(1999, 3, 18), QTime(0, 0)));
            m_program->Tick("tmMidnightRefresh");
            QTRY_COMPARE(m_program->Bottom().Caption(), QStringLiteral("MARCH 1999"));
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("late "));
            Press(form, "btnOk");
        });
        m_program->Trigger("mnuDayView");
        QCOMPARE(m_program->Box(18).Text(), QString());
        QVERIFY(m_program->Stored(m_file, QStringLiteral("1999/2/17")).contains("late "));
        QVERIFY(StoredAfterSave(QStringLiteral("1999/3/17")).isNull());
    }

    // A day whose note could not be read takes no text in its cell, and none by way of the day view.
    void aDayThatIsNotReadIsRefused()
    {
        const FailingStores failing;
        m_program->New(m_file);
        *failing.plan = {1, FailurePlan::ForEver, {3043, QStringLiteral("A bad disk")}, QStringLiteral("Find")};
        m_program->Trigger("mnuSave");
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        Q_EMIT m_program->Panel(18).DblClick();
        QCOMPARE(seen.Text, QStringLiteral("This day cannot be opened, since its note could not be read."));
    }

    // By a signal or the session's end; a person cannot close the main window behind it.
    void theEndOfTheProgramKeepsWhatStandsInTheWindow()
    {
        m_program->New(m_file);
        m_program->Click(18);
        InDayView([&](ZoomBoxForm& form) {
            QTest::keyClicks(&form.tbZoom(), QStringLiteral("unfinished"));
            m_program->form->subExitProgram(Mainform::SessionEnds);
            form.reject();
        });
        m_program->Trigger("mnuDayView");
        QVERIFY(m_program->Stored(m_file, QStringLiteral("1999/3/17")).contains("unfinished"));
        QVERIFY(!ScratchExists());
    }

    // Commands act on the day that was open, not on the one where the caret had been.
    void theOpenedDayIsTheCurrentOne()
    {
        m_program->New(m_file);
        m_program->Type(18, QStringLiteral("caret"));
        InDayView([](ZoomBoxForm& form) { Press(form, "btnCancel"); });
        Q_EMIT m_program->Panel(20).DblClick();
        QCOMPARE(m_program->form->focusWidget(), &m_program->Box(20));
        QCOMPARE(g_iCurrentPanel, 20);
        m_program->Trigger("mnuWeekView");
        m_program->Trigger("mnuNextWeek");
        m_program->Find<QWidget>("tabSidebar").setFocus();
        InDayView([](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), QStringLiteral("Zoom View/Edit For MARCH 21, 1999")); // the first that is shown
            Press(form, "btnCancel");
        });
        m_program->Trigger("mnuDayView");
        QCOMPARE(WaitingAnswers(), 0);
    }

    void aWorkgroupsDayIsLockedMeanwhile()
    {
        const QString team = QStringLiteral("team.mdb");
        const QString key = QStringLiteral("1999/3/17");
        m_program->New(team, true);
        m_program->Click(18);
        Recordset other = DBEngine::OpenDatabase(m_program->folders.Path(team)).OpenTable(QStringLiteral("QMT Table"));
        other.SetIndex(QStringLiteral("qmtPrimaryKey"));
        const auto* const lock = m_program->form->findChild<PictureButton*>(QStringLiteral("picLock"));
        const auto type = [&](const char* button, const QString& text) {
            InDayView([&, button, text](ZoomBoxForm& form) {
                QVERIFY(lock->Visible(1) && !lock->Visible(0));
                other.Seek(QStringLiteral("="), key);
                QCOMPARE(other.Fields(QStringLiteral("qmtPadding")).toString().size(), 1005);
                QVERIFY_THROWS_EXCEPTION(RunTimeError, other.Edit());
                QTest::keyClicks(&form.tbZoom(), text);
                Press(form, button);
            });
            m_program->Trigger("mnuDayView");
            QVERIFY(lock->Visible(0) && !lock->Visible(1));
        };
        type("btnOk", QStringLiteral("agreed"));
        QVERIFY(m_program->Stored(team, key).contains("agreed"));
        type("btnCancel", QStringLiteral("never "));
        QVERIFY(!m_program->Stored(team, key).contains("never"));
        other.Seek(QStringLiteral("="), key);
        other.Edit(); // now the other has it
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuDayView");
        QVERIFY(seen.Text.contains(QStringLiteral("currently locked by")));
        QVERIFY(lock->Visible(0));
        other.CancelUpdate();
    }
};

QTEST_MAIN(DayViewTest)
#include "dayviewtest.moc"
