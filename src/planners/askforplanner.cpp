#include "planners/askforplanner.h"

#include "platform/desktop/commondialog.h"
#include "platform/runtime/runtimeerror.h"
#include "settings/messages.h"

bool AskForPlanner(CommonDialog& dialog, const QString& title, const QString& acceptText)
{
    dialog.Flags = CommonDialog::HideReadOnly;
    dialog.DialogTitle = title;
    dialog.AcceptText = acceptText;
    dialog.InitDir.clear();
    dialog.Filter = messages::PlannerFilter;
    dialog.FilterIndex = 1;
    dialog.CancelError = true;
    try {
        return dialog.Action(1);
    } catch (const RunTimeError& error) {
        if (error.Number != errors::DialogCancelled) throw;
        return false;
    }
}
