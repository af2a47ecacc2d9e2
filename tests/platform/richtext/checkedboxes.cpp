// With ORRELIN_TEST_SPELLING set, every note is checked by a dictionary of one word. What a test sees of the document,
// its rich text, the clipboard and undo must stay the same.
#include "files.h"
#include "platform/richtext/richtextbox.h"
#include "platform/spelling/speller.h"
#include "platform/spelling/spellmarks.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {
class CheckedBoxes : public QObject
{
public:
    CheckedBoxes() : QObject(qApp)
    {
        SetContent(m_folder.filePath(u"xx.aff"_s), "SET UTF-8\n");
        SetContent(m_folder.filePath(u"xx.dic"_s), "1\nword\n");
        if (!m_speller.Load({u"xx"_s, m_folder.filePath(u"xx"_s)})) qFatal("no dictionary");
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isMeant =
            event->type() == QEvent::Show || event->type() == QEvent::KeyPress || event->type() == QEvent::InputMethod;
        auto* box = isMeant ? qobject_cast<RichTextBox*>(watched) : nullptr;
        if (!box) return false;
        auto* marks = SpellMarks::Of(*box) ? nullptr : new SpellMarks(*box, m_speller);
        if (!marks) return false;
        const auto check = [box, marks] { // at once: many tests end before the next event
            (void)marks->WordAt(box->viewport()->mapToGlobal(box->cursorRect().center()));
        };
        check();
        connect(box, &RichTextBox::Change, marks, check);
        return false;
    }

private:
    QTemporaryDir m_folder;
    Speller m_speller{m_folder.filePath(u"words.txt"_s)};
};

void CheckBoxes()
{
    if (qEnvironmentVariableIsSet("ORRELIN_TEST_SPELLING")) new CheckedBoxes;
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(CheckBoxes)
