#include "painting.h"

#include <QGuiApplication>

BareWindow::BareWindow(QPoint place, int boxes)
{
    for (int i = 0; i < boxes; ++i)
        m_boxes.push_back(new QTextEdit(this));
    move(place);
    resize(WindowSize);
    ShowWeek(false);
}

void BareWindow::ShowWeek(bool week)
{
    for (int i = 0; i < int(m_boxes.size()); ++i)
        m_boxes[std::size_t(i)]->setVisible((i >= BoxCount) == week);
}

void BareWindow::resizeEvent(QResizeEvent*)
{
    constexpr int Columns = 7, Rows = 5, Above = 100, Below = 40;
    constexpr QMargins Inset(6, 20, 6, 5);
    const int grid = height() - Above - Below;
    const QSize cell(width() / Columns, grid / Rows), weekCell(cell.width(), grid);
    for (int i = 0; i < int(m_boxes.size()); ++i) {
        const QPoint corner(i % Columns * cell.width(), i < BoxCount ? Above + i / Columns * cell.height() : Above);
        m_boxes[std::size_t(i)]->setGeometry(QRect(corner, i < BoxCount ? cell : weekCell).marginsRemoved(Inset));
    }
}

bool PaintCount::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) ++m_count;
    return QObject::eventFilter(watched, event);
}

void PaintNow()
{
    QGuiApplication::sync();
}
