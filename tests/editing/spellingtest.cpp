#include "editing/spellingform.h"
#include "editing/zoomboxform.h"
#include "platform/spelling/dictionary.h"
#include "platform/spelling/spellmarks.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>

namespace {
constexpr int Cell = 18;

QStringList Captions(const QMenu& menu)
{
    QStringList captions;
    for (const QAction* action : menu.actions())
        captions += action->isSeparator() ? u"-"_s : action->text();
    return captions;
}

void ClickEntry(QMenu& menu, const QString& name)
{
    auto* action = menu.findChild<QAction*>(name);
    QVERIFY(action);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Waits for this many marks; the dictionaries are loaded in a pause of the typing.
void WaitForMarks(const RichTextBox& box, std::size_t count)
{
    QTRY_VERIFY_WITH_TIMEOUT(SpellMarks::Of(box) && !SpellMarks::Of(box)->IsChecking() &&
                                 SpellMarks::Of(box)->Unknown().size() == count,
                             20'000);
}

void RightClickAt(RichTextBox& box, int position)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(position);
    QTest::mouseClick(box.viewport(), Qt::RightButton, {}, box.cursorRect(cursor).center());
}
} // namespace

// Spelling in the cells and in the day view, on the real windows.
class SpellingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    RichTextBox& Write(const QString& text)
    {
        m_program->Type(Cell, text);
        return m_program->Box(Cell);
    }

    // The menu of the cells, which holds the twins of the menu bar's entries.
    QMenu& RightMouse() { return *qobject_cast<QMenu*>(m_program->Entry("mnuCutR").associatedObjects().value(0)); }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        SetIni("SPELLING", "DICTIONARIES", "en_US");
        m_program->Start();
        m_program->New(u"notes.mdb"_s);
    }
    void cleanup()
    {
        m_program.reset();
        SetDictionaryFoldersForTests({});
    }

    void suggestionsAreInTheMenu()
    {
        RichTextBox& box = Write(u"a wrogn day"_s);
        Select(box, 2, 5);
        box.SetSelBold(true);
        box.SetSelStart(11);
        WaitForMarks(box, 1);
        QMenu& menu = RightMouse();
        const QStringList stated = Captions(menu);
        RightClickAt(box, 9);
        QCOMPARE(Captions(menu), stated); // no word there is marked
        menu.close();
        for (const bool byKey : {false, true}) {
            if (byKey) {
                box.SetSelStart(4);
                QTest::keyClick(&box, Qt::Key_F10, Qt::ShiftModifier);
                QVERIFY(menu.isVisible());
                QTest::keyClick(&menu, Qt::Key_Down);
                QTest::keyClick(&menu, Qt::Key_Return);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            } else {
                RightClickAt(box, 4);
                QVERIFY(menu.isVisible());
                QCOMPARE(Captions(menu),
                         QStringList({u"wrong"_s, u"grown"_s, u"Add to Dictionary"_s, u"Ignore"_s, u"-"_s}) + stated);
                ClickEntry(menu, u"mnuSuggestion(0)"_s);
            }
            QCOMPARE(Captions(menu), stated);
            QCOMPARE(box.Text(), u"a wrong day");
            Select(box, 2, 5);
            QCOMPARE(box.SelBold(), true);
            WaitForMarks(box, 0);
            QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(box.Text(), u"a wrogn day");
            WaitForMarks(box, 1);
        }
    }

    // The click brings the caret. Soon after the start it does not wait for the dictionaries.
    void suggestionsAreThereAtOnce()
    {
        constexpr int Other = Cell + 2;
        m_program->Type(Other, u"a wrogn day"_s);
        for (const bool isLoaded : {true, false}) {
            if (isLoaded) {
                WaitForMarks(m_program->Box(Other), 1);
                m_program->Click(Cell);
            } else {
                m_program->Exit();
                m_program->Start();
                m_program->Open(u"notes.mdb"_s);
            }
            QVERIFY(!SpellMarks::Of(m_program->Box(Other)));
            RightClickAt(m_program->Box(Other), 4);
            QCOMPARE(Captions(RightMouse()).value(0), u"wrong"_s);
            RightMouse().close();
            WaitForMarks(m_program->Box(Other), 1);
        }
    }

    void wordsAreAddedAndIgnored()
    {
        RichTextBox& box = Write(u"wrogn tehn wrogn"_s);
        QTest::keyClick(&box, Qt::Key_Space);
        WaitForMarks(box, 3);
        const QString file = folders::ApplicationDirectory() + u"/words.txt"_s;
        QMenu& menu = RightMouse();
        {
            const FullDisk disk(0);
            SeenBox seen;
            AnswerNextBox(msgbox::Ok, &seen);
            RightClickAt(box, 2);
            ClickEntry(menu, u"mnuAddWord"_s);
            QVERIFY(seen.Text.startsWith(u"The word could not be added"_s));
            m_program->Activate();
        }
        RightClickAt(box, 2);
        ClickEntry(menu, u"mnuAddWord"_s);
        WaitForMarks(box, 1);
        QCOMPARE(Content(file), "wrogn\n");
        RightClickAt(box, 8);
        ClickEntry(menu, u"mnuIgnoreWord"_s);
        WaitForMarks(box, 0);
        QCOMPARE(Content(file), "wrogn\n");
        QCOMPARE(box.Text(), u"wrogn tehn wrogn ");
        m_program->Activate();
        m_program->Click(Cell + 1);
        QVERIFY(!SpellMarks::Of(box));
        m_program->InWindow<SpellingForm>("mnuSpelling", [](SpellingForm& form) {
            auto& words = In<QListWidget>(form, "lstWords");
            QCOMPARE(words.count(), 1);
            QTest::mouseClick(words.viewport(), Qt::LeftButton, {}, words.visualItemRect(words.item(0)).center());
            In<QAbstractButton>(form, "btnRemove").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QCOMPARE(Content(file), "");
        m_program->Click(Cell);
        WaitForMarks(box, 2);
    }

    void theDayViewIsChecked()
    {
        Write(u"wrogn "_s);
        m_program->InWindow<ZoomBoxForm>("mnuDayView", [](ZoomBoxForm& form) {
            RichTextBox& box = form.tbZoom();
            WaitForMarks(box, 1);
            QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClicks(&box, u"tehn "_s);
            WaitForMarks(box, 2);
            RightClickAt(box, 8);
            ClickEntry(*box.findChild<QMenu*>(u"mnuRightMouse"_s), u"mnuSuggestion(0)"_s);
            WaitForMarks(box, 1);
            form.accept();
        });
        QCOMPARE(m_program->Box(Cell).Text(), u"wrogn then ");
        WaitForMarks(m_program->Box(Cell), 1);
    }

    void languagesAreChosen()
    {
        RichTextBox& box = Write(u"Haus house wrogn "_s);
        WaitForMarks(box, 2);
        m_program->InWindow<SpellingForm>("mnuSpelling", [](SpellingForm& form) {
            auto& list = In<QListWidget>(form, "lstDictionaries");
            for (QListWidgetItem* item : list.findItems(u"German (Germany)"_s, Qt::MatchExactly)) {
                list.setCurrentItem(item);
                QTest::keyClick(&list, Qt::Key_Space);
            }
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QCOMPARE(Ini("SPELLING", "DICTIONARIES"), u"en_US,de_DE");
        WaitForMarks(box, 1);
        m_program->InWindow<SpellingForm>("mnuSpelling", [](SpellingForm& form) {
            In<QCheckBox>(form, "chkSpelling").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QTRY_VERIFY(!SpellMarks::Of(box));
        m_program->Click(Cell + 1);
        m_program->Click(Cell);
        QTest::qWait(500);
        QVERIFY(!SpellMarks::Of(box));
    }

    void withoutDictionariesNothingShows()
    {
        m_program->Exit();
        const QTemporaryDir none;
        SetDictionaryFoldersForTests({none.path()});
        m_program->Start();
        m_program->Open(u"notes.mdb"_s);
        RichTextBox& box = Write(u"wrogn "_s);
        QTest::qWait(500);
        QVERIFY(!SpellMarks::Of(box));
        m_program->InWindow<SpellingForm>("mnuSpelling", [](SpellingForm& form) {
            QVERIFY(In<QLabel>(form, "lblNoDictionary").text().contains(u"hunspell-en-us"));
            QVERIFY(form.findChildren<QListWidget*>().isEmpty() && form.findChildren<QCheckBox*>().isEmpty());
            QTest::keyClick(&form, Qt::Key_Return);
        });
        QCOMPARE(Ini("SPELLING", "DICTIONARIES"), u"en_US");
        SetContent(none.filePath(u"de_DE.aff"_s), "");
        SetContent(none.filePath(u"de_DE.dic"_s), "");
        m_program->InWindow<SpellingForm>("mnuSpelling", [](SpellingForm& form) {
            QCOMPARE(In<QListWidget>(form, "lstDictionaries").item(0)->text(), u"German (Germany) - cannot be used");
            form.reject();
        });
    }
};

ORRELIN_TEST(SpellingTest)

#include "spellingtest.moc"
