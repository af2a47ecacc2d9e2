// The window of an alarm that rings: its day, time and note, in front of everything. It comes in the middle of other
// work: what is being typed goes on to where it was meant for, until a second has passed without a key, or somebody
// clicks or tabs here.
#pragma once

#include <QDeadlineTimer>
#include <QDialog>
#include <QPointer>
#include <QTimer>

class QPushButton;
class QScreen;
class RichTextBox;
struct Alarm;

class AlarmEventForm : public QDialog
{
    Q_OBJECT

public:
    // typedInto is the widget that has the focus behind it, if any; it may go while the window is open.
    AlarmEventForm(const Alarm& alarm, QScreen* screen, QWidget* typedInto);

    // Plays the tune once the window is shown. What is told of a tune that cannot be played stands over it, and waits
    // for half a second without a key.
    void subPlayMusic(const QString& sTune);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    bool IsTouched() const { return focusWidget() != this; }
    void PassOn(QEvent& typed);
    void TakeKeys();
    void ShowNote(const QByteArray& note);
    void LayOut(const QString& when);
    void SetUpTimers();

    RichTextBox* m_tbNotes;
    QPushButton* m_btnOk;
    QPointer<QWidget> m_typedInto;
    QDeadlineTimer m_isNew; // nobody has read it yet
    QTimer m_typing;        // runs while the keys go on to where they were meant for
    QTimer m_quiet;         // runs while the problem waits to be told
    QString m_problem;
};
