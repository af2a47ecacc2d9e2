#include "planners.h"
#include "program.h"
#include "testmain.h"

// Notes typed into the real window, saved, and seen again.
class NotesTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = u"notes.mdb"_s;

    QByteArray Stored(const char* key) const { return m_program->Stored(m_file, QString::fromLatin1(key)); }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&m_program->Box(20), Qt::Key(key), modifiers);
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(m_file);
    }
    void cleanup() { m_program.reset(); }

    void WhatWasTypedStandsThereAfterTheNextStart()
    {
        QVERIFY(QFile::exists(m_program->folders.Path(m_file)));
        m_program->Type(18, u"Choir "_s);
        m_program->Trigger("mnuBold");
        QTest::keyClicks(&m_program->Box(18), u"19:00"_s);
        m_program->Type(1, u"a memo"_s);
        m_program->Exit();

        m_program->Start();
        QCOMPARE(m_program->Box(18).Text(), QString());
        m_program->Open(u"notes.mdb"_s);
        QCOMPARE(m_program->Box(18).Text(), u"Choir 19:00"_s);
        QCOMPARE(m_program->Box(1).Text(), u"a memo"_s);
        Select(m_program->Box(18), 0, 6);
        QCOMPARE(m_program->Box(18).SelBold(), std::optional(false));
        Select(m_program->Box(18), 6, 5);
        QCOMPARE(m_program->Box(18).SelBold(), std::optional(true));
        QCOMPARE(m_program->form->windowTitle().section(u'/', -1), u"notes.mdb"_s);
        // The exit saves all cells, including seven of the week that were never loaded.
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void MovingAwayWritesAndComingBackReads()
    {
        m_program->Type(20, u"train 8:12"_s);
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Box(20).Text(), QString());
        QVERIFY(Stored("1999/3/19").contains("train 8:12"));
        // The caret is still in the cell, which now shows another day.
        QTest::keyClicks(&m_program->Box(20), u"in April"_s);
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Box(20).Text(), u"train 8:12"_s);
        QVERIFY(Stored("1999/4/16").contains("in April"));
        Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_program->Box(20).Text(), u"train 8:12"_s);
    }

    void AnUndoNeverBringsBackAnotherDaysText()
    {
        m_program->Type(20, u"secret"_s);
        for (int i = 0; i < 6; ++i)
            Press(Qt::Key_Backspace);
        m_program->Trigger("mnuNextMonth"); // both days are empty
        Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_program->Box(20).Text(), QString());
    }

    void AnEmptiedDayLeavesNoRecord()
    {
        m_program->Type(20, u"x"_s);
        m_program->Trigger("mnuSave");
        QVERIFY(!Stored("1999/3/19").isNull());
        m_program->Click(20);
        Press(Qt::Key_End);
        Press(Qt::Key_Backspace);
        m_program->Click(21); // stays empty
        m_program->Trigger("mnuSave");
        QVERIFY(Stored("1999/3/19").isNull());
        QVERIFY(Stored("1999/3/20").isNull());
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void EnteringACellChangesNothing()
    {
        for (const auto& [what, stored] : Rows<QByteArray>{
                 {"foreign", "{\\rtf1\\ansi{\\fonttbl{\\f0 Times;}}\\f0\\fs30 old {\\*\\unknown x}note\\par}"},
                 {"shows nothing", "{\\rtf1{\\*\\unknown x}}"}}) {
            const InRow row(this, what);
            // Another program's connection. A new planner is open shared.
            Recordset other = schema::OpenNotes(DBEngine::OpenDatabase(g_sNotesFile));
            Write(other, u"1999/3/19"_s, stored);
            m_program->Trigger("mnuSave");
            m_program->Click(20);
            m_program->Trigger("mnuNextMonth");
            QCOMPARE(Stored("1999/3/19"), stored);
            m_program->Trigger("mnuPrevMonth");
            m_program->Click(20);
            const int caret = m_program->Box(20).SelStart();
            Write(other, u"1999/3/19"_s, "newer"); // while this program has the day on screen
            m_program->Trigger("mnuSave");
            QCOMPARE(m_program->Box(20).Text(), u"newer"_s);
            QCOMPARE(m_program->Box(20).SelStart(), caret);
        }
    }

    void ASaveLeavesTheWriterWhereHeWas()
    {
        m_program->Type(20, u"one two"_s);
        RichTextBox& box = m_program->Box(20);
        QTest::keyClick(&box, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        m_program->Trigger("mnuSave");
        QCOMPARE(box.SelStart(), 4);
        QCOMPARE(g_iCurrentPanel, std::int16_t{0});
        m_program->Trigger("mnuBold"); // the caret decides which cell is meant
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        QCOMPARE(box.SelBold(), std::optional(true));
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(box.Text() != u"one two"_s);
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void APictureAloneIsANote()
    {
        m_program->Box(20).SetTextRTF("{\\rtf1{\\pict\\pngblip\\picwgoal300\\pichgoal300 89504e47}a}");
        m_program->Click(20);
        Press(Qt::Key_End);
        Press(Qt::Key_Backspace);
        QCOMPARE(m_program->Box(20).Text(), QString());
        m_program->Trigger("mnuSave");
        QVERIFY(Stored("1999/3/19").contains("\\pict"));
    }

    void KeysOfTheMenuStayWithTheMenu()
    {
        m_program->Type(20, u"abc"_s);
        m_program->Entry("mnuColorSizeFonts").setEnabled(false);
        Press(Qt::Key_A, Qt::ControlModifier); // the box must not handle the key itself
        QCOMPARE(m_program->Box(20).SelLength(), 0);
        Press(Qt::Key_Home, Qt::ShiftModifier);
        Press(Qt::Key_X, Qt::ControlModifier);
        QTRY_COMPARE(m_program->Box(20).Text(), QString());
        Press(Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(m_program->Box(20).Text(), u"abc"_s);
    }

    void AClickSelectsTheDayButNotOnAMemo()
    {
        m_program->Click(20);
        QCOMPARE(g_iDay, std::int16_t{19});
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        m_program->Click(1);
        QCOMPARE(g_iDay, std::int16_t{19});
        QTest::mouseClick(&m_program->Panel(24), Qt::LeftButton, {}, QPoint(8, 8));
        QCOMPARE(g_iDay, std::int16_t{23});
        QCOMPARE(g_iCurrentPanel, std::int16_t{24});
        QCOMPARE(m_program->form->focusWidget(), &m_program->Box(24));
    }
};

ORRELIN_TEST(NotesTest)
#include "notestest.moc"
