#include "shell/shellhandlers.h"

#include "platform/controls/named.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/helpviewer.h"
#include "platform/desktop/msgbox.h"
#include "shell/autoloadform.h"
#include "state/refusals.h"

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

QLabel* MakePicture(const QWidget& window)
{
    auto* picture = new QLabel;
    picture->setPixmap(QIcon(u":/icons/orrelin.svg"_s).pixmap(QSize(64, 64), window.devicePixelRatioF()));
    return picture;
}
} // namespace

void ShellHandlers::mnuAutoload_Click()
{
    if (RefusesWithoutPlanner(messages::NoPlanner.arg(u"\n\n"_s))) return;
    AutoloadForm(m_client.window()).exec();
}

void ShellHandlers::Help(HelpCommand command)
{
    if (ShowHelp(&m_client, folders::Shipped(u"ORL.HLP"_s), command)) return;
    MsgBox(u"Sorry, cannot find ORL.HLP"_s, msgbox::Information, u"Helpfile error!"_s);
}

void ShellHandlers::mnuContents_Click()
{
    Help(HelpCommand::Contents);
}

void ShellHandlers::mnuHelpSearch_Click()
{
    Help(HelpCommand::Search);
}

void ShellHandlers::mnuHelpHow_Click()
{
    Help(HelpCommand::HowToUseHelp);
}

void ShellHandlers::mnuAbout_Click()
{
    QDialog about(m_client.window());
    about.setObjectName(u"AboutForm"_s);
    about.setWindowTitle(u"About Orrelin"_s);
    auto* version = Named(new QLabel(u"Version "_s + QStringLiteral(ORRELIN_VERSION)), "lblVersion");
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &about, &QDialog::accept);
    auto* grid = new QGridLayout(&about);
    grid->setContentsMargins(24, 24, 24, 16);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(8);
    grid->addWidget(MakePicture(about), 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(MakeName(), 0, 1);
    grid->addWidget(version, 1, 1);
    grid->addWidget(new QLabel(u"A planner of days: write straight into the calendar."_s), 2, 1);
    grid->addWidget(buttons, 3, 0, 1, 2);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    CenterOnScreen(about);
    about.exec();
}
