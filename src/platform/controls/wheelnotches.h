// Adds up the small turns of a fine wheel. A step of the person is a whole notch.
#pragma once

#include <QWheelEvent>

#include <utility>

class WheelNotches
{
public:
    // The whole notches since the last call, upwards positive. A turn back begins at nothing again.
    int Take(const QWheelEvent& event)
    {
        const int turn = event.angleDelta().y();
        if (turn * m_turned < 0) m_turned = 0;
        m_turned += turn;
        return std::exchange(m_turned, m_turned % QWheelEvent::DefaultDeltasPerStep) /
               QWheelEvent::DefaultDeltasPerStep;
    }

private:
    int m_turned = 0; // in eighths of a degree
};
