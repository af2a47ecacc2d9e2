#include "platform/controls/orlcombo.h"

#include "platform/controls/fontfamilies.h"
#include "platform/look/colorvalue.h"
#include "platform/look/namedcolors.h"
#include "platform/look/paper.h"
#include "platform/runtime/runtimeerror.h"

#include <QAbstractItemView>
#include <QAbstractListModel>
#include <QIconEngine>
#include <QPainter>
#include <QProxyStyle>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace {
constexpr QSize SwatchSize{12, 12};
constexpr int TextMargin = 9;
constexpr int ArrowWidth = 24;
constexpr int SwatchGap = 7;
constexpr int LeastHeight = 28;
constexpr int LinePadding = 10; // above and below the text together

constexpr int Sizes[] = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

static_assert(NamedColors.size() == ORLCombo::BlankColor);

// A square of one colour, sharp at every pixel ratio.
class Swatch : public QIconEngine
{
public:
    explicit Swatch(const QColor& color) : m_color(color) {}

    QIconEngine* clone() const override { return new Swatch(m_color); }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        painter->fillRect(rect, paper::SoftInk); // the edge, without which white would be lost
        painter->fillRect(rect.adjusted(1, 1, -1, -1), m_color);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

private:
    QColor m_color;
};

// The installed families, read at the first fetch: start-up does not wait for them.
class FontNames : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : int(m_names.size()); }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole || role == Qt::EditRole ? m_names.value(index.row()) : QVariant();
    }

    bool canFetchMore(const QModelIndex& parent) const override { return !parent.isValid() && !m_fetched; }
    void fetchMore(const QModelIndex&) override
    {
        m_fetched = true;
        QStringList families = FontFamilies();
        if (families.isEmpty()) return;
        beginInsertRows({}, 0, int(families.size()) - 1); // a reset would choose the first entry
        m_names = std::move(families);
        endInsertRows();
    }

private:
    QStringList m_names;
    bool m_fetched = false;
};

// A list that scrolls, with some styles also in place of a menu as long as the screen.
class ListPopup : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};
// Rows high enough to be hit at ease.
class Rows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 6);
    }
};
} // namespace

ORLCombo::ORLCombo(QWidget* parent) : QComboBox(parent)
{
    auto* style = new ListPopup;
    style->setParent(this);
    setStyle(style);
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
    setIconSize(SwatchSize);
    setMaxVisibleItems(18);
    setPlaceholderText(u" "_s); // with one, a box that is filled has no entry chosen yet
    connect(this, &QComboBox::activated, this, &ORLCombo::Choose);
}

void ORLCombo::FillFontNames()
{
    Reserve({.Usual = 18, .Least = 5});
    setModel(new FontNames(this));
}

void ORLCombo::FillFontSizes()
{
    Reserve({.Usual = 3, .Least = 2});
    clear();
    for (const int size : Sizes)
        addItem(QString::number(size));
}

void ORLCombo::FillColors()
{
    Reserve({.Usual = 8, .Least = 0, .Swatch = true});
    clear();
    for (const auto& [name, value] : NamedColors)
        addItem(QIcon(new Swatch(ColorOfValue(value))), name);
    addItem(QString());
}

void ORLCombo::FillTexts(const QStringList& texts)
{
    Reserve({.Usual = 24, .Least = 8});
    m_canBeEmpty = true;
    clear();
    addItems(texts);
}

void ORLCombo::Reserve(Room room)
{
    m_room = room;
    updateGeometry();
}

// By the font alone: to look through the entries would cost start-up time.
QSize ORLCombo::SizeFor(int digits) const
{
    const QFontMetrics metrics = fontMetrics();
    const int swatch = m_room.Swatch ? SwatchSize.width() + SwatchGap : 0;
    return {TextMargin + swatch + digits * metrics.horizontalAdvance(u'0') + ArrowWidth,
            std::max(LeastHeight, metrics.height() + LinePadding)};
}

QSize ORLCombo::sizeHint() const
{
    return SizeFor(m_room.Usual);
}

QSize ORLCombo::minimumSizeHint() const
{
    return SizeFor(m_room.Least);
}

QString ORLCombo::Text() const
{
    return m_unlisted.isEmpty() ? currentText() : m_unlisted;
}

void ORLCombo::ShowText(const QString& text)
{
    m_unlisted = text;
    update();
}

int ORLCombo::ListCount() const
{
    Fetch();
    return count();
}

QString ORLCombo::List(int index) const
{
    Fetch();
    return itemText(index);
}

int ORLCombo::ListIndex() const
{
    return currentIndex();
}

void ORLCombo::SetListIndex(int index)
{
    if (index < -1 || index >= ListCount()) {
        throw RunTimeError{errors::InvalidPropertyValue, u"Invalid property value"_s};
    }
    setCurrentIndex(index);
    ShowText(QString());
}

void ORLCombo::Fetch() const
{
    if (model()->canFetchMore({})) model()->fetchMore({});
}

void ORLCombo::Choose()
{
    ShowText(QString());
    if (!std::exchange(m_clicked, false)) Q_EMIT Click();
    Q_EMIT Change();
}

void ORLCombo::showPopup()
{
    m_clicked = true;
    Q_EMIT Click();
    Fetch();
    DressList();
    QComboBox::showPopup();
}

// Done when the list first opens: making it sooner would cost start-up time.
void ORLCombo::DressList()
{
    if (!m_rows) view()->setItemDelegate(m_rows = new Rows(this));
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view());
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + scrollBar);
}

void ORLCombo::keyPressEvent(QKeyEvent* event)
{
    m_clicked = false; // of a list that was closed without a choice
    Fetch();
    if (m_canBeEmpty && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)) {
        setCurrentIndex(-1);
        return Choose();
    }
    QComboBox::keyPressEvent(event);
}

void ORLCombo::wheelEvent(QWheelEvent* event)
{
    // A wheel that turns over the bar must not reformat the note.
    if (!hasFocus()) return event->ignore();
    m_clicked = false;
    Fetch();
    QComboBox::wheelEvent(event);
}

void ORLCombo::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) painter.setOpacity(0.5);
    const qreal line = hasFocus() ? 2 : 1;
    const QPalette colors = palette(); // of the paper or the window that it stands on
    painter.setPen(QPen(hasFocus() ? paper::Accent : colors.color(QPalette::Mid), line));
    const QColor ground = colors.color(QPalette::Base);
    painter.setBrush(underMouse() && isEnabled() ? ground.lighter(110) : ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2), 4, 4);

    painter.setPen(QPen(colors.color(QPalette::PlaceholderText), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tip(width() - ArrowWidth / 2.0, height() / 2.0 + 2);
    painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});

    QRect text = rect().adjusted(TextMargin, 0, -ArrowWidth, 0);
    const QIcon icon = m_unlisted.isEmpty() ? itemIcon(currentIndex()) : QIcon();
    if (!icon.isNull()) {
        icon.paint(&painter, QRect(QPoint(text.left(), (height() - SwatchSize.height()) / 2), SwatchSize));
        text.setLeft(text.left() + SwatchSize.width() + SwatchGap);
    }
    painter.setPen(colors.color(QPalette::Text));
    painter.drawText(text, Qt::AlignVCenter, fontMetrics().elidedText(Text(), Qt::ElideRight, text.width()));
}
