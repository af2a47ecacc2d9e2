#include "hall/startcard.h"

#include "platform/controls/accessrole.h"
#include "platform/controls/named.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/look/paper.h"

#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int Padding = 8; // of a row, beside its text

QLabel* MakeLabel(const QString& text, const QColor& ink)
{
    auto* label = new QLabel(text);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, ink);
    label->setPalette(palette);
    return label;
}

QLabel* MakeHeading(const QString& text)
{
    QLabel* heading = MakeLabel(text, paper::Ink);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    heading->setFont(font);
    SetAccessibleRole(heading, QAccessible::Heading);
    return heading;
}
} // namespace

// A planner as a link: its name, and its folder in paler ink.
class PlannerRow : public PressedByReturn<QPushButton>
{
public:
    PlannerRow()
    {
        setCursor(Qt::PointingHandCursor);
        setAttribute(Qt::WA_Hover);
    }

    QString Path() const { return toolTip(); }
    void SetPath(const QString& path)
    {
        setToolTip(path);
        setAccessibleName(path);
    }

    QSize sizeHint() const override { return {0, fontMetrics().height() + 10}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

void PlannerRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(paper::Accent, 2) : Qt::NoPen);
    painter.setBrush(underMouse() || isDown() ? paper::AccentTint : QColor(Qt::transparent));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    QRect free = rect().adjusted(Padding, 0, -Padding, 0);
    const auto write = [&](const QString& text, const QColor& ink, int width) {
        const QString shown = fontMetrics().elidedText(text, Qt::ElideMiddle, width);
        painter.setPen(ink);
        painter.drawText(free, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        free.setLeft(free.left() + fontMetrics().horizontalAdvance(shown) + 2 * Padding);
    };
    const QFileInfo file(Path());
    write(file.fileName(), paper::Accent, free.width() * 2 / 3);
    write(file.path(), paper::SoftInk, free.width());
}

StartCard::StartCard(QWidget* client) : QWidget(client), m_lblRecent(MakeLabel(u"Planners used last"_s, paper::SoftInk))
{
    hide();
    setPalette(paper::ButtonOnPaper());
    setAccessibleName(u"No planner is open"_s);
    SetAccessibleRole(this, QAccessible::Grouping);

    auto* column = new QVBoxLayout(this);
    column->setSpacing(0);
    m_head = new QVBoxLayout;
    column->addLayout(m_head);
    m_head->addWidget(MakeHeading(accessibleName()));
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(Padding);
    m_head->addLayout(m_buttons);
    QPushButton* first = AddButton("btnNewPlanner", u"&New Planner"_s);
    connect(first, &QPushButton::clicked, this, &StartCard::New);
    connect(AddButton("btnOpenPlanner", u"&Open Planner"_s), &QPushButton::clicked, this, &StartCard::Open);
    m_buttons->addStretch(1);
    m_head->addWidget(m_lblRecent);
    AddRows(*column);
    setFocusProxy(first);
}

QPushButton* StartCard::AddButton(const char* name, const QString& text)
{
    auto* button = Named(new PressedByReturn<QPushButton>(text), name);
    button->setMinimumSize(button->sizeHint() + QSize(16, 8));
    m_buttons->addWidget(button);
    return button;
}

void StartCard::AddRows(QLayout& column)
{
    for (int i = 0; i < MostPlanners; ++i) {
        auto* row = m_rows.at(std::size_t(i)) = Named(new PlannerRow, "btnPlanner", i);
        column.addWidget(row);
        connect(row, &QPushButton::clicked, this, [this, row] { Q_EMIT OpenPlanner(row->Path()); });
    }
}

void StartCard::SetPlanners(const QStringList& paths)
{
    for (int i = 0; i < MostPlanners; ++i)
        m_rows.at(std::size_t(i))->SetPath(paths.value(i));
}

// The rows reach beyond the head by their padding, so that all texts begin in one line.
void StartCard::SetSpaces(int margin, int gap)
{
    layout()->setContentsMargins(margin, margin, margin, margin);
    m_head->setContentsMargins(Padding, 0, Padding, 0);
    m_lblRecent->setContentsMargins(0, 0, 0, gap / 2);
    m_head->setSpacing(gap);
}

void StartCard::Place(const QRect& area)
{
    constexpr int WidthInLetters = 72, Gap = 8;
    const QRect most = area.adjusted(Gap, Gap, -Gap, -Gap);
    const QWidget* focused = HasFocus() ? window()->focusWidget() : nullptr;
    m_buttons->setDirection(QBoxLayout::LeftToRight);
    for (PlannerRow* row : m_rows)
        row->setVisible(!row->Path().isEmpty());
    m_lblRecent->setHidden(m_rows.front()->isHidden());
    SetSpaces(24, 14);
    if (sizeHint().height() > most.height()) SetSpaces(14, 8);
    if (minimumSizeHint().width() > most.width()) m_buttons->setDirection(QBoxLayout::TopToBottom);
    for (auto row = m_rows.rbegin(); row != m_rows.rend() && sizeHint().height() > most.height(); ++row)
        (*row)->hide();
    m_lblRecent->setHidden(m_rows.front()->isHidden());
    QRect place(0, 0, std::min(fontMetrics().averageCharWidth() * WidthInLetters, most.width()), sizeHint().height());
    place.moveCenter(area.center());
    setGeometry(place);
    raise();
    if (focused && focused->isHidden()) LastShown().setFocus();
}

bool StartCard::HasFocus() const
{
    return isAncestorOf(window()->focusWidget());
}

QWidget& StartCard::LastShown() const
{
    const auto shown =
        std::find_if(m_rows.rbegin(), m_rows.rend(), [](const PlannerRow* row) { return !row->isHidden(); });
    return shown == m_rows.rend() ? *focusProxy() : **shown;
}

void StartCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(paper::Hairline);
    painter.setBrush(paper::Paper);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}
