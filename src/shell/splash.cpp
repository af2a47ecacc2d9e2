#include "shell/splash.h"

#include "platform/controls/named.h"
#include "platform/controls/sspanel.h"
#include "platform/look/paper.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <cmath>

namespace {
constexpr QSize SplashSize(420, 220);
constexpr int UsualDpi = 96;

// Draws a month's leaf. Loading a picture file would delay the splash screen.
void PaintLeaf(QPainter& painter, const QRectF& leaf)
{
    painter.setPen(QPen(paper::Hairline, 1));
    painter.setBrush(paper::Paper);
    painter.drawRoundedRect(leaf.adjusted(0.5, 0.5, -0.5, -0.5), 6, 6); // half a pixel in, so that the line is sharp
    const QRectF band(leaf.left(), leaf.top(), leaf.width(), std::floor(leaf.height() / 5));
    painter.setBrush(paper::Accent);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(band, 6, 6);
    painter.drawRect(band.adjusted(0, 6, 0, 0));
    constexpr int Columns = 7, Rows = 5, Today = 17;
    const qreal step = leaf.width() / (Columns + 1);
    for (int day = 0; day < Columns * Rows; ++day) {
        const QPointF at(leaf.left() + step * (day % Columns + 1), band.bottom() + step * (day / Columns + 0.8));
        painter.setBrush(day == Today ? paper::TodayFrame : paper::Hairline);
        painter.drawEllipse(at, 3.2, 3.2);
    }
}

void Center(QWidget& splash)
{
    splash.move(QGuiApplication::primaryScreen()->geometry().center() - splash.rect().center());
}
} // namespace

StartUpForm::StartUpForm() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setObjectName(u"StartUpForm"_s);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(SplashSize * logicalDpiY() / UsualDpi); // scales with the desktop's text
    Center(*this);
}

void StartUpForm::SetPanel3D1(const QString& line)
{
    m_panel3D1 = line;
    update();
}

void StartUpForm::SetLabel1(const QString& progress)
{
    m_label1 = progress;
    repaint(); // the start processes no events
}

void StartUpForm::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), paper::Band);
    painter.setPen(QPen(paper::Hairline, 2));
    painter.drawRect(rect());
    painter.scale(logicalDpiY() / qreal(UsualDpi), logicalDpiY() / qreal(UsualDpi));
    PaintLeaf(painter, QRectF(32, 48, 124, 116));
    QFont font = this->font();
    font.setPixelSize(35);
    painter.setFont(font);
    painter.setPen(paper::Ink);
    painter.drawText(QRect(184, 56, 220, 48), Qt::AlignLeft | Qt::AlignVCenter, u"Orrelin"_s);
    font.setPixelSize(13);
    painter.setFont(font);
    painter.setPen(paper::SoftInk);
    painter.drawText(QRect(186, 104, 220, 24), Qt::AlignLeft | Qt::AlignVCenter, m_panel3D1);
    painter.drawText(QRect(186, 140, 220, 24), Qt::AlignLeft | Qt::AlignVCenter, m_label1);
}

ExitForm::ExitForm() : QWidget(nullptr, Qt::SplashScreen)
{
    setObjectName(u"ExitForm"_s);
    setWindowTitle(u"Orrelin"_s);
    auto* message = Named(new SSPanel(this), "SSPanel2");
    message->SetPaper(paper::Band);
    message->SetEdges(Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge);
    message->SetCaptionAlignment(SSPanel::CenterMiddle);
    message->SetCaption(u"Please wait while Orrelin Shuts Down"_s);
    constexpr int Least = 360, Margins = 96;
    const QFontMetrics metrics(message->CaptionFont());
    setFixedSize(qMax(Least, metrics.horizontalAdvance(message->Caption()) + Margins), metrics.height() + Margins);
    message->setGeometry(rect());
    Center(*this);
}
