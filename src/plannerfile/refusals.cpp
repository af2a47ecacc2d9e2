#include "plannerfile/refusals.h"

#include "plannerfile/plannerstate.h"
#include "platform/desktop/msgbox.h"
#include "settings/messages.h"

namespace {
bool Refuses(bool refused, const QString& text)
{
    if (refused) MsgBox(text, msgbox::Information, messages::HelpWizard);
    return refused;
}
} // namespace

bool RefusesWithoutPlanner()
{
    return Refuses(!HasPlanner(), messages::NoPlannerForEvents);
}

bool RefusesShared(const QString& subject)
{
    return Refuses(g_bDBShared, messages::NotShared.arg(subject));
}
