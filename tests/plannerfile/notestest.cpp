#include "program.h"

// Notes typed into the real window, saved, and seen again.
class NotesTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void WhatWasTypedStandsThereAfterTheNextStart()
    {
        m_program->New(QStringLiteral("Notes"));
        QVERIFY(QFile::exists(m_program->folders.Path(QStringLiteral("notes.mdb"))));
        m_program->Type(18, QStringLiteral("Choir "));
        m_program->Trigger("mnuBold");
        QTest::keyClicks(&m_program->Box(18), QStringLiteral("19:00"));
        m_program->Type(1, QStringLiteral("a memo"));
        m_program->Exit();

        m_program->Start();
        QCOMPARE(m_program->Box(18).Text(), QString());
        m_program->Open(QStringLiteral("notes.mdb"));
        QCOMPARE(m_program->Box(18).Text(), QStringLiteral("Choir 19:00"));
        QCOMPARE(m_program->Box(1).Text(), QStringLiteral("a memo"));
        Select(m_program->Box(18), 0, 6);
        QCOMPARE(m_program->Box(18).SelBold(), std::optional(false));
        Select(m_program->Box(18), 6, 5);
        QCOMPARE(m_program->Box(18).SelBold(), std::optional(true));
        QCOMPARE(m_program->form->windowTitle().section(u'/', -1), QStringLiteral("notes.mdb"));
        // Seven cells of the week were never loaded; the exit asks them all the same.
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void MovingAwayWritesAndComingBackReads()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("train 8:12"));
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Box(20).Text(), QString());
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("train 8:12"));
        // The caret still stands in the cell, which is another day's now.
        QTest::keyClicks(&m_program->Box(20), QStringLiteral("in April"));
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("train 8:12"));
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/4/16")).contains("in April"));
        QTest::keyClick(&m_program->Box(20), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("train 8:12"));
    }

    void AnUndoNeverBringsBackAnotherDaysText()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("secret"));
        for (int i = 0; i < 6; ++i)
            QTest::keyClick(&m_program->Box(20), Qt::Key_Backspace);
        m_program->Trigger("mnuNextMonth"); // both days are empty
        QTest::keyClick(&m_program->Box(20), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_program->Box(20).Text(), QString());
    }

    void AnEmptiedDayLeavesNoRecord()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("x"));
        m_program->Trigger("mnuSave");
        QVERIFY(!m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).isNull());
        m_program->Click(20);
        QTest::keyClick(&m_program->Box(20), Qt::Key_End);
        QTest::keyClick(&m_program->Box(20), Qt::Key_Backspace);
        m_program->Click(21); // entered and left empty
        m_program->Trigger("mnuSave");
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).isNull());
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/20")).isNull());
        QCOMPARE(m_program->Log(), QByteArray());
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
        m_program->New(QStringLiteral("notes.mdb"));
        g_rsQMT.AddNew();
        g_rsQMT.SetField(QStringLiteral("qmtDate"), QStringLiteral("1999/3/19"));
        g_rsQMT.SetField(QStringLiteral("qmtText"), stored);
        g_rsQMT.SetField(QStringLiteral("qmtPadding"), QByteArray(1005, '.'));
        g_rsQMT.Update();
        m_program->Trigger("mnuSave");
        m_program->Click(20);
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")), stored);
        m_program->Trigger("mnuPrevMonth");
        m_program->Click(20);
        // Meanwhile another program writes; this one has a planner just made open, so not for itself alone.
        Recordset other = DBEngine::OpenDatabase(g_sNotesFile).OpenTable(QStringLiteral("QMT Table"));
        other.SetIndex(QStringLiteral("qmtPrimaryKey"));
        other.Seek(QStringLiteral("="), QStringLiteral("1999/3/19"));
        other.Edit();
        other.SetField(QStringLiteral("qmtText"), QByteArray("newer"));
        other.Update();
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("newer"));
    }

    void ASaveLeavesTheWriterWhereHeWas()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("one two"));
        RichTextBox& box = m_program->Box(20);
        QTest::keyClick(&box, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        m_program->Trigger("mnuSave");
        QCOMPARE(box.SelStart(), 4);
        QCOMPARE(g_iCurrentPanel, std::int16_t{0});
        m_program->Trigger("mnuBold"); // the caret tells which cell is meant
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        QCOMPARE(box.SelBold(), std::optional(true));
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(box.Text() != QStringLiteral("one two"));
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void APictureAloneIsANote()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Box(20).SetTextRTF("{\\rtf1{\\pict\\pngblip\\picwgoal300\\pichgoal300 89504e47}a}");
        m_program->Click(20);
        QTest::keyClick(&m_program->Box(20), Qt::Key_End);
        QTest::keyClick(&m_program->Box(20), Qt::Key_Backspace);
        QCOMPARE(m_program->Box(20).Text(), QString());
        m_program->Trigger("mnuSave");
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("\\pict"));
    }

    void KeysOfTheMenuStayWithTheMenu()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("abc"));
        m_program->Entry("mnuColorSizeFonts").setEnabled(false);
        QTest::keyClick(&m_program->Box(20), Qt::Key_A,
                        Qt::ControlModifier); // and the box must not take it for its own
        QCOMPARE(m_program->Box(20).SelLength(), 0);
        QTest::keyClick(&m_program->Box(20), Qt::Key_Home, Qt::ShiftModifier);
        QTest::keyClick(&m_program->Box(20), Qt::Key_X, Qt::ControlModifier);
        QTRY_COMPARE(m_program->Box(20).Text(), QString());
        QTest::keyClick(&m_program->Box(20), Qt::Key_V, Qt::ControlModifier);
        QTRY_COMPARE(m_program->Box(20).Text(), QStringLiteral("abc"));
    }

    void ANewPlannerDoesNotCostTheTypingInTheOldOne()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("just typed"));
        m_program->New(QStringLiteral("other.mdb"));
        QCOMPARE(m_program->Box(20).Text(), QString());
        m_program->Exit();
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("just typed"));
        QVERIFY(m_program->Stored(QStringLiteral("other.mdb"), QStringLiteral("1999/3/19")).isNull());
    }

    void AClickSelectsTheDayButNotOnAMemo()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Click(20);
        QCOMPARE(g_iDay, std::int16_t{19});
        QCOMPARE(g_iCurrentPanel, std::int16_t{20});
        m_program->Click(1);
        QCOMPARE(g_iDay, std::int16_t{19});
        QTest::mouseClick(&m_program->Panel(24), Qt::LeftButton, {}, QPoint(8, 8));
        QCOMPARE(g_iDay, std::int16_t{23});
        QCOMPARE(g_iCurrentPanel, std::int16_t{1});
    }
};

QTEST_MAIN(NotesTest)
#include "notestest.moc"
