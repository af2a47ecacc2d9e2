#include "notes.h"
#include "platform/richtext/richtextbox.h"
#include "platform/spelling/speller.h"
#include "platform/spelling/spellmarks.h"
#include "rows.h"

#include <QApplication>
#include <QKeyEvent>

namespace {
constexpr int NotesInDayView = 200; // 60,000 characters, twenty pages
constexpr QRect CellPlace(40, 40, 165, 110);
constexpr QRect DayViewPlace(40, 40, 700, 600);
PaintCount g_paintings;

Speller& English()
{
    static Speller speller{QString()};
    for (const DictionaryFiles& one : InstalledDictionaries())
        if (!speller.IsLoaded() && one.name == u"en_US") speller.Load(one);
    return speller;
}

// A note in a window of its own, with marks or without.
class CheckedNote
{
public:
    CheckedNote(int notes, const QRect& place, bool isChecked)
    {
        std::vector<Note> texts;
        for (int number = 0; number < notes; ++number)
            texts.push_back(MakeNote(number));
        Build(texts, *m_box.document());
        m_box.setGeometry(place);
        g_paintings.Watch(m_box);
        m_box.show();
        m_box.activateWindow();
        m_box.setFocus();
        if (isChecked) m_marks = new SpellMarks(m_box, English());
        PaintNow();
    }

    void CheckToTheEnd()
    {
        while (m_marks && m_marks->IsChecking())
            QCoreApplication::processEvents();
    }

    // Types a letter behind the first word, and at the next call deletes it; until it is painted and checked.
    void Type()
    {
        QKeyEvent press(QEvent::KeyPress, m_typed ? Qt::Key_Backspace : Qt::Key_X, {}, m_typed ? u"\b"_s : u"x"_s);
        m_typed = !m_typed;
        QApplication::sendEvent(&m_box, &press);
        PaintNow();
        CheckToTheEnd();
    }

private:
    RichTextBox m_box;
    SpellMarks* m_marks = nullptr;
    bool m_typed = false;
};

Side KeystrokesIn(int notes, const QRect& place, bool isChecked)
{
    const auto note = std::make_shared<CheckedNote*>() /* kept for the rest of the run */;
    return {[=] { (*note)->Type(); },
            [=] {
                if (!*note) *note = new CheckedNote(notes, place, isChecked);
                (*note)->CheckToTheEnd();
                g_paintings.Take();
            },
            [] { return g_paintings.Take() >= 1; }};
}

Side Opening(bool isChecked, bool toTheEnd)
{
    return {[=] {
                CheckedNote note(NotesInDayView, DayViewPlace, isChecked);
                if (toTheEnd) note.CheckToTheEnd();
            },
            [] { English(), PaintNow(), g_paintings.Take(); }, [] { return g_paintings.Take() >= 1; }};
}
} // namespace

void AddSpellingRows(const TakeRow& add)
{
    constexpr Turns ManyKeys{30, 20}, SomeTurns{20};
    add({"keystroke with spelling", KeystrokesIn(1, CellPlace, true), KeystrokesIn(1, CellPlace, false), ManyKeys});
    add({"20 pages: keystroke with spelling", KeystrokesIn(NotesInDayView, DayViewPlace, true),
         KeystrokesIn(NotesInDayView, DayViewPlace, false), ManyKeys});
    add({"20 pages with spelling, painted", Opening(true, false), Opening(false, false), SomeTurns});
    add({"20 pages with spelling, all checked", Opening(true, true), Opening(false, true), SomeTurns});
}
