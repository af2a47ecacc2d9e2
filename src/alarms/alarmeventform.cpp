#include "alarms/alarmeventform.h"

#include "alarms/tunes.h"
#include "platform/controls/notepanel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"

#include <QPushButton>
#include <QTimer>

// Without an owner: the desktop would hide it together with a main window that is minimised.
AlarmEventForm::AlarmEventForm(const QByteArray& note, QScreen* screen) : QDialog(nullptr, Qt::WindowStaysOnTopHint)
{
    constexpr QSize SmallestNote(400, 180);
    setObjectName(QStringLiteral("AlarmEventForm"));
    setWindowTitle(QStringLiteral("Alarm Event"));
    setModal(true);
    setScreen(screen);
    auto* tbNotes = new RichTextBox;
    tbNotes->setObjectName(QStringLiteral("tbNotes"));
    tbNotes->setAccessibleName(QStringLiteral("Notes"));
    tbNotes->setMinimumSize(SmallestNote);
    tbNotes->SetTextRTF(note);
    tbNotes->SetLocked(true); // to be read: nobody would keep what was typed here
    auto* btnOk = new QPushButton(QStringLiteral("&Ok"));
    btnOk->setObjectName(QStringLiteral("btnOk"));
    // The window comes in the middle of other work: a key that was meant for that must not close it unseen.
    btnOk->setAutoDefault(false);
    connect(btnOk, &QPushButton::clicked, this, &QDialog::accept);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(16);
    column->addWidget(MakeNotePanel(tbNotes), 1);
    column->addWidget(btnOk, 0, Qt::AlignRight);
    tbNotes->setFocus();
    CenterOnScreen(*this);
}

void AlarmEventForm::PlayWhenShown(const QString& tune)
{
    QTimer::singleShot(0, this, [this, tune] {
        guard(QLatin1StringView(" in AlarmEventForm, subPlayMusic"), [&] { subPlayMusic(tune); });
    });
}

void AlarmEventForm::subPlayMusic(const QString& sTune)
{
    const QString problem = PlayTune(sTune);
    if (!problem.isEmpty()) MsgBox(problem);
}

void AlarmEventForm::subStopMusic(const QString& sTune)
{
    StopTune(sTune);
}
