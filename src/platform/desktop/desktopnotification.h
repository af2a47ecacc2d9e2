// A message of the desktop beside a window that may be covered. Shown by whatever serves org.freedesktop.Notifications,
// in its own time: it decides whether the person wants to be disturbed. Does nothing without a session bus.
#pragma once

#include <QObject>
#include <QStringList>

class DesktopNotification : public QObject
{
    Q_OBJECT

public:
    ~DesktopNotification() override { Close(); }

    // In place of the message that it has shown before. actions: keys and captions by turns; "default" is a click on
    // the message. Does not wait.
    void Show(const QString& summary, const QString& body, const QStringList& actions);
    void Close();

Q_SIGNALS:
    void Chosen(const QString& action); // the message is gone then

private Q_SLOTS:
    void TakeAction(uint id, const QString& action);
    void TakeToken(uint id, const QString& token);

private:
    uint m_id = 0; // 0: not shown
};
