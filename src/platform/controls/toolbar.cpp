#include "platform/controls/toolbar.h"

#include "platform/controls/resources.h"
#include "platform/look/paper.h"
#include "platform/look/paperstyle.h"
#include "platform/runtime/runtimeerror.h"

#include <QApplication>
#include <QBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionToolButton>

#include <ranges>

namespace {
constexpr QSize ButtonSize{32, 30};
constexpr QSize IconSize{20, 20};
constexpr QMargins Margins{8, 5, 8, 5};
constexpr int Spacing = 2;
constexpr int SeparatorGap = 5; // on each side of the line
constexpr int ControlGap = 4;

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
} // namespace

ToolbarButton::ToolbarButton(const QSize& size, const QSize& picture, const QString& icon, const QString& tip,
                             QWidget* parent)
    : PressedByReturn(parent)
{
    setStyle(&PaperStyle::Shared());
    setFixedSize(size);
    setIconSize(picture);
    setIcon(PictureIcon(icon));
    setToolTip(tip);
    setAccessibleName(tip);
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
}

void ToolbarButton::SetValue(int value)
{
    // Screen readers announce the value of checkable buttons, so only those that ever had one are.
    if (value != 0) setCheckable(true);
    setChecked(value != 0);
}

void ToolbarButton::SetMixedState(bool mixed)
{
    m_mixed = mixed;
    update();
}

void ToolbarButton::initStyleOption(QStyleOptionToolButton* option) const
{
    PressedByReturn::initStyleOption(option);
    option->state.setFlag(QStyle::State_NoChange, m_mixed);
}

Toolbar::Toolbar(QWidget* parent) : QWidget(parent), m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(Margins);
    m_row->setSpacing(Spacing);
    m_row->addStretch();
    m_row->setSizeConstraint(QLayout::SetMinimumSize); // a narrow window cuts the bar off instead of stacking buttons
}

void Toolbar::Add(QWidget* item)
{
    m_row->insertWidget(m_row->count() - 1, item, 0, Qt::AlignVCenter); // before the stretch
    Fit();
}

void Toolbar::AddButton(const QString& key, const QString& tip, const QString& icon)
{
    auto* button = new ToolbarButton(ButtonSize, IconSize, icon, tip, this);
    button->setObjectName(key);
    connect(button, &ToolbarButton::clicked, this, [this, key] { Q_EMIT ButtonClick(key); });
    m_buttons[key] = button;
    Add(button);
}

void Toolbar::AddSeparator()
{
    Add(new Separator(this));
}

void Toolbar::AddControl(QWidget* control)
{
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
    control->setMinimumSize(control->sizeHint());
    m_row->insertSpacing(m_row->count() - 1, ControlGap);
    m_controls.push_back(control);
    Add(control);
}

ToolbarButton& Toolbar::Buttons(const QString& key) const
{
    const auto found = m_buttons.find(key);
    if (found == m_buttons.end()) throw RunTimeError{ElementNotFound, u"Element not found"_s};
    return *found->second;
}

void Toolbar::SetRoom(int width)
{
    m_room = width;
    Fit();
}

// Sets minimum sizes, since the toolkit ignores the size hint of a control with fixed size.
void Toolbar::Fit()
{
    int missing = m_row->minimumSize().width() - m_room; // with each control as wide as it wants
    for (const QWidget* control : m_controls)
        missing += control->sizeHint().width() - control->minimumWidth();
    for (QWidget* control : m_controls | std::views::reverse) {
        const QSize wanted = control->sizeHint();
        const int given = std::clamp(missing, 0, wanted.width() - control->minimumSizeHint().width());
        missing -= given;
        control->setMinimumSize(wanted.width() - given, wanted.height());
    }
    setFixedHeight(m_row->minimumSize().height());
    m_row->activate();
}

// A control's size hint has changed.
bool Toolbar::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) Fit();
    return QWidget::event(event);
}

void Toolbar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), paper::LightBand);
    // The bar is below the menu or at the window's lower edge.
    painter.fillRect(0, 0, width(), 1, paper::Hairline);
    painter.fillRect(0, height() - 1, width(), 1, paper::Hairline);
}

void Toolbar::mousePressEvent(QMouseEvent* event)
{
    lower(); // keeps controls over the placeholders on top
    const QPoint point = event->position().toPoint();
    const bool onButton =
        qobject_cast<ToolbarButton*>(childAt(point)) != nullptr; // disabled buttons let presses through
    if (event->button() == Qt::LeftButton && !onButton) m_pressed = point;
}

void Toolbar::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed) return;
    if (!(event->buttons() & Qt::LeftButton)) return EndDrag(); // the release was not delivered
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
    qApp->installEventFilter(this); // Esc goes to the focus widget
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
    // The release is not delivered once a box has opened or the bar is hidden.
    const bool lost = type == QEvent::WindowBlocked || type == QEvent::WindowDeactivate;
    if (lost || (type == QEvent::Hide && object == this)) EndDrag();
    return false;
}
