// The marks of a box that has the caret.
#include "platform/spelling/spellmarks.h"

#include "notes.h"
#include "platform/look/paper.h"
#include "platform/spelling/speller.h"
#include "support.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QSignalSpy>

namespace {
const QString Right = u"We meet the German colleagues at noon and talk about their plans for the summer; der Termin am "
                      "Nachmittag wurde auf Freitag verschoben, weil die Handwerker erst später kommen können"_s;
const QString Wrong = u"wrogn,Terminkalnder,recieve,Nachmitag,tommorow,verscheiben,apointment,Handwerkr"_s;

// A window with one box in it and the dictionaries of two languages.
struct Checked
{
    explicit Checked(const QString& text = {}) : speller(folders.Path(u"words.txt"_s))
    {
        for (const DictionaryFiles& one : InstalledDictionaries())
            if (one.name == u"en_US" || one.name == u"de_DE") speller.Load(one);
        box.setGeometry(0, 0, 300, 200);
        box.SetText(text);
        window.resize(300, 200);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        box.setFocus();
        marks = new SpellMarks(box, speller);
        Wait();
    }
    void Wait() const
    {
        QVERIFY(QTest::qWaitFor([this] { return !marks->IsChecking(); }, support::longestWait));
    }
    QStringList Unknown() const
    {
        Wait();
        QStringList words;
        for (const TextSpan& word : marks->Unknown())
            words += marks->TextOf(word);
        return words;
    }
    bool HasWave()
    {
        Wait();
        const QImage image = box.grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qRed(image.pixel(x, y)) > qGreen(image.pixel(x, y)) + 60) return true;
        return false;
    }

    TemporaryFolders folders;
    Speller speller;
    QWidget window;
    RichTextBox box{&window};
    SpellMarks* marks = nullptr;
};
} // namespace

class SpellMarksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unknownWordsOfALongText()
    {
        const QStringList right = Right.split(u' '), wrong = Wrong.split(u',');
        QStringList words, expected;
        for (int i = 0; i < 2000; ++i) {
            words += i % 7 == 3 ? wrong[i % wrong.size()] : right[i % right.size()];
            if (i % 7 == 3) expected += words.back();
        }
        Checked note(words.join(u' '));
        QCOMPARE(note.Unknown(), expected);
        note.box.SetText(words.join(u'\n'));
        QCOMPARE(note.Unknown(), expected);
        note.marks->Words().Ignore(u"wrogn"_s);
        note.marks->CheckAll();
        expected.removeAll(u"wrogn"_s);
        QCOMPARE(note.Unknown(), expected);
    }

    // Whatever is typed, the marks are those of a text that is checked as a whole.
    void marksFollowEveryChange()
    {
        Checked note(u"one wrogn well-knwon two\nthree foru.\n\nfive"_s);
        QRandomGenerator random(7);
        const QStringList typed{u" "_s, u"x"_s, u"wrogn "_s, u"\n"_s, u"-"_s, u"one two"_s, u"\u00ad"_s, u"."_s};
        for (int step = 0; step < 300; ++step) {
            QTextCursor cursor(note.box.document());
            const int last = note.box.document()->characterCount();
            cursor.setPosition(random.bounded(last));
            if (random.bounded(3) == 0) cursor.setPosition(random.bounded(last), QTextCursor::KeepAnchor);
            const int kind = random.bounded(6);
            if (kind == 0)
                cursor.deleteChar();
            else if (kind == 1)
                note.box.undo();
            else
                cursor.insertText(typed[random.bounded(int(typed.size()))]);
            if (random.bounded(3) == 0) continue; // several changes before the next check
            const QStringList found = note.Unknown();
            const std::vector<TextSpan> places = note.marks->Unknown();
            note.marks->CheckAll();
            QCOMPARE(found, note.Unknown());
            QVERIFY(places == note.marks->Unknown());
        }
    }

    void theWordBeingTypedHasNoWave()
    {
        Checked note;
        QTest::keyClicks(&note.box, u"wrogn"_s);
        QCOMPARE(note.Unknown(), QStringList(u"wrogn"_s));
        QVERIFY(!note.HasWave());
        QTest::keyClick(&note.box, Qt::Key_Space);
        QVERIFY(note.HasWave());
        QTest::keyClick(&note.box, Qt::Key_Backspace);
        QVERIFY(!note.HasWave());
        QTest::keyClick(&note.box, Qt::Key_Home);
        QVERIFY(!note.HasWave()); // still in the word
        QTest::keyClicks(&note.box, u"a "_s);
        QVERIFY(note.HasWave());
        QTest::keyClick(&note.box, Qt::Key_End);
        QVERIFY(note.HasWave()); // entered again, but not changed
        note.box.SetLocked(true);
        QVERIFY(!note.HasWave());
        note.box.SetLocked(false);
        QVERIFY(note.HasWave());
        note.marks->Clear();
        note.marks = new SpellMarks(note.box, note.speller);
        QVERIFY(note.HasWave());
        QLineEdit other(&note.window);
        other.show();
        other.setFocus();
        QVERIFY(!note.HasWave());
    }

    void onlyAClickOnAWordLoadsDictionaries()
    {
        Checked note(u"  wrogn"_s);
        note.speller.Unload();
        note.speller.Expect({InstalledDictionaries().front()});
        const auto isMarkedAt = [&](int position, const QPoint& offset) {
            note.box.SetSelStart(position);
            return note.marks->WordAt(note.box.viewport()->mapToGlobal(note.box.cursorRect().bottomLeft() + offset))
                .has_value();
        };
        for (const auto& [position, offset] : {std::pair(0, QPoint(2, 0)), {4, QPoint(2, 80)}, {7, QPoint(80, 0)}})
            QVERIFY(!isMarkedAt(position, offset) && note.speller.IsExpecting());
        QVERIFY(isMarkedAt(7, QPoint()) && !note.speller.IsExpecting());
    }

    void theNoteKnowsNothingOfMarks()
    {
        Checked note(u"wrogn"_s);
        const int revision = note.box.document()->revision();
        QSignalSpy changes(&note.box, &RichTextBox::Change);
        QVERIFY(note.HasWave() && !note.box.Modified() && !note.box.CanUndo());
        QCOMPARE(note.box.document()->revision(), revision);
        QCOMPARE(changes.count(), 0);
    }
};

ORRELIN_TEST(SpellMarksTest)

#include "spellmarkstest.moc"
