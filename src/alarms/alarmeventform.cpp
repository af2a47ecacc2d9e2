#include "alarms/alarmeventform.h"

#include "alarms/againin.h"
#include "alarms/alarmrecords.h"
#include "alarms/alarmrules.h"
#include "alarms/tunes.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QLatin1StringView PlayLiteral(" in AlarmEventForm, subPlayMusic");
constexpr int HalfASecond = 500, Second = 1000;

bool IsReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsTyping(const QKeyEvent& event)
{
    const auto command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (command) return false;
    const int key = event.key();
    const bool isArrow = key >= Qt::Key_Left && key <= Qt::Key_Down;
    if (isArrow || IsReturn(key) || key == Qt::Key_Backspace || key == Qt::Key_Delete) return true;
    return !event.text().isEmpty() && event.text().front() >= u' ';
}

bool TakesText(const QWidget& widget)
{
    const auto* list = qobject_cast<const QComboBox*>(&widget); // a combo has the focus in place of its line edit
    const QObject& box = list && list->isEditable() ? static_cast<const QObject&>(*list->lineEdit()) : widget;
    const QVariant readOnly = box.property("readOnly"); // every text box has this property
    return readOnly.isValid() && !readOnly.toBool() && widget.isEnabled() && widget.isVisible();
}
} // namespace

// It has no owner: the desktop would hide it together with a minimised main window.
AlarmEventForm::AlarmEventForm(const Alarm& alarm, bool isAgain, QScreen* screen, QWidget* typedInto)
    : QDialog(nullptr, Qt::WindowStaysOnTopHint), m_tbNotes(Named(new RichTextBox, "tbNotes")),
      m_btnOk(Named(new PressedByReturn<QPushButton>(u"&Ok"_s), "btnOk")),
      m_btnAgain(Named(new PressedByReturn<QPushButton>(u"&Again in"_s), "btnAgain")), m_typedInto(typedInto)
{
    setObjectName(u"AlarmEventForm"_s);
    setWindowTitle(u"Alarm Event"_s);
    setModal(true);
    setScreen(screen);
    ShowNote(alarm.note);
    LayOut(ShownDayAndTime(alarm.date, alarm.time) + (isAgain ? u", put off"_s : QString()));
    SetUpTimers();
    setAttribute(Qt::WA_InputMethodEnabled);
    setFocus(); // the window itself has the focus until a person clicks or tabs
    CenterOnScreen(*this);
}

void AlarmEventForm::ShowNote(const QByteArray& note)
{
    constexpr QSize SmallestNote(400, 180);
    m_tbNotes->setAccessibleName(u"Notes"_s);
    m_tbNotes->setMinimumSize(SmallestNote);
    m_tbNotes->SetTextRTF(note);
    m_tbNotes->SetLocked(true); // read-only: nothing would store what is typed here
}

void AlarmEventForm::LayOut(const QString& when)
{
    auto* lblWhen = Named(new QLabel(when), "lblWhen");
    setAccessibleDescription(when + u'\n' + m_tbNotes->Text());
    m_btnOk->setAutoDefault(false); // Return anywhere else must not close the window
    connect(m_btnOk, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    column->addWidget(lblWhen);
    column->addWidget(MakeNotePanel(m_tbNotes), 1);
    column->addLayout(DialogRow(Rhythm, {nullptr, m_btnAgain, m_btnOk}));
    MakeAgain();
    setTabOrder(m_btnOk, m_btnAgain);
    setTabOrder(m_btnAgain, m_tbNotes);
}

void AlarmEventForm::MakeAgain()
{
    m_btnAgain->setAutoDefault(false);
    m_btnAgain->setMenu(MakeAgainMenu(m_btnAgain, [this](const AgainIn& choice) { PutOff(choice); }));
}

void AlarmEventForm::PutOff(const AgainIn& choice)
{
    m_again = MomentOf(choice, desktopclock::Now());
    accept();
}

void AlarmEventForm::done(int result)
{
    m_isAnswered = true;
    // A box over this window would keep it waiting.
    for (auto* box : findChildren<QDialog*>())
        box->reject();
    QDialog::done(result);
}

void AlarmEventForm::SetUpTimers()
{
    m_typing.setSingleShot(true);
    m_typing.setInterval(Second);
    connect(&m_typing, &QTimer::timeout, this, [this] { TakeKeys(); });
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(HalfASecond);
    connect(&m_quiet, &QTimer::timeout, this, Guarded(PlayLiteral, [this] { MsgBox(m_problem); }));
}

void AlarmEventForm::subPlayMusic(const QString& sTune)
{
    QTimer::singleShot(0, this, Guarded(PlayLiteral, [this, sTune] {
                           m_problem = PlayTune(sTune, {Read(settings::TuneVolume), Read(settings::RepeatTune) != 0});
                           if (!m_problem.isEmpty()) m_quiet.start();
                       }));
}

// On a busy machine the window may have the keyboard long before a person can see it.
void AlarmEventForm::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    if (!m_isNew.isForever()) return;
    m_isNew.setRemainingTime(HalfASecond);
    m_typing.start();
}

// A shortcut, Tab or Esc that comes at once was meant for the work behind the window.
bool AlarmEventForm::event(QEvent* event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    const bool isKey = isPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || m_isNew.hasExpired()) return QDialog::event(event);
    if (isPress && IsTyping(static_cast<QKeyEvent&>(*event))) keyPressEvent(static_cast<QKeyEvent*>(event));
    event->accept();
    return true;
}

void AlarmEventForm::keyPressEvent(QKeyEvent* event)
{
    if (IsTouched()) return QDialog::keyPressEvent(event);
    if (m_quiet.isActive()) m_quiet.start();
    if (IsTyping(*event)) {
        m_typing.start();
        // In a one-line box Return would press a button of the window behind.
        const bool staysInBox = !IsReturn(event->key()) || qobject_cast<QTextEdit*>(m_typedInto);
        if (staysInBox) PassOn(*event);
    } else if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        QApplication::sendEvent(m_tbNotes, event);
    } else {
        QDialog::keyPressEvent(event); // Esc closes
    }
}

// Input methods bring accents and other scripts.
void AlarmEventForm::inputMethodEvent(QInputMethodEvent* event)
{
    QInputMethodEvent committed;
    committed.setCommitString(event->commitString());
    if (!IsTouched()) m_typing.start();
    if (!IsTouched() && !event->commitString().isEmpty()) PassOn(committed);
}

// The typing has paused: the next key is an answer to this window.
void AlarmEventForm::TakeKeys()
{
    if (!IsTouched() && !m_isNew.isForever()) m_btnOk->setFocus();
}

void AlarmEventForm::PassOn(QEvent& typed)
{
    if (m_typedInto && TakesText(*m_typedInto)) QApplication::sendEvent(m_typedInto, &typed);
}
