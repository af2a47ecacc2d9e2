#include "shell/shellhandlers.h"

#include "plannerfile/refusals.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/helpviewer.h"
#include "platform/desktop/msgbox.h"
#include "shell/aboutform.h"
#include "shell/autoloadform.h"

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
    AboutForm(m_client.window()).exec();
}
