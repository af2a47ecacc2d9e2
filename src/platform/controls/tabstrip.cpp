#include "platform/controls/tabstrip.h"

#include "platform/look/paper.h"

#include <QPainter>
#include <QTabBar>

namespace {
// Two leaves of paper; the front one is lighter.
QString TabStyle()
{
    const QString style =
        u"QTabBar::tab { background: %1; color: %2; border: 1px solid %3; border-radius: 4px; padding: 4px 5px; "
        "margin: 4px 1px 6px 1px; } QTabBar::tab:selected { background: %4; color: %5; } "
        "QTabBar:focus::tab:selected { border-color: %6; }"_s;
    return style.arg(paper::Band.name(), paper::SoftInk.name(), paper::Hairline.name(), paper::Paper.name(),
                     paper::Ink.name(), paper::Accent.name());
}
} // namespace

TabStrip::TabStrip(QWidget* parent) : QWidget(parent), m_tabs(new QTabBar(this))
{
    m_tabs->setStyleSheet(TabStyle());
    m_tabs->setExpanding(true);
    m_tabs->setDrawBase(false);
    m_tabs->setUsesScrollButtons(false);
    m_tabs->setElideMode(Qt::ElideNone);
    m_tabs->setFocusPolicy(Qt::TabFocus); // a click leaves the caret in its cell
    setFocusProxy(m_tabs);
    connect(m_tabs, &QTabBar::currentChanged, this, &TabStrip::Click);
}

void TabStrip::AddTab(const QString& caption, const QString& tip)
{
    const QSignalBlocker silence(m_tabs); // adding the first tab selects it
    m_tabs->setTabToolTip(m_tabs->addTab(caption), tip);
}

int TabStrip::SelectedIndex() const
{
    return m_tabs->currentIndex();
}

QRect TabStrip::ClientRect() const
{
    return rect().adjusted(0, m_tabs->sizeHint().height(), -1, 0);
}

QSize TabStrip::sizeHint() const
{
    return m_tabs->sizeHint();
}

void TabStrip::resizeEvent(QResizeEvent*)
{
    m_tabs->setGeometry(0, 0, width() - 1, m_tabs->sizeHint().height());
}

void TabStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), paper::MemoPaper);
    painter.fillRect(width() - 1, 0, 1, height(), paper::Hairline);
}
