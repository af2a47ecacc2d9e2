#include "shell/exitform.h"

#include "platform/controls/named.h"
#include "platform/controls/sspanel.h"
#include "platform/desktop/doevents.h"
#include "platform/look/paper.h"

#include <QGuiApplication>
#include <QScreen>

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
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.center() - rect().center());
}
