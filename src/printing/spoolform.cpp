#include "printing/spoolform.h"

#include "platform/controls/named.h"
#include "platform/controls/sspanel.h"
#include "platform/desktop/doevents.h"
#include "platform/look/paper.h"

#include <QVBoxLayout>

SpoolForm::SpoolForm(QWidget* owner) : QWidget(owner, Qt::Tool | Qt::WindowStaysOnTopHint)
{
    constexpr QSize Size(280, 64);
    setObjectName(u"SpoolForm"_s);
    setWindowTitle(u"ORL Printing"_s);
    setAttribute(Qt::WA_ShowWithoutActivating); // the caret stays in its cell
    setFixedSize(Size);
    auto* message = Named(new SSPanel, "SSPanel1");
    message->SetPaper(paper::Band);
    message->SetCaptionAlignment(SSPanel::CenterMiddle);
    message->SetCaption(u"Spooling to Printer ..."_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(message);
}
