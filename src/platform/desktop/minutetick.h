// Ticks at the beginning of each minute of the computer's clock, and at once when that clock is set or the computer
// wakes up. Between the ticks nothing runs.
#pragma once

#include <QObject>

class MinuteTick : public QObject
{
    Q_OBJECT

public:
    MinuteTick();
    ~MinuteTick() override;

Q_SIGNALS:
    void Tick();

private:
    void Arm();
    void TakeTick();

    const int m_timer; // a descriptor
};
