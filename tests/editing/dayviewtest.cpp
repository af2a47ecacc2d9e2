#include "editing/zoomboxform.h"
#include "failingstore.h"
#include "platform/controls/picturebutton.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QGroupBox>

// The day view over the real window; today is 17 March 1999, in cell 18.
class DayViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = u"notes.mdb"_s;

    void InDayView(const std::function<void(ZoomBoxForm&)>& act) const { m_program->InWindow("mnuDayView", act); }

    static QString Heading(const ZoomBoxForm& form) { return In<QGroupBox>(form, "frZoom").title(); }

    bool ScratchExists() const { return QFile::exists(folders::ApplicationDirectory() + u"/dayview.rtf"_s); }

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
        m_program->Type(18, u"tea"_s);
        OnNextModal<ZoomBoxForm>([&](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), u"Zoom View/Edit For MARCH 17, 1999"_s);
            QCOMPARE(form.size(), QSize(411, 311)); // the initial size
            QVERIFY(ScratchExists());
            QVERIFY(m_program->Find<PictureButton>("picDay").Visible(1));
            form.move(60, 50);
            form.resize(500, 400);
            QTest::keyClicks(&form.tbZoom(), u"green "_s);
            Select(form.tbZoom(), 0, 5);
            Activate(form);
            QTest::keyClick(&form.tbZoom(), Qt::Key_B, Qt::ControlModifier);
            Press(form, "btnOk");
        });
        QTest::keyClick(&m_program->Box(18), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(m_program->Box(18).Text(), u"green tea"_s);
        QVERIFY(!ScratchExists());
        QVERIFY(StoredAfterSave(u"1999/3/17"_s).contains("green"));
        Select(m_program->Box(18), 0, 5);
        QCOMPARE(m_program->Box(18).SelBold(), true);
        QCOMPARE(Ini("Zoombox", "Left"), u"900"_s);
        QCOMPARE(Ini("Zoombox", "Width"), u"7500"_s);
        QCOMPARE(Ini("Zoombox", "Height"), u"6000"_s);
    }

    void aDoubleClickBelowTheTextOpensIt()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(18, u"word"_s);
        for (const auto& [cell, place, opens] :
             {std::tuple(18, QPoint(15, 8), false), std::tuple(18, QPoint(15, 40), true),
              std::tuple(20, QPoint(15, 8), true)}) {
            bool hasOpened = false;
            OnNextModal<ZoomBoxForm>([&](ZoomBoxForm& form) {
                hasOpened = true;
                form.reject();
            });
            QTest::mouseDClick(m_program->Box(cell).viewport(), Qt::LeftButton, {}, place);
            DropAnswers();
            QCOMPARE(hasOpened, opens);
        }
    }

    void waysOutWithoutTheText()
    {
        for (const auto& [what, cancels] : Rows<bool>{{"cancel", true}, {"escape", false}}) {
            const InRow row(this, what);
            m_program->New(m_file);
            m_program->Type(18, u"kept"_s);
            OnNextModal<ZoomBoxForm>([cancels](ZoomBoxForm& form) {
                form.move(60, 50);
                QTest::keyClicks(&form.tbZoom(), u"never "_s);
                if (cancels) Press(form, "btnCancel");
                if (!cancels) QTest::keyClick(&form.tbZoom(), Qt::Key_Escape);
            });
            Q_EMIT m_program->Panel(18).DblClick();
            QCOMPARE(WaitingAnswers(), 0);
            RichTextBox& box = m_program->Box(18);
            QCOMPARE(m_program->Bottom().Caption().contains(u"Ctrl+Z"_s), !cancels);
            QCOMPARE(box.Text(), u"kept"_s);
            for (const char* undone : {"never kept", "kept"}) {
                if (!cancels) QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
                if (!cancels) QCOMPARE(box.Text(), QString::fromLatin1(undone));
                QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s); // no undo is offered any more
            }
            QCOMPARE(Ini("Zoombox", "Left"), u"none"_s);
            QVERIFY(StoredAfterSave(u"1999/3/17"_s).contains("kept"));
        }
    }

    // The close box keeps the text: a person who closes a window by its title expects that.
    void theCloseBoxKeepsTheText()
    {
        m_program->New(m_file);
        m_program->Click(33);
        InDayView([](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), u"Zoom View/Edit For MARCH Memo"_s);
            QTest::keyClicks(&form.tbZoom(), u"roses"_s);
            form.close();
        });
        QVERIFY(StoredAfterSave(u"1999/3/Memo2"_s).contains("roses"));
    }

    // The styles of the initial font apply in the cell only.
    void anEmptyDayBeginsInTheInitialFont()
    {
        SetIni("DEFAULT FONTS", "BOLD", "1");
        SetIni("DEFAULT FONTS", "FONTSIZE", "15");
        m_program->New(m_file);
        m_program->Click(20);
        QCOMPARE(m_program->Box(20).SelBold(), true);
        InDayView([](ZoomBoxForm& form) {
            QTest::keyClicks(&form.tbZoom(), u"x"_s);
            Select(form.tbZoom(), 0, 1);
            QCOMPARE(form.tbZoom().SelBold(), false);
            QCOMPARE(form.tbZoom().SelFontSize(), 15.0);
            AnswerFontDialog([](QFontDialog& fonts) { fonts.setCurrentFont(QFont(u"Liberation Serif"_s, 22)); });
            Press(form, "btnFonts");
            QCOMPARE(form.tbZoom().SelFontSize(), 22.0);
            Press(form, "btnOk");
        });
    }

    // The clock moves the calendar to today behind the window; the text must not end under another date.
    void midnightBehindTheWindow()
    {
        m_program->New(m_file);
        m_program->Trigger("mnuPrevMonth");
        m_program->Type(18, u"february"_s);
        InDayView([&](ZoomBoxForm& form) {
            desktopclock::SetForTests(QDateTime(QDate(1999, 3, 18), QTime(0, 0)));
            m_program->Tick("tmMidnightRefresh");
            QTRY_COMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
            QTest::keyClicks(&form.tbZoom(), u"late "_s);
            Press(form, "btnOk");
        });
        QCOMPARE(m_program->Box(18).Text(), QString());
        QVERIFY(m_program->Stored(m_file, u"1999/2/17"_s).contains("late "));
        QVERIFY(StoredAfterSave(u"1999/3/17"_s).isNull());
    }

    // A day whose note could not be read takes no text, neither in its cell nor in the day view.
    void aDayThatIsNotReadIsRefused()
    {
        const FailingStores failing;
        m_program->New(m_file);
        *failing.plan = {1, FailurePlan::ForEver, {3043, u"A bad disk"_s}, u"Find"_s};
        m_program->Trigger("mnuSave");
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        Q_EMIT m_program->Panel(18).DblClick();
        QCOMPARE(seen.Text, u"This day cannot be opened, since its note could not be read."_s);
    }

    // Commands act on the opened day, not on the day that had the caret before.
    void theOpenedDayIsTheCurrentOne()
    {
        m_program->New(m_file);
        m_program->Type(18, u"caret"_s);
        OnNextModal<ZoomBoxForm>([](ZoomBoxForm& form) { Press(form, "btnCancel"); });
        Q_EMIT m_program->Panel(20).DblClick();
        QCOMPARE(m_program->form->focusWidget(), &m_program->Box(20));
        QCOMPARE(g_iCurrentPanel, 20);
        m_program->Trigger("mnuWeekView");
        m_program->Trigger("mnuNextWeek");
        m_program->Find<QWidget>("tabSidebar").setFocus();
        InDayView([](ZoomBoxForm& form) {
            QCOMPARE(Heading(form), u"Zoom View/Edit For MARCH 21, 1999"_s); // the first day of the week
            Press(form, "btnCancel");
        });
    }
};

ORRELIN_TEST(DayViewTest)
#include "dayviewtest.moc"
