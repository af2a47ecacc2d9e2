#include "platform/controls/orlcombo.h"

#include "platform/controls/familylist.h"
#include "platform/look/colorvalue.h"
#include "platform/look/namedcolors.h"
#include "platform/look/paper.h"
#include "platform/look/paperstyle.h"
#include "platform/runtime/runtimeerror.h"

#include <QAbstractItemView>
#include <QIconEngine>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace {
constexpr QSize ColorSize{12, 12};

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

private:
    QColor m_color;
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

// Done when a list first opens: making it sooner would cost start-up time.
void Dress(QAbstractItemView& list)
{
    if (!dynamic_cast<Rows*>(list.itemDelegate())) list.setItemDelegate(new Rows(&list));
    list.setMinimumWidth(list.sizeHintForColumn(0) + list.style()->pixelMetric(QStyle::PM_ScrollBarExtent));
}
} // namespace

ORLCombo::ORLCombo(QWidget* parent) : QComboBox(parent)
{
    setStyle(&PaperStyle::Shared());
    setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setAttribute(Qt::WA_Hover);
    setIconSize(ColorSize);
    setMaxVisibleItems(18);
    setPlaceholderText(u" "_s); // with a placeholder no entry is chosen at first
    connect(this, &QComboBox::activated, this, &ORLCombo::Choose);
}

void ORLCombo::FillFontNames()
{
    Reserve(18, 5);
    m_isPutOff = true;
}

void ORLCombo::FillFontSizes()
{
    Reserve(3, 2);
    for (const int size : Sizes)
        addItem(QString::number(size));
}

void ORLCombo::FillColors()
{
    Reserve(8, 0);
    for (const auto& [name, value] : NamedColors)
        addItem(QIcon(new Swatch(ColorOfValue(value))), name);
    addItem(QString());
}

void ORLCombo::FillTexts(const QStringList& texts)
{
    Reserve(24, 8);
    m_canBeEmpty = true;
    clear();
    addItems(texts);
}

void ORLCombo::Reserve(int usual, int least)
{
    m_usual = usual;
    m_least = least;
    updateGeometry();
}

// By the font only: measuring the entries would slow the start down.
QSize ORLCombo::SizeFor(int digits) const
{
    const QFontMetrics metrics = fontMetrics();
    const int swatch = itemIcon(0).isNull() ? 0 : iconSize().width() + PaperStyle::PictureGap;
    const QSize contents(swatch + digits * metrics.horizontalAdvance(u'0'), metrics.height());
    return style()->sizeFromContents(QStyle::CT_ComboBox, nullptr, contents, this);
}

QString ORLCombo::Text() const
{
    return m_unlisted.isEmpty() ? currentText() : m_unlisted;
}

void ORLCombo::ShowText(const QString& text)
{
    m_unlisted = text;
    setPlaceholderText(text.isEmpty() ? u" "_s : text);
    update();
}

void ORLCombo::ShowTextOrEntry(const QString& text)
{
    const int index = text.isEmpty() ? -1 : findText(text);
    index >= 0 ? SetListIndex(index) : ShowText(text);
}

void ORLCombo::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    if (m_unlisted.isEmpty()) return;
    option->currentText = m_unlisted;
    option->currentIcon = {};
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

void ORLCombo::SetListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        throw RunTimeError{errors::InvalidPropertyValue, u"Invalid property value"_s};
    setCurrentIndex(index);
    ShowText({});
}

void ORLCombo::Fetch() const
{
    if (!m_isPutOff || count() > 0) return;
    const QStringList names = FontFamilies();
    model()->insertRows(0, int(names.size()));
    for (int row = 0; row < names.size(); ++row)
        model()->setData(model()->index(row, 0), names[row]);
}

void ORLCombo::Choose()
{
    ShowText({});
    if (!std::exchange(m_clicked, false)) Q_EMIT Click();
    Q_EMIT Change();
}

void ORLCombo::showPopup()
{
    m_clicked = true;
    Q_EMIT Click();
    Fetch();
    if (!m_unlisted.isEmpty()) ShowTextOrEntry(m_unlisted);
    Dress(*view());
    QComboBox::showPopup();
}

void ORLCombo::keyPressEvent(QKeyEvent* event)
{
    m_clicked = false; // the list was closed without a choice
    Fetch();
    if (m_canBeEmpty && (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)) {
        setCurrentIndex(-1);
        return Choose();
    }
    QComboBox::keyPressEvent(event);
}

void ORLCombo::wheelEvent(QWheelEvent* event)
{
    // Turning the wheel over the bar must not reformat the note.
    if (!hasFocus()) return event->ignore();
    m_clicked = false;
    Fetch();
    QComboBox::wheelEvent(event);
}
