#include "editing/spelling.h"

#include "editing/chosendictionaries.h"
#include "editing/spellingform.h"
#include "hall/cells.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/windowplace.h"
#include "platform/runtime/errortail.h"
#include "platform/spelling/spellmarks.h"
#include "settings/settings.h"

#include <QApplication>

#include <utility>

namespace {
constexpr int Pause = 300; // ms without a key; loading a dictionary stops the program for up to 200
} // namespace

Spelling::Spelling(const Cells& cells) : m_speller(folders::ApplicationDirectory() + u"/words.txt"_s)
{
    const QLatin1StringView literal(" in Spelling, FollowFocus");
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    connect(&m_pause, &QTimer::timeout, this, Guarded(" in Spelling, LoadNext"_L1, [this] { LoadNext(); }));
    connect(qApp, &QApplication::focusChanged, this,
            Guarded(literal, [this](QWidget*, QWidget* now) { FollowFocus(now); }));
    // These signals also come while another window is active.
    const auto follow = Guarded(literal, [this, &cells] { FollowFocus(cells.Client()->window()->focusWidget()); });
    connect(&cells, &Cells::GotFocus, this, follow);
    connect(&cells, &Cells::Left, this, follow);
}

// A menu, a message or another window only borrows the focus.
void Spelling::FollowFocus(QWidget* now)
{
    auto* box = qobject_cast<RichTextBox*>(now);
    const bool isLeft = m_box && now && now->window() == m_box->window();
    if (now == m_box || (!box && !isLeft)) return;
    Leave();
    if (box && Read(settings::Spelling) != 0) Enter(*box);
}

void Spelling::Enter(RichTextBox& box)
{
    if (!std::exchange(m_isChosen, true)) m_speller.Expect(ChosenDictionaries());
    if (!m_speller.IsLoaded() && !m_speller.IsExpecting()) return;
    m_box = &box;
    m_speller.Personal().Refresh();
    const auto wait = [this] {
        if (m_pause.isActive()) m_pause.start();
    };
    connect(&box, &RichTextBox::Change, &m_pause, wait);
    new SpellMarks(box, m_speller); // belongs to the box
    if (m_speller.IsExpecting()) m_pause.start();
}

void Spelling::Leave()
{
    auto* box = qobject_cast<RichTextBox*>(m_box.data()); // null for one that is being destroyed with the focus
    m_box = nullptr;
    if (!box) return;
    box->disconnect(&m_pause);
    if (SpellMarks* marks = SpellMarks::Of(*box)) marks->Clear();
}

void Spelling::LoadNext()
{
    auto* box = qobject_cast<RichTextBox*>(m_box.data());
    if (!box || !m_speller.IsExpecting()) return;
    m_speller.LoadNext();
    if (m_speller.IsExpecting()) return m_pause.start();
    if (SpellMarks* marks = SpellMarks::Of(*box)) marks->CheckAll();
}

void Spelling::mnuSpelling_Click()
{
    SpellingForm form(OwnerOfDialog(), m_speller.Personal());
    if (form.exec() != QDialog::Accepted) return;
    Leave();
    m_speller.Unload();
    m_isChosen = false;
    FollowFocus(QApplication::focusWidget());
}
