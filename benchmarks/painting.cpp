#include "painting.h"

#include <QGuiApplication>

BareWindow::BareWindow(QPoint place)
{
    constexpr int Columns = 7, Rows = 5, Above = 100, Below = 40;
    constexpr QMargins Inset(6, 20, 6, 5);
    move(place);
    resize(WindowSize);
    const QSize cell(width() / Columns, (height() - Above - Below) / Rows);
    for (int i = 0; i < BoxCount; ++i) {
        auto* box = new QTextEdit(this);
        const QPoint corner(i % Columns * cell.width(), Above + i / Columns * cell.height());
        box->setGeometry(QRect(corner, cell).marginsRemoved(Inset));
        m_boxes.push_back(box);
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
