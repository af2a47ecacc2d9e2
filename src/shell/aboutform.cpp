#include "shell/aboutform.h"

#include "platform/controls/named.h"
#include "platform/desktop/centeronscreen.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>

namespace {
QLabel* MakeName()
{
    auto* name = new QLabel(u"Orrelin"_s);
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    font.setBold(true);
    name->setFont(font);
    return name;
}
} // namespace

AboutForm::AboutForm(QWidget* owner) : QDialog(owner)
{
    constexpr int PictureSize = 64;
    setObjectName(u"AboutForm"_s);
    setWindowTitle(u"About Orrelin"_s);
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(u":/icons/orrelin.svg"_s).pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF()));
    auto* version = Named(new QLabel(u"Version "_s + QStringLiteral(ORRELIN_VERSION)), "lblVersion");
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* purpose = new QLabel(u"A planner of days: write straight into the calendar."_s);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 16);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(8);
    grid->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(MakeName(), 0, 1);
    grid->addWidget(version, 1, 1);
    grid->addWidget(purpose, 2, 1);
    grid->addWidget(buttons, 3, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    CenterOnScreen(*this);
}
