#include "platform/controls/picturebutton.h"

#include "platform/look/paper.h"

#include <QAccessibleWidget>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int PictureSize = 24;
constexpr QSize BareSize{34, 30};
constexpr QSize CaptionPadding{20, 26}; // around the picture and the caption below it
constexpr qreal Radius = 6;

class PictureButtonAccess : public QAccessibleWidget
{
public:
    explicit PictureButtonAccess(PictureButton* button) : QAccessibleWidget(button, QAccessible::Button) {}

    QAccessible::State state() const override
    {
        const auto* button = static_cast<PictureButton*>(widget());
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = button->IsPressed();
        // Only of those that stay in: the others would be read as switches.
        state.checkable = state.checked = button->LooksPressed() && !button->IsPressed();
        return state;
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction()) {
            static_cast<PictureButton*>(widget())->Press();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* button = qobject_cast<PictureButton*>(object);
    return button ? new PictureButtonAccess(button) : nullptr; // owned by Qt's cache
}

bool Presses(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}
} // namespace

PictureButton::PictureButton(const QString& raised, const QString& pressed, QWidget* parent)
    : PictureButton({raised, pressed}, 1, parent)
{
}

PictureButton::PictureButton(const QStringList& pictures, int pressedElement, QWidget* parent)
    : QWidget(parent), m_pressedElement(pressedElement)
{
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(MakeAccess), true);
    for (const QString& picture : pictures)
        m_elements.push_back({.file = picture});
    m_elements.front().visible = true;
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true); // a tip may follow from what the mouse is over
}

bool PictureButton::IsAnyVisible() const
{
    return std::any_of(m_elements.begin(), m_elements.end(), [](const Element& element) { return element.visible; });
}

int PictureButton::ShownElement() const
{
    for (std::size_t i = m_elements.size() - 1; i > 0; --i) {
        if (m_elements[i].visible) return int(i);
    }
    return 0;
}

void PictureButton::ShowElement(int element)
{
    for (int other = 0; other < int(m_elements.size()); ++other) {
        if (other != element) SetVisible(other, false);
    }
    SetVisible(element, true);
}

void PictureButton::SetVisible(int element, bool visible)
{
    if (std::exchange(m_elements.at(std::size_t(element)).visible, visible) == visible) return;
    Tell();
    update();
    // Between hiding the one and showing the other neither is visible: hiding the widget at once would lose its focus.
    if (visible) {
        Follow();
    } else {
        QMetaObject::invokeMethod(this, &PictureButton::Follow, Qt::QueuedConnection);
    }
}

// A hidden widget never hears of the release, so while it is pressed it only paints nothing.
void PictureButton::Follow()
{
    const bool visible = IsAnyVisible();
    if (visible || !m_downElement) setVisible(visible);
}

void PictureButton::Tell()
{
    const QString& tip = m_elements[std::size_t(ShownElement())].tip;
    setToolTip(tip);
    const QString& name = tip.isEmpty() ? m_elements.front().tip : tip;
    if (accessibleName() != name) setAccessibleName(name);
    QAccessible::State changed;
    changed.pressed = changed.checked = true;
    QAccessibleStateChangeEvent told(this, changed);
    QAccessible::updateAccessibility(&told);
}

void PictureButton::SetToolTip(int element, const QString& tip)
{
    m_elements.at(std::size_t(element)).tip = tip;
    Tell();
}

void PictureButton::SetCaption(const QString& caption)
{
    m_caption = caption;
    updateGeometry();
    update();
}

void PictureButton::SetFramed(bool framed)
{
    m_framed = framed;
    update();
}

QSize PictureButton::sizeHint() const
{
    if (m_caption.isEmpty()) return BareSize;
    const QSize text(fontMetrics().horizontalAdvance(m_caption), fontMetrics().height());
    return QSize(std::max(PictureSize, text.width()), PictureSize + text.height()) + CaptionPadding;
}

QSize PictureButton::minimumSizeHint() const
{
    return {PictureSize + 4, PictureSize + 4};
}

void PictureButton::Press()
{
    Down(0, Qt::Key_Space);
    Up(true);
}

void PictureButton::Down(int element, int key)
{
    if (m_downElement) return;
    m_downElement = element;
    m_downKey = key;
    update();
    Q_EMIT MouseDown(element);
}

void PictureButton::Up(bool click)
{
    if (!m_downElement) return;
    const int element = *std::exchange(m_downElement, std::nullopt);
    m_downKey = 0;
    update();
    QMetaObject::invokeMethod(this, &PictureButton::Follow, Qt::QueuedConnection);
    Q_EMIT MouseUp(element);
    if (click) Q_EMIT Click(element);
}

bool PictureButton::event(QEvent* event)
{
    // A box that opens while the button is down takes the release for itself.
    if (event->type() == QEvent::WindowBlocked) Up(false);
    return QWidget::event(event);
}

void PictureButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    Down(ShownElement(), 0);
}

void PictureButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event); // quick clicks are clicks
}

void PictureButton::mouseMoveEvent(QMouseEvent*)
{
    Q_EMIT MouseMove();
}

void PictureButton::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_downKey != 0) return event->ignore();
    Up(rect().contains(event->position().toPoint()));
}

void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (!Presses(event->key())) return QWidget::keyPressEvent(event);
    if (!event->isAutoRepeat()) Down(0, event->key());
}

void PictureButton::keyReleaseEvent(QKeyEvent* event)
{
    if (!Presses(event->key())) return QWidget::keyReleaseEvent(event);
    if (!event->isAutoRepeat() && event->key() == m_downKey) Up(true);
}

void PictureButton::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    if (m_downKey != 0) Up(false);
    update();
}

const QPixmap& PictureButton::Picture(int number)
{
    Element& element = m_elements[std::size_t(number)];
    if (element.picture.isNull() || element.picture.devicePixelRatio() != devicePixelRatioF()) {
        element.picture = QIcon(element.file).pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF());
    }
    return element.picture;
}

void PictureButton::PaintGround(QPainter& painter)
{
    const bool chosen = LooksPressed();
    QColor ground = m_framed ? paper::Paper : Qt::transparent;
    if (underMouse()) ground = paper::Band;
    if (chosen || m_downElement) ground = paper::AccentTint;
    QPen line(Qt::NoPen);
    if (m_framed) line = QPen(paper::Hairline, 1);
    if (chosen || m_downElement) line = QPen(paper::Accent, 1);
    if (hasFocus()) line = QPen(paper::Accent, 2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), Radius, Radius);
}

void PictureButton::paintEvent(QPaintEvent*)
{
    if (!IsAnyVisible()) return;
    QPainter painter(this);
    PaintGround(painter);
    if (!isEnabled()) painter.setOpacity(0.4);
    int textHeight = m_caption.isEmpty() ? 0 : fontMetrics().height() + 4;
    if (height() < PictureSize + textHeight + 4) textHeight = 0;
    const int top = (height() - PictureSize - textHeight) / 2;
    painter.drawPixmap((width() - PictureSize) / 2, top, Picture(ShownElement()));
    if (textHeight == 0) return;
    painter.setPen(LooksPressed() ? paper::Accent : paper::SoftInk);
    painter.drawText(QRect(0, top + PictureSize + 4, width(), textHeight), Qt::AlignHCenter | Qt::AlignTop, m_caption);
}
