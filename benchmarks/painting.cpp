#include "painting.h"

#include <QGuiApplication>

BareWindow::BareWindow(QPoint place)
{
    for (int i = 0; i < BoxCount; ++i)
        m_boxes.push_back(new QTextEdit(this));
    move(place);
    resize(WindowSize);
    PlaceBoxes(m_rows);
}

void BareWindow::PlaceBoxes(int rows)
{
    constexpr int Columns = 7, Above = 100, Below = 40;
    constexpr QMargins Inset(6, 20, 6, 5);
    m_rows = rows;
    const QSize cell(width() / Columns, (height() - Above - Below) / rows);
    for (int i = 0; i < BoxCount; ++i) {
        QTextEdit* box = m_boxes[std::size_t(i)];
        const QPoint corner(i % Columns * cell.width(), Above + i / Columns * cell.height());
        box->setGeometry(QRect(corner, cell).marginsRemoved(Inset));
        box->setVisible(i < rows * Columns);
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
