// Ctrl with the left or the right Shift key, pressed and released alone: the direction of paragraphs.
#pragma once

#include <Qt>

#include <optional>

class QEvent;
class QKeyEvent;

class DirectionKeys
{
public:
    // The direction that the event sets, if it is the release of these keys. To be given all events of the keyboard.
    std::optional<Qt::LayoutDirection> Take(const QEvent& event);
    void Forget() { m_direction.reset(); } // the keys go with the mouse

private:
    void TakePress(const QKeyEvent& key);

    std::optional<Qt::LayoutDirection> m_direction; // of the Shift key that is down
    bool m_isWithControl = false;
};
