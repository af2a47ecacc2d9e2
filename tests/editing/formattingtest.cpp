#include "platform/controls/familylist.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/openlink.h"
#include "program.h"
#include "testmain.h"

#include <QClipboard>
#include <QListView>
#include <QMenu>
#include <QScrollBar>

// The commands that format the current note, on the real window.
class FormattingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    ToolbarButton& Button(const char* key)
    {
        return m_program->Find<Toolbar>("tbTop").Buttons(QString::fromLatin1(key));
    }

    ORLCombo& Combo(const char* name) { return m_program->Find<ORLCombo>(name); }

    void Choose(const char* name, const QString& text)
    {
        ORLCombo& combo = Combo(name);
        combo.setFocus();
        QTest::keyClick(&combo, Qt::Key_Home);
        for (int i = 0; i < combo.ListCount() && combo.Text() != text; ++i)
            QTest::keyClick(&combo, Qt::Key_Down);
        QCOMPARE(combo.Text(), text);
    }

    RichTextBox& Write(const QString& text)
    {
        m_program->Type(18, text);
        return m_program->Box(18);
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"notes.mdb"_s);
    }
    void cleanup() { m_program.reset(); }

    void stylesToggleFromEveryPlace()
    {
        for (const auto& [what, entry, key, letter] :
             Rows<QString, QString, int>{{"bold", u"mnuBold"_s, u"bold"_s, int(Qt::Key_B)},
                                         {"italic", u"mnuItalic"_s, u"italic"_s, int(Qt::Key_I)},
                                         {"underline", u"mnuUnderline"_s, u"underline"_s, int(Qt::Key_U)},
                                         {"strikethrough", u"mnuStrikeThru"_s, u"strikethru"_s, int(Qt::Key_T)}}) {
            const InRow row(this, what);
            const auto on = [&](const RichTextBox& box) {
                return key == u"bold"        ? box.SelBold()
                       : key == u"italic"    ? box.SelItalic()
                       : key == u"underline" ? box.SelUnderline()
                                             : box.SelStrikeThru();
            };
            RichTextBox& box = Write(u"half and half"_s);
            ToolbarButton& button = Button(key.toLatin1());
            Select(box, 0, 4);
            m_program->Trigger(entry.toLatin1());
            QVERIFY(*on(box) && button.Value() == 1 && !button.MixedState());
            m_program->Trigger((entry + u'R').toLatin1());
            QVERIFY(!*on(box) && button.Value() == 0);
            QTest::mouseClick(&button, Qt::LeftButton);
            QVERIFY(*on(box) && button.Value() == 1);
            Select(box, 0,
                   13); // a half bold selection: the button shows it, and the command makes it uniform but stays grey
            QVERIFY(!on(box) && button.MixedState());
            QTest::keyClick(&box, Qt::Key(letter), Qt::ControlModifier);
            QVERIFY(*on(box) && button.MixedState());
            Select(box, 2, 3);
            QVERIFY(!button.MixedState() && button.Value() == 1);
        }
    }

    void combosActOnTheSelectionAndFollowIt()
    {
        RichTextBox& box = Write(u"one two three"_s);
        Select(box, 0, 3);
        Choose("orlcmbFontsize", u"14"_s);
        Choose("orlcmbFontcolor", u"Fuschia"_s);
        QCOMPARE(box.SelFontSize(), 14.0);
        QCOMPARE(box.SelColor(), 0xFF00FFu);
        Select(box, 4, 3);
        QCOMPARE(Combo("orlcmbFontsize").Text(), u"8"_s);
        QCOMPARE(Combo("orlcmbFontcolor").Text(), u"Black"_s);
        Select(box, 0, 7); // two colours blank the colour box, two sizes leave the size box unchanged
        QCOMPARE(Combo("orlcmbFontcolor").ListIndex(), ORLCombo::BlankColor);
        QCOMPARE(Combo("orlcmbFontsize").Text(), u"8"_s);
        Select(box, 0, 3);
        box.SetSelColor(0x123456);
        Select(box, 0, 2); // a colour without a name leaves the box unchanged
        QCOMPARE(Combo("orlcmbFontcolor").Text(), u"Fuschia"_s);
        Combo("orlcmbFontcolor").setFocus();
        QTest::keyClick(&Combo("orlcmbFontcolor"), Qt::Key_End); // the blank entry
        QCOMPARE(box.SelColor(), 0x123456u);
        const QString family = Combo("orlcmbFontname").List(1);
        Choose("orlcmbFontname", family);
        QCOMPARE(box.SelFontName(), family);
        m_program->Click(20);
        QTRY_COMPARE(Combo("orlcmbFontname").Text(), u"Arial"_s);
        QCOMPARE(Combo("orlcmbFontcolor").Text(), u"Black"_s);
        m_program->Click(18); // behind the first word's beginning
        QTRY_COMPARE(Combo("orlcmbFontname").Text(), family);
        QCOMPARE(Combo("orlcmbFontsize").Text(), u"14"_s);
        QCOMPARE(Combo("orlcmbFontcolor").ListIndex(), ORLCombo::BlankColor);
    }

    void theEditMenuUndoes()
    {
        const auto entries = [this] {
            QMenu& menu = *m_program->Entry("mnuEdit").menu();
            Q_EMIT menu.aboutToShow();
            QString enabled;
            for (const char* name : {"mnuUndo", "mnuRedo", "mnuSelectAll"})
                enabled += m_program->Entry(name).isEnabled() ? u'y' : u'n';
            return enabled;
        };
        QCOMPARE(entries(), u"nnn"_s);
        RichTextBox& box = Write(u"word"_s);
        QCOMPARE(entries(), u"yny"_s);
        m_program->Trigger("mnuUndo");
        QTRY_COMPARE(box.Text(), QString());
        QCOMPARE(entries(), u"nyn"_s);
        for (const auto& [key, modifiers, text] :
             {std::tuple(Qt::Key_Y, Qt::KeyboardModifiers(Qt::ControlModifier), u"word"_s),
              std::tuple(Qt::Key_Z, Qt::KeyboardModifiers(Qt::ControlModifier), QString()),
              std::tuple(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, u"word"_s)}) {
            QTest::keyClick(&box, key, modifiers);
            QCOMPARE(box.Text(), text);
        }
        QCOMPARE(entries(), u"yny"_s);
        m_program->Trigger("mnuSelectAll");
        QTRY_COMPARE(box.SelLength(), 4);
        m_program->Trigger("mnuBold");
        for (const int isBold : {0, 1}) { // the button follows
            entries();
            m_program->Trigger(isBold ? "mnuRedo" : "mnuUndo");
            QTRY_COMPARE(Button("bold").Value(), isBold);
        }
        box.SetLocked(true);
        QCOMPARE(entries(), u"nny"_s);
    }

    void linksAreOpenedFromTheNote()
    {
        QList<QUrl> opened;
        links::g_openerOfTest = [&opened](const QUrl& url) { return opened.emplaceBack(url).isValid(); };
        RichTextBox& box = Write(u"go http://a.example now "_s);
        const auto entryAt = [&](int position) {
            QTextCursor cursor(box.document());
            cursor.setPosition(position);
            const QPoint at = box.cursorRect(cursor).center() + QPoint(2, 0);
            QTest::mouseClick(box.viewport(), Qt::RightButton, {}, at);
            m_program->Entry("mnuRightMouse").menu()->close();
            return m_program->Entry("mnuOpenLinkR").isVisible();
        };
        QVERIFY(!entryAt(0));
        QVERIFY(entryAt(6));
        m_program->Trigger("mnuOpenLinkR");
        QCOMPARE(opened, QList<QUrl>{QUrl(u"http://a.example"_s)});
        QVERIFY(entryAt(6));
        QMenu& menu = *m_program->Entry("mnuRightMouse").menu();
        menu.popup({}); // as after a refusal
        QVERIFY(!m_program->Entry("mnuOpenLinkR").isVisible());
        menu.close();
        links::g_openerOfTest = nullptr;
    }

    void aNoteThatIsLeftShowsItsBeginning()
    {
        RichTextBox& box = Write(u"end"_s);
        Select(box, 0, 0);
        box.insertPlainText(QString(40, u'\n'));
        Select(box, 40, 3);
        const QScrollBar& bar = *box.verticalScrollBar();
        Combo("orlcmbFontsize").setFocus(); // its commands act on the selection
        QVERIFY(box.SelLength() == 3 && bar.value() > 0);
        m_program->Click(20);
        QVERIFY(box.SelLength() == 0 && bar.value() == 0 && !m_program->Panel(18).IsActive());
        box.setFocus(Qt::TabFocusReason);
        QVERIFY(box.SelStart() == 43 && bar.value() > 0);
    }

    // The name and size change the whole note, the colour and styles the selection.
    void theFontDialogChangesTheNote()
    {
        RichTextBox& box = Write(u"plain and more"_s);
        Select(box, 0, 5);
        AnswerFontDialog([](QFontDialog& fonts) {
            QCOMPARE(fonts.currentFont().pointSize(), 8);
            QFont font(u"Liberation Serif"_s, 12);
            font.setUnderline(true);
            fonts.setCurrentFont(font);
        });
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(box.SelLength(), 5); // not the whole note
        QVERIFY(*box.SelUnderline() && Button("underline").Value() == 1 && Button("bold").Value() == 0);
        Select(box, 8, 4);
        QCOMPARE(box.SelFontName(), u"Liberation Serif"_s);
        QCOMPARE(box.SelFontSize(), 12.0);
        QVERIFY(!*box.SelUnderline());
    }

    // A cancelled dialog returns its initial values, and they are applied.
    void cancelEvensAMixedSelectionOut()
    {
        RichTextBox& box = Write(u"onetwo"_s);
        Select(box, 0, 3);
        box.SetSelBold(true);
        box.SetSelUnderline(true);
        box.SetSelFontName(u"Liberation Serif"_s);
        box.SetSelColor(0xFF0000);
        Select(box, 0, 6);
        AnswerFontDialog(nullptr);
        m_program->Trigger("mnuColorSizeFonts");
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelFontName(), u"Arial"_s);
        QCOMPARE(box.SelFontSize(), 8.0);
        QCOMPARE(box.SelColor(), 0u); // a mixed underline opens the dialog with black
        Select(box, 0, 3);
        box.SetSelColor(0xFF0000);
        Select(box, 0, 6);
        AnswerFontDialog(nullptr);
        m_program->Trigger("mnuColorSizeFontsR");
        QVERIFY(m_program->Log().contains(":Invalid use of Null in MainForm, mnuColorSizeFonts_Click"));
        QCOMPARE(box.SelColor(), 0u); // the colour that the dialog had at the end of its last use
        Select(box, 0, 3);
        box.SetSelFontSize(20);
        Select(box, 0, 6);
        AnswerFontDialog(nullptr);
        m_program->Trigger("mnuColorSizeFonts");
        QVERIFY(m_program->Log().contains(":Invalid property value in MainForm, mnuColorSizeFonts_Click"));
        QVERIFY(!box.SelFontSize()); // an unknown size is not a size for a font
    }

    // Return presses the dialog's Ok from any control, and the change is one step of undo.
    void theFontDialogIsOneStepOfUndo()
    {
        RichTextBox& box = Write(u"one step"_s);
        Select(box, 0, 8);
        OnNextModal(
            [](QWidget* window) { return window->findChild<QFontDialog*>() != nullptr; },
            [](QWidget* window) {
                QLineEdit* const field =
                    window->findChild<QFontDialog*>()->findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly).at(2);
                field->selectAll();
                QTest::keyClicks(field, u"22"_s);
                QTest::keyClick(field, Qt::Key_Return);
            });
        m_program->Trigger("mnuColorSizeFonts");
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(box.SelFontSize(), 22.0);
        box.undo();
        Select(box, 0, 8);
        QCOMPARE(box.SelFontSize(), 8.0);
        QCOMPARE(box.Text(), u"one step"_s);
    }

    // The list includes a font that is substituted, under its own name.
    void theFontDialogOffersTheFontsOfTheBar()
    {
        RichTextBox& box = Write(u"x"_s);
        box.SetFontName(u"Liberation Serif"_s);
        AnswerFontDialog([](QFontDialog& fonts) {
            auto& list = *fonts.findChild<FamilyList*>();
            const QStringList names = static_cast<QStringListModel*>(list.model())->stringList();
            QCOMPARE(names, FontFamilies());
            QCOMPARE(list.Name(), u"Liberation Serif"_s);
            list.setCurrentIndex(list.model()->index(int(names.indexOf(u"Arial"_s)), 0));
        });
        m_program->Trigger("mnuColorSizeFonts");
        QCOMPARE(box.SelFontName(), u"Arial"_s);
    }

    // For a mixed selection the dialog starts with some value; choosing just that value counts too.
    void theValueThatIsShownCanBeChosen()
    {
        RichTextBox& box = Write(u"onetwo"_s);
        Select(box, 0, 3);
        box.SetSelFontSize(20);
        Select(box, 0, 6);
        double shown = 0;
        AnswerFontDialog([&](QFontDialog& fonts) {
            shown = fonts.currentFont().pointSizeF();
            auto* const sizes = fonts.findChildren<QListView*>(Qt::FindDirectChildrenOnly).at(2);
            const QRect row = sizes->visualRect(sizes->currentIndex());
            QTest::mouseClick(sizes->viewport(), Qt::LeftButton, {}, row.center());
        });
        m_program->Trigger("mnuColorSizeFonts");
        QCOMPARE(box.SelFontSize(), shown);
    }

    void clipboardCommandsReachTheCell()
    {
        RichTextBox& box = Write(u"carry this"_s);
        Select(box, 0, 6);
        box.SetSelBold(true);
        m_program->Trigger("mnuCut");
        QTRY_COMPARE(box.Text(), u"this"_s);
        m_program->Click(20);
        QTest::mouseClick(&Button("paste"), Qt::LeftButton);
        QTRY_COMPARE(m_program->Box(20).Text(), u"carry "_s);
        m_program->Trigger("mnuPasteR");
        QTRY_COMPARE(m_program->Box(20).Text(), u"carry carry "_s);
        Select(m_program->Box(20), 0, 12);
        QCOMPARE(m_program->Box(20).SelBold(), true);
        Select(m_program->Box(20), 6, 5);
        QTest::mouseClick(&Button("copy"), Qt::LeftButton);
        QTRY_COMPARE(QApplication::clipboard()->text(), u"carry"_s);
        QTest::keyClick(&m_program->Box(20), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_program->Box(20).Text(), u"carry "_s);
    }

    // In a workgroup's planner nothing may change before the day is locked, except by copying and justifying.
    void theGuardOfAWorkgroup()
    {
        m_program->New(u"team.mdb"_s, true);
        m_program->Click(18);
        RichTextBox& box = m_program->Box(18);
        SeenBox seen;
        for (const char* entry : {"mnuBold", "mnuCut", "mnuPaste", "mnuColorSizeFonts"}) {
            seen = m_program->Said(entry);
            QCOMPARE(seen.Text, u"Please lock the desired day before attempting to apply font attributes "
                                "to current cell"_s);
            QCOMPARE(seen.Icon, QMessageBox::Information);
        }
        m_program->Trigger("mnuCopy");
        for (const auto& [entry, alignment] :
             {std::pair("mnuCenterJustify", Qt::AlignHCenter), std::pair("mnuRightJustify", Qt::AlignRight),
              std::pair("mnuLeftJustify", Qt::AlignLeft)}) {
            m_program->Trigger(entry);
            QVERIFY(box.textCursor().blockFormat().alignment() & alignment);
        }
        AnswerNextBox(msgbox::Ok, &seen);
        Choose("orlcmbFontsize", u"6"_s); // shows the message and changes the size all the same
        QCOMPARE(WaitingAnswers(), 0);
        QCOMPARE(box.SelFontSize(), 6.0);
    }
};

ORRELIN_TEST(FormattingTest)
#include "formattingtest.moc"
