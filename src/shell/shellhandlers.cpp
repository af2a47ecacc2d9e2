#include "shell/shellhandlers.h"

#include "plannerfile/plannerstate.h"
#include "platform/desktop/msgbox.h"
#include "shell/aboutform.h"
#include "shell/autoloadform.h"
#include "shell/messages.h"

void ShellHandlers::mnuAutoload_Click()
{
    if (g_sDBPath.isEmpty()) {
        MsgBox(messages::NoPlanner.arg(QStringLiteral("\n\n")), msgbox::Information, messages::HelpWizard);
        return;
    }
    AutoloadForm(m_client.window()).exec();
}

void ShellHandlers::mnuAbout_Click()
{
    AboutForm(m_client.window()).exec();
}
