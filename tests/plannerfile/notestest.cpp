#include "platform/controls/toolbar.h"
#include "platform/profile/profile.h"
#include "program.h"

// Notes typed into the real window, saved, and seen again.
class NotesTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void WhatWasTypedStandsThereAfterTheNextStart()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("Notes"));
        QVERIFY(QFile::exists(program.folders.Path(QStringLiteral("notes.mdb"))));
        program.Type(18, QStringLiteral("Choir "));
        program.Trigger("mnuBold");
        QTest::keyClicks(&program.Box(18), QStringLiteral("19:00"));
        program.Type(1, QStringLiteral("a memo"));
        program.Exit();

        program.Start();
        QCOMPARE(program.Box(18).Text(), QString());
        program.Open(QStringLiteral("notes.mdb"));
        QCOMPARE(program.Box(18).Text(), QStringLiteral("Choir 19:00"));
        QCOMPARE(program.Box(1).Text(), QStringLiteral("a memo"));
        program.Box(18).SetSelStart(0);
        program.Box(18).SetSelLength(6);
        QCOMPARE(program.Box(18).SelBold(), std::optional(false));
        program.Box(18).SetSelStart(6);
        program.Box(18).SetSelLength(5);
        QCOMPARE(program.Box(18).SelBold(), std::optional(true));
        QCOMPARE(program.form->windowTitle().section(u'/', -1), QStringLiteral("notes.mdb"));
        // Seven cells of the week were never loaded; the exit asks them all the same.
        QCOMPARE(program.Log(), QByteArray());
    }

    void MovingAwayWritesAndComingBackReads()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("train 8:12"));
        program.Trigger("mnuNextMonth");
        QCOMPARE(program.Box(20).Text(), QString());
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("train 8:12"));
        // The caret still stands in the cell, which is another day's now.
        QTest::keyClicks(&program.Box(20), QStringLiteral("in April"));
        program.Trigger("mnuPrevMonth");
        QCOMPARE(program.Box(20).Text(), QStringLiteral("train 8:12"));
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/4/16")).contains("in April"));
        QTest::keyClick(&program.Box(20), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Box(20).Text(), QStringLiteral("train 8:12"));
    }

    void AnUndoNeverBringsBackAnotherDaysText()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("secret"));
        for (int i = 0; i < 6; ++i)
            QTest::keyClick(&program.Box(20), Qt::Key_Backspace);
        program.Trigger("mnuNextMonth"); // both days are empty
        QTest::keyClick(&program.Box(20), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Box(20).Text(), QString());
    }

    void AnEmptiedDayLeavesNoRecord()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("x"));
        program.Trigger("mnuSave");
        QVERIFY(!program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).isNull());
        program.Click(20);
        QTest::keyClick(&program.Box(20), Qt::Key_End);
        QTest::keyClick(&program.Box(20), Qt::Key_Backspace);
        program.Click(21); // entered and left empty
        program.Trigger("mnuSave");
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).isNull());
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/20")).isNull());
        QCOMPARE(program.Log(), QByteArray());
    }

    void EnteringACellChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("foreign") << QByteArray(
            "{\\rtf1\\ansi{\\fonttbl{\\f0 Times;}}\\f0\\fs30 old {\\*\\unknown x}note\\par}");
        QTest::newRow("shows nothing") << QByteArray("{\\rtf1{\\*\\unknown x}}");
    }

    void EnteringACellChangesNothing()
    {
        QFETCH(QByteArray, stored);
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        g_rsQMT.AddNew();
        g_rsQMT.SetField(QStringLiteral("qmtDate"), QStringLiteral("1999/3/19"));
        g_rsQMT.SetField(QStringLiteral("qmtText"), stored);
        g_rsQMT.SetField(QStringLiteral("qmtPadding"), QByteArray(1005, '.'));
        g_rsQMT.Update();
        program.Trigger("mnuSave");
        program.Click(20);
        program.Trigger("mnuNextMonth");
        QCOMPARE(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")), stored);
        program.Trigger("mnuPrevMonth");
        program.Click(20);
        // Meanwhile another program writes; this one has a planner just made open, so not for itself alone.
        Recordset other = DBEngine::OpenDatabase(g_sNotesFile).OpenTable(QStringLiteral("QMT Table"));
        other.SetIndex(QStringLiteral("qmtPrimaryKey"));
        other.Seek(QStringLiteral("="), QStringLiteral("1999/3/19"));
        other.Edit();
        other.SetField(QStringLiteral("qmtText"), QByteArray("newer"));
        other.Update();
        program.Trigger("mnuSave");
        QCOMPARE(program.Box(20).Text(), QStringLiteral("newer"));
    }

    void ASaveLeavesTheWriterWhereHeWas()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("one two"));
        RichTextBox& box = program.Box(20);
        QTest::keyClick(&box, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        program.Trigger("mnuSave");
        QCOMPARE(box.SelStart(), 4);
        QCOMPARE(g_iCurrentPanel, std::int16_t{0});
        program.Trigger("mnuBold"); // the caret tells which cell is meant
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        QCOMPARE(box.SelBold(), std::optional(true));
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(box.Text() != QStringLiteral("one two"));
        program.Trigger("mnuSave");
        QCOMPARE(program.Log(), QByteArray());
    }

    void APictureAloneIsANote()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Box(20).SetTextRTF("{\\rtf1{\\pict\\pngblip\\picwgoal300\\pichgoal300 89504e47}a}");
        program.Click(20);
        QTest::keyClick(&program.Box(20), Qt::Key_End);
        QTest::keyClick(&program.Box(20), Qt::Key_Backspace);
        QCOMPARE(program.Box(20).Text(), QString());
        program.Trigger("mnuSave");
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("\\pict"));
    }

    void AnEmptyCellTakesTheDefaultFontAndAFullOneKeepsIts()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        const auto ini = [](const char* key, const char* value) {
            WritePrivateProfileStringA(QStringLiteral("DEFAULT FONTS"), QString::fromLatin1(key),
                                       QString::fromLatin1(value), QStringLiteral("PLANNER.INI"));
        };
        program.Type(20, QStringLiteral("plain"));
        ini("FONTNAME", "Courier New");
        ini("FONTSIZE", "14");
        ini("BOLD", "2"); // only 1 is true
        ini("ITALIC", "1");
        ini("FONTCOLOR", "Red");
        program.Click(20);
        program.Type(21, QStringLiteral("red"));
        const auto selectAll = [&](int cell) {
            program.Box(cell).SetSelStart(0);
            program.Box(cell).SetSelLength(100);
        };
        selectAll(21);
        QCOMPARE(program.Box(21).SelFontName(), std::optional(QStringLiteral("Courier New")));
        QCOMPARE(program.Box(21).SelFontSize(), std::optional(14.0));
        QCOMPARE(program.Box(21).SelBold(), std::optional(false));
        QCOMPARE(program.Box(21).SelItalic(), std::optional(true));
        QCOMPARE(program.Box(21).SelColor(), std::optional(0x0000FFu));
        selectAll(20);
        QCOMPARE(program.Box(20).SelFontName(), std::optional(QStringLiteral("Arial")));
        QCOMPARE(program.Box(20).SelColor(), std::optional(0u));
    }

    void TheBarFollowsASelectionAndNotACaret()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("abcdef"));
        auto& box = program.Box(20);
        auto* bar = program.form->findChild<Toolbar*>(QStringLiteral("tbTop"));
        ToolbarButton& bold = bar->Buttons(QStringLiteral("bold"));
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
        QTest::keyClick(&box, Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(bold.Value(), 1);
        for (int i = 0; i < 6; ++i)
            QTest::keyClick(&box, Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(bold.MixedState());
        QTest::mouseClick(&bold, Qt::LeftButton);
        QCOMPARE(box.SelBold(), std::optional(true));
        QVERIFY(bold.MixedState()); // until the selection changes
        QTest::keyClick(&box, Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(!bold.MixedState());
        QCOMPARE(bold.Value(), 1);
    }

    void KeysOfTheMenuStayWithTheMenu()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("abc"));
        program.Entry("mnuColorSizeFonts").setEnabled(false);
        QTest::keyClick(&program.Box(20), Qt::Key_A, Qt::ControlModifier); // and the box must not take it for its own
        QCOMPARE(program.Box(20).SelLength(), 0);
        QTest::keyClick(&program.Box(20), Qt::Key_Home, Qt::ShiftModifier);
        QTest::keyClick(&program.Box(20), Qt::Key_X, Qt::ControlModifier);
        QTRY_COMPARE(program.Box(20).Text(), QString());
        QTest::keyClick(&program.Box(20), Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(program.Box(20).Text(), QStringLiteral("abc"));
    }

    void ANewPlannerDoesNotCostTheTypingInTheOldOne()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("just typed"));
        program.New(QStringLiteral("other.mdb"));
        QCOMPARE(program.Box(20).Text(), QString());
        program.Exit();
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("just typed"));
        QVERIFY(program.Stored(QStringLiteral("other.mdb"), QStringLiteral("1999/3/19")).isNull());
    }

    void WithoutAPlannerCellsTakeNoText()
    {
        Program& program = *m_program;
        program.Type(20, QStringLiteral("lost"));
        QCOMPARE(program.Box(20).Text(), QString());
        program.Trigger("mnuNextMonth");
        QCOMPARE(program.Bottom().Caption(), QStringLiteral("APRIL 1999"));
        program.Exit();
    }

    void ASharedPlannerTakesNoKeyWithoutALock()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"), true);
        QVERIFY(program.Box(20).Locked());
        QVERIFY(!program.Entry("mnuSave").isEnabled());
        program.Click(20);
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        QTest::keyClick(&program.Box(20), Qt::Key_X);
        QVERIFY(seen.Text.startsWith(QStringLiteral("Please lock current day")));
        QCOMPARE(program.Box(20).Text(), QString());
    }

    void AClickSelectsTheDayButNotOnAMemo()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Click(20);
        QCOMPARE(g_iDay, std::int16_t{19});
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        program.Click(1);
        QCOMPARE(g_iDay, std::int16_t{19});
        QTest::mouseClick(&program.Panel(24), Qt::LeftButton, {}, QPoint(8, 8));
        QCOMPARE(g_iDay, std::int16_t{23});
        QCOMPARE(g_iCurrentPanel, std::int16_t{1});
    }
};

QTEST_MAIN(NotesTest)
#include "notestest.moc"
