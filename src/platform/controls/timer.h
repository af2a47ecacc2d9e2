// A timer of the main window. Its event is queued, so that it also comes while a message box waits inside the previous
// one.
#pragma once

#include <QTimer>

class Timer : public QObject
{
    Q_OBJECT

public:
    Timer(int interval, QObject* parent = nullptr); // milliseconds; starts disabled

    bool Enabled() const { return m_timer.isActive(); }
    void SetEnabled(bool enabled);

Q_SIGNALS:
    void Tick();

private:
    QTimer m_timer;
};
