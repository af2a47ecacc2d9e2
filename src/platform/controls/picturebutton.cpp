#include "platform/controls/picturebutton.h"

#include "platform/controls/accessrole.h"
#include "platform/controls/resources.h"
#include "platform/look/paperstyle.h"

#include <QMouseEvent>

namespace {
constexpr int PictureSize = 24;
} // namespace

PictureButton::PictureButton(const QStringList& pictures, int pressedElement, QWidget* parent)
    : QPushButton(parent), m_pressedElement(pressedElement)
{
    for (const QString& picture : pictures)
        m_elements.push_back({PictureIcon(picture), {}});
    setStyle(&PaperStyle::Shared());
    SetAccessibleRole(this, QAccessible::Button); // though it may be checked
    setIconSize({PictureSize, PictureSize});
    setFlat(true);
    setCheckable(true);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a tip may depend on the position
    connect(this, &QPushButton::pressed, this, [this] { Q_EMIT MouseDown(m_pressed = m_shown); });
    connect(this, &QPushButton::released, this, [this] { Q_EMIT MouseUp(m_pressed); });
    connect(this, &QPushButton::clicked, this, [this] { Q_EMIT Click(m_pressed); });
    Follow();
}

void PictureButton::ShowElement(int element)
{
    const bool wasHidden = m_shown == NoElement;
    m_shown = element;
    if (element == NoElement) return hide();
    Follow();
    if (wasHidden) show();
}

void PictureButton::Follow()
{
    const auto& [picture, tip] = m_elements.at(std::size_t(m_shown));
    setIcon(picture);
    setChecked(m_shown == m_pressedElement);
    if (tip == accessibleName()) return;
    setToolTip(tip);
    setAccessibleName(tip);
}

void PictureButton::SetToolTip(int element, const QString& tip)
{
    m_elements.at(std::size_t(element)).tip = tip;
    if (element == m_shown) Follow();
}

QSize PictureButton::minimumSizeHint() const
{
    return iconSize() + QSize(4, 4);
}

void PictureButton::LetGo()
{
    if (!isDown()) return;
    setDown(false);
    Q_EMIT released();
}

bool PictureButton::event(QEvent* event)
{
    const auto type = event->type();
    // An opening box takes the release; a hidden button never gets it.
    if (type == QEvent::WindowBlocked || type == QEvent::Hide) LetGo();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease) return QPushButton::event(event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return QPushButton::event(event);
    QKeyEvent space(type, Qt::Key_Space, key->modifiers(), {}, key->isAutoRepeat()); // Space holds the button down
    return QPushButton::event(&space);
}

// It stays down wherever the mouse goes.
// The toolkit learns of a mouse that rests over the button only when it moves.
void PictureButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    option->state.setFlag(QStyle::State_MouseOver, underMouse() && isEnabled());
}

void PictureButton::mouseMoveEvent(QMouseEvent* event)
{
    if (!isDown()) QPushButton::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

void PictureButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !hitButton(event->position().toPoint())) LetGo();
    QPushButton::mouseReleaseEvent(event);
}
