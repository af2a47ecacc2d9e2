#include "platform/controls/toolbar.h"

#include "platform/look/paper.h"
#include "platform/runtime/runtimeerror.h"

#include <QApplication>
#include <QBoxLayout>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int ElementNotFound = 35601;
constexpr QSize ButtonSize{32, 30};
constexpr QSize PictureSize{20, 20};
constexpr QMargins Margins{8, 5, 8, 5};
constexpr int Spacing = 2;
constexpr int SeparatorGap = 5; // on each side of its line
constexpr int PlaceholderGap = 4;
constexpr qreal Radius = 4;

class Separator : public QWidget
{
public:
    explicit Separator(QWidget* parent) : QWidget(parent) { setFixedSize(2 * SeparatorGap + 1, ButtonSize.height()); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(SeparatorGap, 2, 1, height() - 4, paper::Hairline);
    }
};

QBoxLayout* Row(const QWidget& bar)
{
    return static_cast<QBoxLayout*>(bar.layout());
}
} // namespace

ToolbarButton::ToolbarButton(QWidget* parent) : ToolbarButton(ButtonSize, PictureSize, parent) {}

ToolbarButton::ToolbarButton(const QSize& size, const QSize& picture, QWidget* parent) : PressedByReturn(parent)
{
    setIconSize(picture);
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
    setFixedSize(size);
}

void ToolbarButton::SetValue(int value)
{
    m_value = value != 0 ? 1 : 0;
    // Screen readers tell of the value, but only of buttons that ever had one.
    if (m_value == 1) setCheckable(true);
    setChecked(m_value == 1);
    update();
}

void ToolbarButton::SetMixedState(bool mixed)
{
    m_mixed = mixed;
    update();
}

const QPixmap& ToolbarButton::Picture()
{
    if (m_picture.isNull() || m_picture.devicePixelRatio() != devicePixelRatioF()) {
        m_picture = QIcon(m_file).pixmap(iconSize(), devicePixelRatioF());
    }
    return m_picture;
}

void ToolbarButton::PaintGround(QPainter& painter) const
{
    const bool touched = isEnabled() && underMouse();
    QColor ground = touched ? paper::Band : QColor(Qt::transparent);
    if (m_value == 1) ground = touched ? paper::AccentTint.darker(105) : paper::AccentTint;
    if (m_mixed) ground = paper::MixedGround;
    if (isDown()) ground = ground.alpha() == 0 ? paper::Hairline : ground.darker(110);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(area, Radius, Radius);
    if (m_mixed) {
        painter.setBrush(QBrush(paper::MixedDots, Qt::Dense6Pattern));
        painter.drawRoundedRect(area, Radius, Radius);
    }
    if (hasFocus()) {
        painter.setPen(QPen(paper::Accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    }
}

void ToolbarButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGround(painter);
    if (!isEnabled()) painter.setOpacity(0.35);
    const QPixmap& picture = Picture();
    painter.drawPixmap((width() - iconSize().width()) / 2, (height() - iconSize().height()) / 2, picture);
}

Toolbar::Toolbar(QWidget* parent) : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Margins);
    row->setSpacing(Spacing);
    row->addStretch();
    row->setSizeConstraint(QLayout::SetMinimumSize); // a narrow window cuts the bar off, it never piles up its buttons
    setFixedHeight(Margins.top() + ButtonSize.height() + Margins.bottom());
}

void Toolbar::AddButton(const QString& key, const QString& tip, const QString& icon)
{
    auto* button = new ToolbarButton(this);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->SetPicture(icon);
    connect(button, &ToolbarButton::clicked, this, [this, key] { Q_EMIT ButtonClick(key); });
    Add(key, button);
}

void Toolbar::AddSeparator()
{
    Row(*this)->insertWidget(Row(*this)->count() - 1, new Separator(this));
}

void Toolbar::AddPlaceholder(const QString& key)
{
    auto* placeholder = new QWidget(this);
    placeholder->setFixedHeight(ButtonSize.height());
    Row(*this)->insertSpacing(Row(*this)->count() - 1, PlaceholderGap);
    Add(key, placeholder);
}

void Toolbar::Add(const QString& key, QWidget* item)
{
    item->setObjectName(key);
    Row(*this)->insertWidget(Row(*this)->count() - 1, item); // before the stretch
    m_items[key] = item;
}

QWidget& Toolbar::Item(const QString& key) const
{
    const auto found = m_items.find(key);
    if (found == m_items.end()) throw RunTimeError{ElementNotFound, u"Element not found"_s};
    return *found->second;
}

ToolbarButton& Toolbar::Buttons(const QString& key) const
{
    auto* button = qobject_cast<ToolbarButton*>(&Item(key));
    if (!button) throw RunTimeError{ElementNotFound, u"Element not found"_s};
    return *button;
}

void Toolbar::Lay(const QString& key, QWidget* control)
{
    m_laid.push_back({&Item(key), control});
    Fit();
}

void Toolbar::SetRoom(int width)
{
    m_room = width;
    Fit();
}

// By how much the bar would be too wide if each control had what it wants.
int Toolbar::Missing() const
{
    int width = layout()->minimumSize().width();
    for (const auto& [place, control] : m_laid)
        width += control->sizeHint().width() - place->minimumWidth();
    return std::max(0, width - m_room);
}

void Toolbar::Fit()
{
    int missing = Missing();
    for (auto laid = m_laid.rbegin(); laid != m_laid.rend(); ++laid) {
        const QSize wanted = laid->Control->sizeHint();
        const int given = std::min(missing, wanted.width() - laid->Control->minimumSizeHint().width());
        missing -= given;
        laid->Place->setFixedSize(wanted.width() - given, std::max(wanted.height(), ButtonSize.height()));
    }
    setFixedHeight(layout()->minimumSize().height());
    layout()->activate();
    for (const auto& [place, control] : m_laid) {
        QRect area(QPoint(), QSize(place->width(), control->sizeHint().height()));
        area.moveCenter(place->geometry().center());
        control->setGeometry(area);
    }
}

// What a control wants has changed, or a placeholder has.
bool Toolbar::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) Fit();
    return QWidget::event(event);
}

QSize Toolbar::sizeHint() const
{
    return layout()->sizeHint();
}

void Toolbar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), paper::LightBand);
    // Both edges: the bar stands below the menu or above the window's lower edge.
    painter.fillRect(0, 0, width(), 1, paper::Hairline);
    painter.fillRect(0, height() - 1, width(), 1, paper::Hairline);
}

void Toolbar::mousePressEvent(QMouseEvent* event)
{
    lower(); // what is laid over the placeholders stays on top
    const QPoint point = event->position().toPoint();
    const bool onButton =
        qobject_cast<ToolbarButton*>(childAt(point)) != nullptr; // a disabled one lets presses through
    if (event->button() == Qt::LeftButton && !onButton) m_pressed = point;
}

void Toolbar::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) return;
    if (!(event->buttons() & Qt::LeftButton)) return EndDrag(); // the release went elsewhere
    const QPoint way = event->position().toPoint() - *m_pressed;
    if (!m_outline && way.manhattanLength() >= QApplication::startDragDistance()) BeginDrag();
    if (m_outline) m_outline->move(pos() + way);
}

void Toolbar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const bool dragged = m_outline;
    EndDrag();
    if (dragged) Q_EMIT Dropped(mapToParent(event->position().toPoint()));
}

void Toolbar::BeginDrag()
{
    m_outline = new QRubberBand(QRubberBand::Rectangle, parentWidget());
    m_outline->resize(size());
    m_outline->show();
    setCursor(Qt::SizeAllCursor);
    qApp->installEventFilter(this); // Esc goes to whatever has the focus
}

void Toolbar::EndDrag()
{
    m_pressed.reset();
    if (!m_outline) return;
    delete m_outline;
    unsetCursor();
    qApp->removeEventFilter(this);
}

bool Toolbar::eventFilter(QObject* object, QEvent* event)
{
    const auto type = event->type();
    const bool key = type == QEvent::ShortcutOverride || type == QEvent::KeyPress;
    if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        if (type == QEvent::KeyPress) EndDrag();
        return true;
    }
    // The release never comes once a box has opened or the bar is gone.
    const bool lost = type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate;
    if (lost || (type == QEvent::Hide && object == this)) EndDrag();
    return false;
}
