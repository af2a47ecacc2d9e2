// The foot of the calendar: the month's title and, behind it, what somebody must know as long as it is true.
#pragma once

#include <QString>

struct BottomPanel;
class SSPanel;

class Foot
{
public:
    explicit Foot(const BottomPanel& bottom);

    void ShowMonth();                  // "JULY 1999", with the notices behind it
    void Say(const QString& text);     // in their place, at once, until they are shown again
    QString Said() const;              // what stands there
    void ShowConnection(bool isThere); // the month; where the planner's server is away and nothing else is said, that

    // Why it is so; nothing where it is not.
    void SetNotSaved(const QString& reasons); // notes wait to be saved
    void SetNotKept(const QString& reason);   // what is typed cannot be kept aside

private:
    SSPanel& m_panel;
    QString m_notSaved;
    QString m_notKept;
};
