#include "editing/corrections.h"

#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "platform/spelling/speller.h"
#include "platform/spelling/spellmarks.h"
#include "settings/messages.h"

#include <QMenu>

namespace {
constexpr QLatin1StringView Literal(" in NoteMenu, OfferCorrections");

// The entries, in order. They live until the menu has closed and their command has run.
class Corrections : public QObject
{
public:
    Corrections(QMenu& menu, SpellMarks& marks) : QObject(&menu), m_menu(menu), m_marks(marks)
    {
        connect(&menu, &QMenu::aboutToHide, this, &QObject::deleteLater);
    }

    // The command is dropped if the box is no longer checked.
    template <typename Command>
    QAction* Add(const QString& name, const QString& caption, Command command)
    {
        auto* action = new QAction(QString(caption).replace(u'&', u"&&"_s), this);
        action->setObjectName(name);
        connect(action, &QAction::triggered, &m_marks, Guarded(Literal, command));
        m_menu.insertAction(m_first, action);
        return action;
    }
    void AddSeparator()
    {
        Add({}, {}, [] {})->setSeparator(true);
    }

private:
    QMenu& m_menu;
    SpellMarks& m_marks;
    QAction* const m_first = m_menu.actions().value(0);
};

void Correct(RichTextBox& box, const SpellMarks& marks, const TextSpan& word, const QString& typed, QString by)
{
    if (marks.TextOf(word) != typed) return; // it has changed behind the menu
    if (typed.contains(u'\u2019')) by.replace(u'\'', u'\u2019');
    box.Replace(word.start, word.end - word.start, by);
}

void AddToDictionary(SpellMarks& marks, const QString& word)
{
    PersonalWords& personal = marks.Words().Personal();
    if (personal.Add(word)) return marks.CheckAll();
    messages::Tell(u"The word could not be added to the dictionary, since its file cannot be written."_s,
                   msgbox::Exclamation, personal.Path());
}

void Ignore(SpellMarks& marks, const QString& word)
{
    marks.Words().Ignore(word);
    marks.CheckAll();
}
} // namespace

void OfferCorrections(QMenu& menu, RichTextBox& box, const QPoint& globalPosition)
{
    SpellMarks* marks = SpellMarks::Of(box);
    const std::optional<TextSpan> word = marks && !box.Locked() ? marks->WordAt(globalPosition) : std::nullopt;
    if (!word) return;
    const QString typed = marks->TextOf(*word), plain = PlainWord(typed);
    auto* entries = new Corrections(menu, *marks);
    int number = 0;
    for (const QString& by : marks->Words().Suggest(plain)) {
        QAction* entry = entries->Add(u"mnuSuggestion(%1)"_s.arg(number++), by,
                                      [=, &box] { Correct(box, *marks, *word, typed, by); });
        QFont bold = menu.font();
        bold.setBold(true);
        entry->setFont(bold);
    }
    entries->Add(u"mnuAddWord"_s, u"Add to Dictionary"_s, [=] { AddToDictionary(*marks, plain); });
    entries->Add(u"mnuIgnoreWord"_s, u"Ignore"_s, [=] { Ignore(*marks, plain); });
    entries->AddSeparator();
}
