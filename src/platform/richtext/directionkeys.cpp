#include "platform/richtext/directionkeys.h"

#include <QKeyEvent>

#include <utility>

namespace {
// The toolkit does not tell the two keys apart. X11 and Wayland give the same numbers for them.
constexpr quint32 LeftShift = 0xFFE1, RightShift = 0xFFE2;

bool IsOfDirection(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control;
}
} // namespace

std::optional<Qt::LayoutDirection> DirectionKeys::Take(const QEvent& event)
{
    const auto* const key = dynamic_cast<const QKeyEvent*>(&event);
    if (event.type() == QEvent::FocusOut || event.type() == QEvent::InputMethod) Forget();
    if (!key) return {};
    // The menu takes a shortcut's press, but its override comes here before.
    if (!IsOfDirection(key->key()) || key->modifiers() & (Qt::AltModifier | Qt::MetaModifier))
        Forget();
    else if (event.type() == QEvent::KeyPress)
        TakePress(*key);
    else if (event.type() == QEvent::KeyRelease && !key->isAutoRepeat() && m_isWithControl)
        return std::exchange(m_direction, std::nullopt);
    return {};
}

void DirectionKeys::TakePress(const QKeyEvent& key)
{
    if (key.isAutoRepeat()) return;
    if (key.key() == Qt::Key_Control) {
        m_isWithControl = true;
        if (!(key.modifiers() & Qt::ShiftModifier)) Forget(); // one of a former press, whose release went elsewhere
        return;
    }
    m_isWithControl = key.modifiers() & Qt::ControlModifier;
    if (key.nativeVirtualKey() == LeftShift) m_direction = Qt::LeftToRight;
    if (key.nativeVirtualKey() == RightShift) m_direction = Qt::RightToLeft;
}
