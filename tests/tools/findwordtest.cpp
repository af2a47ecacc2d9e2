#include "failingstore.h"
#include "platform/desktop/twips.h"
#include "platform/engine/engineerrors.h"
#include "program.h"
#include "settings/settings.h"
#include "settingsfile.h"
#include "tools/findwordform.h"

// Find Word; today is 17 March 1999.
class FindWordTest : public QObject
{
    Q_OBJECT

    const QString m_name = QStringLiteral("notes.mdb");
    std::unique_ptr<Program> m_program;

    // Keys are texts: the last record is the one whose key is the smallest.
    void Store(const QMap<QString, QByteArray>& notes) const
    {
        Database planner = DBEngine::OpenDatabase(m_program->folders.Path(m_name));
        Recordset records = planner.OpenTable(QStringLiteral("QMT Table"));
        for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
            records.AddNew();
            records.SetField(QStringLiteral("qmtDate"), note.key());
            records.SetField(QStringLiteral("qmtText"), note.value());
            records.Update();
        }
    }

    void Begin(const QMap<QString, QByteArray>& notes, bool shared = false)
    {
        m_program->Start();
        m_program->New(m_name, true);
        Store(notes);
        m_program->Open(m_name, shared);
    }

    FindWordForm& Form() const { return *m_program->form->findChild<FindWordForm*>(); }
    bool IsOpen() const { return m_program->form->findChild<FindWordForm*>() != nullptr; }
    template <typename Control = QPushButton>
    Control& Of(const char* name) const
    {
        return *Form().findChild<Control*>(QString::fromLatin1(name));
    }

    void OpenForm() const
    {
        m_program->Activate();
        QTest::keyClick(m_program->form.get(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(QTest::qWaitFor([this] { return IsOpen() && Form().isActiveWindow(); }));
        QVERIFY(Of<QLineEdit>("tbFindWord").hasFocus());
    }
    void Look(const QString& word) const
    {
        Of<QLineEdit>("tbFindWord").clear();
        for (const QChar letter : word)
            QTest::sendKeyEvent(QTest::Click, &Of<QLineEdit>("tbFindWord"), Qt::Key_unknown, letter, {});
    }
    void ClickNext() const
    {
        QTest::mouseClick(Of("btnFindNext").isVisible() ? &Of("btnFindNext") : &Of("btnFindWithin"), Qt::LeftButton);
    }

    // "1999/3/7 within" for a hit there whose note is selected as a whole; "end" once no more is found.
    QString Next() const
    {
        SeenBox seen;
        QTimer end;
        end.callOnTimeout([&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            seen = {box->windowTitle(), box->text()};
            QTest::keyClick(box, Qt::Key_Return);
        });
        end.start(5);
        ClickNext();
        if (!seen.Title.isEmpty()) return seen.Title == u"End of Search" ? QStringLiteral("end") : seen.Text;
        if (g_iCurrentPanel == 0) return QStringLiteral("no cell");
        const RichTextBox& box = m_program->Box(g_iCurrentPanel);
        for (const RichTextBox* one : m_program->form->findChildren<RichTextBox*>())
            if (one != &box && one->isVisible() && one->SelLength() > 0) return QStringLiteral("another one too");
        const bool isWhole = !box.Text().isEmpty() && box.SelStart() == 0 && box.SelLength() == box.Text().size();
        return QStringLiteral("%1/%2/%3%4")
            .arg(g_iYear)
            .arg(g_iMonth)
            .arg(m_program->Panel(g_iCurrentPanel).Caption().trimmed(), isWhole ? QString() : QStringLiteral(" bare"));
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void WalksFromTheLastRecordToTheFirst()
    {
        Begin({{QStringLiteral("1999/3/9"), "Milk and MILK again"},
               {QStringLiteral("1998/12/31"), "{\\rtf1\\b buy milk}"},
               {QStringLiteral("1999/10/2"), "{\\rtf1 f\\u252?r M\\'fcller}"},
               {QStringLiteral("1999/3/20"), "milk in the same month"},
               {QStringLiteral("1999/3/Memo2"), "milk, but in a memo"},
               {QStringLiteral("2100/2/29"), "milk of a day of the grid alone"},
               {QStringLiteral("nonsense"), "milk of no day"}});
        OpenForm();
        Look(QStringLiteral("mIlK"));
        const QStringList walk = {QStringLiteral("1998/12/31"), QStringLiteral("1999/3/20"), QStringLiteral("1999/3/9"),
                                  QStringLiteral("1999/3/9"),   QStringLiteral("2100/2/29"), QStringLiteral("end")};
        for (const QString& hit : walk)
            QCOMPARE(Next(), hit);
        QVERIFY(!Of("btnFindNext").isEnabled());
        QVERIFY(!Of("btnFindWithin").isEnabled());
        Look(QStringLiteral("müller"));
        QVERIFY(Of("btnFindNext").isEnabled());
        QCOMPARE(Next(), QStringLiteral("1999/10/2"));
        QCOMPARE(m_program->Bottom().Caption(), QStringLiteral("OCTOBER 1999"));
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([this] { return !IsOpen(); }));
        QCOMPARE(m_program->Box(g_iCurrentPanel).SelLength(), 0); // one letter would take the note's place
    }

    // The record that the search stands on after the change of the word is not looked at.
    void AChangedWordBeginsBeforeTheLastRecord()
    {
        Begin({{QStringLiteral("1999/3/1"), "first word"}, {QStringLiteral("1999/3/2"), "second word"}});
        OpenForm();
        Look(QStringLiteral("second"));
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Return);
        QCOMPARE(m_program->Box(g_iCurrentPanel).Text(), QStringLiteral("second word"));
        QVERIFY(Of("btnFindWithin").isVisible());
        QVERIFY(!Of("btnFindNext").isVisible());
        QVERIFY(Form().isActiveWindow()); // who presses Enter again goes on searching
        Look(QStringLiteral("first"));
        QVERIFY(Of("btnFindNext").isVisible());
        QCOMPARE(Next(), QStringLiteral("end"));
        Look(QStringLiteral("word"));
        QCOMPARE(Next(), QStringLiteral("1999/3/2"));
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([this] { return !IsOpen(); }));
        OpenForm(); // which begins anew
        Look(QStringLiteral("first"));
        QCOMPARE(Next(), QStringLiteral("1999/3/1"));
    }

    void WildcardsAndBrokenPatterns()
    {
        Begin({{QStringLiteral("1999/3/1"), "not looked at"},
               {QStringLiteral("1999/3/2"), "a dentist at 9"},
               {QStringLiteral("1999/3/3"), "milk"}});
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/3/3"));
        Look(QStringLiteral("den*st at #"));
        QCOMPARE(Next(), QStringLiteral("1999/3/2 bare")); // the pattern as a word stands nowhere in it
        for (const QString& broken : {QStringLiteral("don't"), QStringLiteral("[a-")}) {
            Look(broken);
            QCOMPARE(Next(), QStringLiteral("end"));
            QVERIFY(m_program->Log().contains(" 1:") || m_program->Log().contains(" 2:"));
        }
        QVERIFY(m_program->Log().contains(" in FindWordForm, btnFindNext_Click"));
    }

    void InTheWeekTheWeekIsTurned()
    {
        Begin({{QStringLiteral("1999/3/31"), "milk twice: milk"}});
        m_program->Trigger("mnuWeekView");
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/3/31"));
        QVERIFY(g_iCurrentPanel >= FirstWeekCell);
        // Turned away meanwhile: the hit's day is shown again.
        m_program->Trigger("mnuPrevWeek");
        QCOMPARE(Next(), QStringLiteral("1999/3/31"));
    }

    void WhatWasTypedIsSavedOnTheWay()
    {
        Begin({{QStringLiteral("1999/1/5"), "milk"}});
        m_program->Type(20, QStringLiteral("typed"));
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/1/5"));
        QVERIFY(m_program->Stored(m_name, QStringLiteral("1999/3/19")).contains("typed"));
    }

    void ALockedDayIsCommittedOnTheWay()
    {
        Begin({{QStringLiteral("1999/1/5"), "milk"}}, true);
        m_program->Click(20);
        m_program->Trigger("mnuLockDay");
        QTest::keyClicks(&m_program->Box(20), QStringLiteral("typed"));
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/1/5"));
        QVERIFY(m_program->Stored(m_name, QStringLiteral("1999/3/19")).contains("typed"));
        QCOMPARE(MarkedCell(), 0);
    }

    void AnotherPlannerIsSearchedFromItsEnd()
    {
        Begin({{QStringLiteral("1999/1/5"), "milk"}, {QStringLiteral("1999/2/5"), "milk"}});
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/1/5"));
        m_program->Open(m_name, true); // the same in another way
        QCOMPARE(Next(), QStringLiteral("1999/1/5"));
        m_program->New(QStringLiteral("other.mdb"));
        QCOMPARE(Next(), QStringLiteral("end"));
        // Nothing keeps the planner open that was searched.
        DBEngine::DeleteDatabase(m_program->folders.Path(m_name));
        m_program->form->setFocus();
        m_program->Trigger("mnuFindWord");
        QVERIFY(QTest::qWaitFor([this] { return Form().isActiveWindow(); }));
    }

    void ALostConnectionIsToldAndTheSearchGoesOn()
    {
        const FailingStores failing;
        Begin({{QStringLiteral("1999/1/5"), "milk"}, {QStringLiteral("1999/2/5"), "milk"}});
        OpenForm();
        Look(QStringLiteral("milk"));
        QCOMPARE(Next(), QStringLiteral("1999/1/5"));
        *failing.plan = {
            1, FailurePlan::Before, {engineerrors::BrokenConnection, QStringLiteral("gone")}, QStringLiteral("Find")};
        QCOMPARE(Next(), QStringLiteral("gone"));
        QVERIFY(Of("btnFindNext").isEnabled());
        QCOMPARE(Next(), QStringLiteral("1999/2/5"));
    }

    void KeepsItsPlaceAndEndsWithTheProgram()
    {
        SetIni("FindWordForm", "Left", "3000");
        Begin({});
        OpenForm();
        QCOMPARE(Form().pos(), QPoint(200, ToPixels(100)));
        QVERIFY(!Form().isModal());
        QVERIFY(!Form().windowFlags().testFlag(Qt::WindowStaysOnTopHint)); // in front of its own program alone
        QCOMPARE(Form().parentWidget(), m_program->form.get());
        Form().move(300, 220);
        m_program->Exit();
        QCOMPARE(Read(settings::FindWordLeft), ToTwips(300));
        QCOMPARE(Read(settings::FindWordTop), ToTwips(220));
    }
};

QTEST_MAIN(FindWordTest)
#include "findwordtest.moc"
