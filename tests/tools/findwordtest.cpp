#include "failingstore.h"
#include "platform/desktop/twips.h"
#include "platform/engine/engineerrors.h"
#include "program.h"
#include "settings/settings.h"
#include "settingsfile.h"
#include "testmain.h"
#include "tools/findwordform.h"

// Find Word; today is 17 March 1999.
class FindWordTest : public QObject
{
    Q_OBJECT

    const QString m_name = u"notes.mdb"_s;
    std::unique_ptr<Program> m_program;

    // Keys sort as texts, so the last record has the smallest key.
    void Store(const QMap<QString, QByteArray>& notes) const
    {
        Database planner = DBEngine::OpenDatabase(m_program->folders.Path(m_name));
        Recordset records = planner.OpenTable(u"QMT Table"_s);
        for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
            records.AddNew();
            records.SetField(u"qmtDate"_s, note.key());
            records.SetField(u"qmtText"_s, note.value());
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

    // Goes to the next hit. Returns its day, with "within" if the whole note is selected; "end" after the last.
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
        if (!seen.Title.isEmpty()) return seen.Title == u"End of Search" ? u"end"_s : seen.Text;
        if (g_iCurrentPanel == 0) return u"no cell"_s;
        const RichTextBox& box = m_program->Box(g_iCurrentPanel);
        for (const RichTextBox* one : m_program->form->findChildren<RichTextBox*>())
            if (one != &box && one->isVisible() && one->SelLength() > 0) return u"another one too"_s;
        const bool isWhole = !box.Text().isEmpty() && box.SelStart() == 0 && box.SelLength() == box.Text().size();
        return u"%1/%2/%3%4"_s.arg(g_iYear).arg(g_iMonth).arg(m_program->Panel(g_iCurrentPanel).Caption().trimmed(),
                                                              isWhole ? QString() : u" bare"_s);
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void WalksFromTheLastRecordToTheFirst()
    {
        Begin({{u"1999/3/9"_s, "Milk and MILK again"},
               {u"1998/12/31"_s, "{\\rtf1\\b buy milk}"},
               {u"1999/10/2"_s, "{\\rtf1 f\\u252?r M\\'fcller}"},
               {u"1999/3/20"_s, "milk in the same month"},
               {u"1999/3/Memo2"_s, "milk, but in a memo"},
               {u"2100/2/29"_s, "milk of a day of the grid alone"},
               {u"nonsense"_s, "milk of no day"}});
        OpenForm();
        Look(u"mIlK"_s);
        const QStringList walk = {u"1998/12/31"_s, u"1999/3/20"_s, u"1999/3/9"_s,
                                  u"1999/3/9"_s,   u"2100/2/29"_s, u"end"_s};
        for (const QString& hit : walk)
            QCOMPARE(Next(), hit);
        QVERIFY(!Of("btnFindNext").isEnabled());
        QVERIFY(!Of("btnFindWithin").isEnabled());
        Look(u"müller"_s);
        QVERIFY(Of("btnFindNext").isEnabled());
        QCOMPARE(Next(), u"1999/10/2"_s);
        QCOMPARE(m_program->Bottom().Caption(), u"OCTOBER 1999"_s);
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([this] { return !IsOpen(); }));
        QCOMPARE(m_program->Box(g_iCurrentPanel).SelLength(), 0); // a typed letter would replace a selected note
    }

    // After a change of the word, the search skips the record it stands on.
    void AChangedWordBeginsBeforeTheLastRecord()
    {
        Begin({{u"1999/3/1"_s, "first word"}, {u"1999/3/2"_s, "second word"}});
        OpenForm();
        Look(u"second"_s);
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Return);
        QCOMPARE(m_program->Box(g_iCurrentPanel).Text(), u"second word"_s);
        QVERIFY(Of("btnFindWithin").isVisible());
        QVERIFY(!Of("btnFindNext").isVisible());
        QVERIFY(Form().isActiveWindow()); // so that Enter searches again
        Look(u"first"_s);
        QVERIFY(Of("btnFindNext").isVisible());
        QCOMPARE(Next(), u"end"_s);
        Look(u"word"_s);
        QCOMPARE(Next(), u"1999/3/2"_s);
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([this] { return !IsOpen(); }));
        OpenForm(); // starts again
        Look(u"first"_s);
        QCOMPARE(Next(), u"1999/3/1"_s);
    }

    void WildcardsAndBrokenPatterns()
    {
        Begin({{u"1999/3/1"_s, "not looked at"}, {u"1999/3/2"_s, "a dentist at 9"}, {u"1999/3/3"_s, "milk"}});
        OpenForm();
        Look(u"milk"_s);
        QCOMPARE(Next(), u"1999/3/3"_s);
        Look(u"den*st at #"_s);
        QCOMPARE(Next(), u"1999/3/2 bare"_s); // as a plain word the pattern is nowhere in the note
        for (const QString& broken : {u"don't"_s, u"[a-"_s}) {
            Look(broken);
            QCOMPARE(Next(), u"end"_s);
            QVERIFY(m_program->Log().contains(" 1:") || m_program->Log().contains(" 2:"));
        }
        QVERIFY(m_program->Log().contains(" in FindWordForm, btnFindNext_Click"));
    }

    void InTheWeekTheWeekIsTurned()
    {
        Begin({{u"1999/3/31"_s, "milk twice: milk"}});
        m_program->Trigger("mnuWeekView");
        OpenForm();
        Look(u"milk"_s);
        QCOMPARE(Next(), u"1999/3/31"_s);
        QVERIFY(g_iCurrentPanel >= FirstWeekCell);
        // After a turn to another page, the hit's day is shown again.
        m_program->Trigger("mnuPrevWeek");
        QCOMPARE(Next(), u"1999/3/31"_s);
    }

    void WhatWasTypedIsSavedOnTheWay()
    {
        for (const bool shared : {false, true}) {
            cleanup(), init();
            Begin({{u"1999/1/5"_s, "milk"}}, shared);
            m_program->Click(20);
            if (shared) m_program->Trigger("mnuLockDay");
            QTest::keyClicks(&m_program->Box(20), u"typed"_s);
            OpenForm();
            Look(u"milk"_s);
            QCOMPARE(Next(), u"1999/1/5"_s);
            QVERIFY(m_program->Stored(m_name, u"1999/3/19"_s).contains("typed"));
            if (shared) QCOMPARE(MarkedCell(), 0);
        }
    }

    void AnotherPlannerIsSearchedFromItsEnd()
    {
        Begin({{u"1999/1/5"_s, "milk"}, {u"1999/2/5"_s, "milk"}});
        OpenForm();
        Look(u"milk"_s);
        QCOMPARE(Next(), u"1999/1/5"_s);
        m_program->Open(m_name, true); // opens the same planner shared
        QCOMPARE(Next(), u"1999/1/5"_s);
        m_program->New(u"other.mdb"_s);
        QCOMPARE(Next(), u"end"_s);
        // The search keeps no planner open.
        DBEngine::DeleteDatabase(m_program->folders.Path(m_name));
        m_program->form->setFocus();
        m_program->Trigger("mnuFindWord");
        QVERIFY(QTest::qWaitFor([this] { return Form().isActiveWindow(); }));
    }

    void ALostConnectionIsToldAndTheSearchGoesOn()
    {
        const FailingStores failing;
        Begin({{u"1999/1/5"_s, "milk"}, {u"1999/2/5"_s, "milk"}});
        OpenForm();
        Look(u"milk"_s);
        QCOMPARE(Next(), u"1999/1/5"_s);
        *failing.plan = {1, FailurePlan::Before, {engineerrors::BrokenConnection, u"gone"_s}, u"Find"_s};
        QCOMPARE(Next(), u"gone"_s);
        QVERIFY(Of("btnFindNext").isEnabled());
        QCOMPARE(Next(), u"1999/2/5"_s);
    }

    void KeepsItsPlaceAndEndsWithTheProgram()
    {
        SetIni("FindWordForm", "Left", "3000");
        Begin({});
        OpenForm();
        QCOMPARE(Form().pos(), QPoint(200, ToPixels(100)));
        QVERIFY(!Form().isModal());
        QVERIFY(!Form().windowFlags().testFlag(Qt::WindowStaysOnTopHint)); // it stays in front of the program only
        QCOMPARE(Form().parentWidget(), m_program->form.get());
        Form().move(300, 220);
        m_program->Exit();
        QCOMPARE(Read(settings::FindWordLeft), ToTwips(300));
        QCOMPARE(Read(settings::FindWordTop), ToTwips(220));
    }
};

ORRELIN_TEST(FindWordTest)
#include "findwordtest.moc"
