#include "platform/controls/tabstrip.h"

#include "platform/look/paper.h"

#include <QPainter>
#include <QTabBar>

TabStrip::TabStrip(QWidget* parent) : QWidget(parent), m_tabs(new QTabBar(this))
{
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
    const QSignalBlocker silence(m_tabs); // the first one is chosen by nobody
    m_tabs->setTabToolTip(m_tabs->addTab(caption), tip);
}

int TabStrip::SelectedIndex() const
{
    return m_tabs->currentIndex();
}

void TabStrip::Select(int index)
{
    m_tabs->setCurrentIndex(index);
}

QRect TabStrip::ClientRect() const
{
    return rect().adjusted(0, m_tabs->height(), -1, 0);
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
