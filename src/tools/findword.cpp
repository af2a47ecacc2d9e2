#include "tools/findword.h"

#include "calendar/redraw.h"
#include "hall/cells.h"
#include "notes/turn.h"
#include "plannerfile/schema.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/twips.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/textview.h"
#include "platform/richtext/rtftextview.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "state/viewmode.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr QLatin1StringView NextLiteral(" in FindWordForm, btnFindNext_Click");
constexpr QLatin1StringView WithinLiteral(" in FindWordForm, btnFindWithin_Click");
constexpr QLatin1StringView GotoLiteral(" in FindWordForm, subGotoRecCalendar");
using schema::DateField, schema::TextField;

// The position counts from 1; 0 if the word does not occur from this position on.
int PlaceOf(const QString& word, const QByteArray& stored, int from)
{
    return static_cast<int>(FoldedCase(ViewedText(stored)).indexOf(FoldedCase(word), from - 1)) + 1;
}
} // namespace

FindWordForm::FindWordForm(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode)
    : QDialog(cells.Client()->window()), m_cells(cells), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode)
{
    setObjectName(u"FindWordForm"_s);
    setWindowTitle(u"Find Word"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    ShowStored();
}

FindWordForm::~FindWordForm()
{
    g_rsFind = {};
}

void FindWordForm::MakeControls()
{
    constexpr int WordWidth = 240;
    m_tbFindWord = Named(new QLineEdit, "tbFindWord");
    m_tbFindWord->setMinimumWidth(WordWidth);
    auto* grid = new QGridLayout(this);
    constexpr int Gap = 2 * Rhythm;
    grid->setContentsMargins(Gap, Gap, Gap, Gap);
    grid->setHorizontalSpacing(Gap);
    grid->setVerticalSpacing(Rhythm);
    grid->addWidget(LabelOf(u"Find What:"_s, m_tbFindWord), 0, 0);
    grid->addWidget(m_tbFindWord, 0, 1);
    // In the same place, so that repeated clicks search on.
    grid->addWidget(m_btnFindNext = MakeButton("btnFindNext", NextLiteral, &FindWordForm::btnFindNext_Click), 0, 2);
    m_btnFindWithin = MakeButton("btnFindWithin", WithinLiteral, &FindWordForm::btnFindWithin_Click);
    grid->addWidget(m_btnFindWithin, 0, 2);
    m_btnFindWithin->hide();
    auto* cancel = Named(new QPushButton(u"&Cancel"_s), "btnCancel");
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    grid->addWidget(cancel, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_tbFindWord, &QLineEdit::textChanged, this,
            Guarded(" in FindWordForm, btnFindWord_Change"_L1, [this] { tbFindWord_Change(); }));
}

QPushButton* FindWordForm::MakeButton(const char* name, QLatin1StringView literal, void (FindWordForm::*click)())
{
    auto* button = Named(new QPushButton(u"&Find Next"_s), name);
    connect(button, &QPushButton::clicked, this, Guarded(literal, [this, click] { (this->*click)(); }));
    return button;
}

void FindWordForm::ShowStored()
{
    if (!WindowsKnowTheirPlace()) return;
    adjustSize();
    const QPoint stored(ToPixels(Read(settings::FindWordLeft)), ToPixels(Read(settings::FindWordTop)));
    move(ReachablePlace({stored, size()}, size()).topLeft());
}

void FindWordForm::done(int result)
{
    if (WindowsKnowTheirPlace()) {
        Write(settings::FindWordLeft, ToTwips(pos().x()));
        Write(settings::FindWordTop, ToTwips(pos().y()));
    }
    ClearSelections(); // a typed letter would replace the selected note
    QDialog::done(result);
}

void FindWordForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    m_tbFindWord->setFocus();
    if (g_rsFind.IsNothing()) EnableButtons(true); // another planner may contain the word
}

void FindWordForm::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || !m_tbFindWord->hasFocus()) return QDialog::keyPressEvent(event);
    Guarded(" in FindWordForm, tbFindWord_KeyPress"_L1,
            [this] { m_btnFindNext->isHidden() ? btnFindWithin_Click() : btnFindNext_Click(); })();
}

void FindWordForm::tbFindWord_Change()
{
    m_bWordChanged = m_bSearching;
    m_bHitWaits = false;
    ShowButton(m_btnFindNext, m_btnFindWithin);
    EnableButtons(true);
}

void FindWordForm::ShowButton(QPushButton* shown, QPushButton* hidden)
{
    const bool hadFocus = hidden->hasFocus();
    hidden->hide();
    shown->show();
    if (hadFocus) shown->setFocus();
}

void FindWordForm::EnableButtons(bool enabled)
{
    m_btnFindNext->setEnabled(enabled);
    m_btnFindWithin->setEnabled(enabled);
}

void FindWordForm::btnFindNext_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    const ErrorTail tail(NextLiteral);
    ShowButton(m_btnFindNext, m_btnFindWithin);
    const Found found = m_bHitWaits && !g_rsFind.IsNothing() ? Found::Hit : FindDay();
    if (found == Found::Nothing) {
        MsgBox(u"End of String Search"_s, msgbox::Information, u"End of Search"_s);
        EnableButtons(false);
    }
    if (found != Found::Hit) return;
    tail([&] {
        m_bHitWaits = !subGotoRecCalendar(g_rsFind.Fields(TextField).toByteArray(), m_tbFindWord->text(), m_hit);
    });
}

FindWordForm::Found FindWordForm::FindDay()
{
    const Hourglass hourglass;
    // The word is not escaped: its pattern characters act as such.
    const QString criterion = u"[qmtText] LIKE '*"_s + m_tbFindWord->text() + u"*'"_s;
    for (;;) {
        const Found found = FindRecord(criterion);
        if (found != Found::Hit) return found;
        if (const auto day = DayOfKey(g_rsFind.Fields(DateField).toString())) {
            m_hit = *day;
            return found;
        }
    }
}

FindWordForm::Found FindWordForm::FindRecord(const QString& criterion)
{
    try {
        StepBack(criterion);
    } catch (const RunTimeError& error) {
        LogError(error, NextLiteral);
        if (error.Number == engineerrors::UnparsableCriterion || error.Number == engineerrors::NoCurrentRecord)
            return Found::Nothing;
        messages::Tell(error.Description, msgbox::Exclamation);
        return Found::Failed;
    }
    return g_rsFind.NoMatch() ? Found::Nothing : Found::Hit;
}

void FindWordForm::StepBack(const QString& criterion)
{
    if (g_rsFind.IsNothing()) {
        m_bSearching = m_bWordChanged = false;
        m_iPos = 0;
        g_rsFind = g_dbPlanner.CreateDynaset(schema::Notes);
    }
    if (m_bWordChanged) g_rsFind.MoveLast();
    m_bWordChanged = false;
    if (m_bSearching) return g_rsFind.FindPrevious(criterion);
    g_rsFind.FindLast(criterion);
    m_bSearching = true;
}

bool FindWordForm::subGotoRecCalendar(const QByteArray& text, const QString& word, const GridDay& day)
{
    if (!ShowDay(day)) return false;
    ClearSelections();
    m_iPos = fnFindString(text, word);
    ShowButton(m_btnFindWithin, m_btnFindNext);
    return true;
}

bool FindWordForm::ShowDay(const GridDay& day)
{
    const int mode = m_viewMode.GetViewMode();
    if (mode != ViewMode::Month && mode != ViewMode::Week) {
        g_iDay = static_cast<std::int16_t>(day.day);
        return true;
    }
    const bool turned = m_turn(GotoLiteral, [&] {
        g_iYear = static_cast<std::int16_t>(day.year);
        g_iMonth = static_cast<std::int16_t>(day.month);
        g_iDay = static_cast<std::int16_t>(day.day);
        if (mode == ViewMode::Month) m_redraw.subDisplayMonth();
        if (mode == ViewMode::Week) m_redraw.subDisplayWeek();
    });
    if (!turned) return false;
    if (const int cell = m_cells.CellOfDay(CellsOf(mode), day.day)) {
        m_iCell = cell;
        FocusCell();
    }
    return true;
}

// The calendar's window does not become active: a person who presses Enter again wants to search on, and Enter would
// replace the selected note. An inactive window gets no focus event, so the cell is told here.
void FindWordForm::FocusCell()
{
    m_cells.tbDay(m_iCell).setFocus();
    if (g_iCurrentPanel != m_iCell) m_cells.EnterAgain();
}

int FindWordForm::fnFindString(const QByteArray& text, const QString& word)
{
    int place = 0;
    ErrorTail{" in FindWordForm, fnFindString"_L1}([&] {
        place = PlaceOf(word, text, 1);
        if (place != 0) SelectNote();
    });
    return place;
}

// An earlier hit in the same month would look like the new one.
void FindWordForm::ClearSelections()
{
    for (int cell = 1; cell <= CellCount; ++cell)
        if (m_cells.tbDay.Exists(cell) && m_cells.tbDay(cell).SelLength() > 0) m_cells.tbDay(cell).SetSelLength(0);
}

// Selects the whole note, since a position in the stored text does not match the shown one.
void FindWordForm::SelectNote()
{
    RichTextBox& box = m_cells.tbDay(m_iCell);
    box.SetSelStart(0);
    box.SetSelLength(box.document()->characterCount() - 1);
}

// The calendar may have turned meanwhile, so the cell may show another day.
bool FindWordForm::ShowsHit() const
{
    return m_cells.Shows(m_iCell) && g_iYear == m_hit.year && g_iMonth == m_hit.month &&
           m_cells.CellOfDay(CellsOf(m_viewMode.GetViewMode()), m_hit.day) == m_iCell;
}

void FindWordForm::btnFindWithin_Click()
{
    const ErrorTail tail(WithinLiteral);
    const QString word = m_tbFindWord->text();
    tail([&] {
        // An empty word would match at each letter.
        const bool goesOn = m_iPos != 0 && !word.isEmpty() && !g_rsFind.IsNothing();
        const int place = goesOn ? PlaceOf(word, g_rsFind.Fields(TextField).toByteArray(), m_iPos + 1) : 0;
        if (place != 0 && !ShowsHit() && !ShowDay(m_hit)) return;
        if (place != 0) {
            FocusCell();
            ClearSelections();
            SelectNote();
        }
        m_iPos = place;
    });
    if (m_iPos != 0) return;
    btnFindNext_Click();
}

FindWord::FindWord(Cells& cells, Turn& turn, Redraw& redraw, const ViewMode& viewMode)
    : m_cells(cells), m_turn(turn), m_redraw(redraw), m_viewMode(viewMode)
{
    SetTextView(RtfTextView);
}

FindWord::~FindWord()
{
    delete m_form; // it uses objects that are about to be deleted
}

void FindWord::mnuFindWord_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n"_s))) return;
    if (!m_form) m_form = new FindWordForm(m_cells, m_turn, m_redraw, m_viewMode);
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void FindWord::Unload()
{
    if (m_form) m_form->reject();
}
