#include "tools/findwordform.h"

#include "plannerfile/schema.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/desktop/twips.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/textview.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/plannerstate.h"
#include "state/refusals.h"
#include "tools/hitlist.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace {
constexpr QLatin1StringView NextLiteral(" in FindWordForm, btnFindNext_Click");
constexpr QLatin1StringView WithinLiteral(" in FindWordForm, btnFindWithin_Click");
using schema::DateField, schema::TextField;

// The position counts from 1; 0 if the word does not occur from this position on.
int PlaceOf(const QString& word, const QByteArray& stored, int from)
{
    return static_cast<int>(FoldedCase(ViewedText(stored)).indexOf(FoldedCase(word), from - 1)) + 1;
}
} // namespace

FindWordForm::FindWordForm(QWidget* owner, const HitCell& cell, const HitListNeeds& needs)
    : QDialog(owner), m_cell(cell), m_list(Named(new HitList(m_cell, needs), "HitList"))
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
    grid->addWidget(MakeFold(), 1, 0, 1, 2, Qt::AlignLeft);
    grid->addWidget(m_list, 2, 0, 1, 3);
    m_list->hide();
    connect(m_tbFindWord, &QLineEdit::textChanged, this,
            Guarded(" in FindWordForm, btnFindWord_Change"_L1, [this] { tbFindWord_Change(); }));
}

QPushButton* FindWordForm::MakeButton(const char* name, QLatin1StringView literal, void (FindWordForm::*click)())
{
    auto* button = Named(new QPushButton(u"&Find Next"_s), name);
    connect(button, &QPushButton::clicked, this, Guarded(literal, [this, click] { (this->*click)(); }));
    return button;
}

QToolButton* FindWordForm::MakeFold()
{
    m_btnAllDays = Named(new PressedByReturn<QToolButton>, "btnAllDays");
    m_btnAllDays->setText(u"&All days"_s);
    m_btnAllDays->setToolTip(u"Lists every day with the word"_s);
    m_btnAllDays->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_btnAllDays->setAutoRaise(true);
    m_btnAllDays->setCheckable(true);
    connect(m_btnAllDays, &QToolButton::toggled, this,
            Guarded(" in FindWordForm, btnAllDays_Click"_L1, [this](bool on) {
                if (Read(settings::FindAllDays) != int(on)) Write(settings::FindAllDays, on);
                Fold(!on);
            }));
    return m_btnAllDays;
}

// The window has a fixed size without the list, and the person's own with it.
void FindWordForm::Fold(bool folded)
{
    m_btnAllDays->setArrowType(folded ? Qt::RightArrow : Qt::DownArrow);
    if (folded && !m_list->isHidden()) KeepSize();
    m_list->setVisible(!folded);
    layout()->setSizeConstraint(folded ? QLayout::SetFixedSize : QLayout::SetMinimumSize);
    if (folded) return adjustSize();
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QSize kept(ToPixels(Read(settings::FindWordWidth)), ToPixels(Read(settings::FindWordHeight)));
    resize(kept.boundedTo(screen()->availableSize()).expandedTo(minimumSizeHint()));
    m_list->Look(m_tbFindWord->text());
    m_list->FollowPlanner();
}

void FindWordForm::ShowAllDays()
{
    m_btnAllDays->setChecked(true);
}

void FindWordForm::FollowPlanner()
{
    m_list->FollowPlanner();
}

void FindWordForm::KeepSize() const
{
    Write(settings::FindWordWidth, ToTwips(width()));
    Write(settings::FindWordHeight, ToTwips(height()));
}

void FindWordForm::ShowStored()
{
    if (Read(settings::FindAllDays))
        m_btnAllDays->setChecked(true);
    else
        Fold(true);
    if (!WindowsKnowTheirPlace()) return;
    const QPoint stored(ToPixels(Read(settings::FindWordLeft)), ToPixels(Read(settings::FindWordTop)));
    move(ReachablePlace({stored, size()}, size()).topLeft());
}

void FindWordForm::done(int result)
{
    if (WindowsKnowTheirPlace()) {
        Write(settings::FindWordLeft, ToTwips(pos().x()));
        Write(settings::FindWordTop, ToTwips(pos().y()));
    }
    if (!m_list->isHidden()) KeepSize();
    m_cell.ClearSelections(); // a typed letter would replace the selected note
    QDialog::done(result);
}

void FindWordForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    const bool isRowClicked = m_list->IsEntered() && QGuiApplication::mouseButtons() != Qt::NoButton;
    if (!isRowClicked) m_tbFindWord->setFocus();
    m_list->FollowPlanner();
    if (g_rsFind.IsNothing()) EnableButtons(true); // another planner may contain the word
}

void FindWordForm::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && m_list->IsEntered()) return m_list->Choose();
    if (event->key() == Qt::Key_Down && m_tbFindWord->hasFocus() && !m_list->isHidden()) return m_list->Enter();
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
    if (!m_list->isHidden()) m_list->Look(m_tbFindWord->text());
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
    if (!m_cell.ShowDay(day)) return false;
    m_cell.ClearSelections();
    m_iPos = fnFindString(text, word);
    ShowButton(m_btnFindWithin, m_btnFindNext);
    return true;
}

int FindWordForm::fnFindString(const QByteArray& text, const QString& word)
{
    int place = 0;
    ErrorTail{" in FindWordForm, fnFindString"_L1}([&] {
        place = PlaceOf(word, text, 1);
        if (place != 0) m_cell.SelectNote();
    });
    return place;
}

void FindWordForm::btnFindWithin_Click()
{
    const ErrorTail tail(WithinLiteral);
    const QString word = m_tbFindWord->text();
    tail([&] {
        // An empty word would match at each letter.
        const bool goesOn = m_iPos != 0 && !word.isEmpty() && !g_rsFind.IsNothing();
        const int place = goesOn ? PlaceOf(word, g_rsFind.Fields(TextField).toByteArray(), m_iPos + 1) : 0;
        if (place != 0 && !m_cell.Shows(m_hit) && !m_cell.ShowDay(m_hit)) return;
        if (place != 0) {
            m_cell.FocusCell();
            m_cell.ClearSelections();
            m_cell.SelectNote();
        }
        m_iPos = place;
    });
    if (m_iPos != 0) return;
    btnFindNext_Click();
}
