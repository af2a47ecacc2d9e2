// The window of an alarm that rings: its day, time and note, in front of everything. It interrupts other work, so the
// keys go on to the box that had the focus until a second passes without a key, or the person clicks or tabs into this
// window.
#pragma once

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDialog>
#include <QPointer>
#include <QTimer>

class QPushButton;
class QScreen;
class RichTextBox;
struct AgainIn;
struct Alarm;

class AlarmEventForm : public QDialog
{
    Q_OBJECT

public:
    // isAgain: the alarm was put off. typedInto is the widget that has the focus, or null. It may be deleted while the
    // window is open.
    AlarmEventForm(const Alarm& alarm, bool isAgain, QScreen* screen, QWidget* typedInto);

    // Plays the tune once the window is shown. If that fails, a message follows after half a second without a key.
    void subPlayMusic(const QString& sTune);

    bool IsAnswered() const { return m_isAnswered; } // not if the end of the program has closed the window
    QDateTime Again() const { return m_again; }      // when it is to ring again; null: never

    void PutOff(const AgainIn& choice); // closes the window
    void done(int result) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    bool IsTouched() const { return focusWidget() != this; }
    void PassOn(QEvent& typed);
    void TakeKeys();
    void ShowNote(const QByteArray& note);
    void LayOut(const QString& when);
    void MakeAgain();
    void SetUpTimers();

    RichTextBox* m_tbNotes;
    QPushButton* m_btnOk;
    QPushButton* m_btnAgain;
    QPointer<QWidget> m_typedInto;
    QDeadlineTimer m_isNew{QDeadlineTimer::Forever}; // runs until a person can have read the window
    QTimer m_typing;                                 // runs while keys are passed on
    QTimer m_quiet;                                  // runs until the problem is shown
    QString m_problem;
    bool m_isAnswered = false;
    QDateTime m_again;
};
