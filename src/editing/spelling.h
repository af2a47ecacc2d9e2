// Spelling as one types: follows the note with the caret, loads the chosen dictionaries, and runs the command that
// chooses them.
#pragma once

#include "platform/richtext/richtextbox.h"
#include "platform/spelling/speller.h"

#include <QPointer>
#include <QTimer>

class Cells;

class Spelling : public QObject
{
    Q_OBJECT

public:
    explicit Spelling(const Cells& cells);

    void mnuSpelling_Click();

private:
    void FollowFocus(QWidget* now);
    void Enter(RichTextBox& box);
    void Leave();
    void LoadNext();

    Speller m_speller;
    QPointer<QWidget> m_box; // the note that is or will be checked
    bool m_isChosen = false; // the speller knows its dictionaries; not before a note is entered
    QTimer m_pause;
};
