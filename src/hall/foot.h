// The foot of the calendar: the month's title, followed by notices that hold at present.
#pragma once

#include <QString>

struct BottomPanel;
class SSPanel;

class Foot
{
public:
    explicit Foot(const BottomPanel& bottom);

    void ShowMonth();                    // "JULY 1999" and the notices
    void Say(const QString& text);       // replaces the text at once, until the next ShowMonth
    void SayBeside(const QString& text); // follows the month, until the next ShowMonth
    QString Said() const;                // the shown text
    void ShowConnection(bool isThere);   // the month, or that the server is away if no other notice stands

    // The reason, or empty to end the notice.
    void SetNotSaved(const QString& reasons); // notes wait to be saved
    void SetNotKept(const QString& reason);   // what is typed cannot be journalled

private:
    SSPanel& m_panel;
    QString m_notSaved;
    QString m_notKept;
};
