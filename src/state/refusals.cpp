#include "state/refusals.h"

#include "platform/desktop/msgbox.h"
#include "state/plannerstate.h"

namespace {
bool Refuses(bool refused, const QString& text)
{
    if (refused) MsgBox(text, msgbox::Information, messages::HelpWizard);
    return refused;
}
} // namespace

bool RefusesWithoutPlanner(const QString& text)
{
    return Refuses(!HasPlanner(), text);
}

bool RefusesShared(const QString& subject)
{
    return Refuses(g_bDBShared, messages::NotShared.arg(subject));
}
