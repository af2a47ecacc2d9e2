#include "workgroup/servermove.h"

#include "calendar/lockedday.h"
#include "plannerfile/askforplanner.h"
#include "plannerfile/exitsave.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"

#include <functional>

namespace {
constexpr QLatin1StringView MoveLiteral(" in NetworkOptionsForm, btnMove_Click");
constexpr QLatin1StringView SaveLiteral(" in NetworkOptionsForm, btnSaveToFile_Click");

// True if it came to its end; else the person has been told why not.
bool Tell(QLatin1StringView literal, const std::function<void()>& work)
{
    SetMousePointer(mousepointer::Hourglass);
    try {
        work();
    } catch (const RunTimeError& error) {
        SetMousePointer(mousepointer::Default);
        LogError(error, literal);
        MsgBox(error.Description, msgbox::Exclamation, messages::HelpWizard);
        return false;
    }
    SetMousePointer(mousepointer::Default);
    return true;
}
} // namespace

QString ServerMove::Address() const
{
    QString address;
    ErrorTail{MoveLiteral}([&] { address = DBEngine::ServerAddress(g_sNotesFile); });
    return address;
}

void ServerMove::MoveToServer(const QString& address)
{
    const QString question = QStringLiteral("%1\n\nwill be moved to\n\n%2\n\nEverybody goes on to open the same file. "
                                            "The planner as it is now stays beside it under a name that ends in .bak.")
                                 .arg(g_sNotesFile, address);
    if (!m_lockedDay.Commit()) return;
    if (MsgBox(question, msgbox::YesNo + msgbox::Question, messages::HelpWizard) != msgbox::Yes) return;
    const QString file = g_sNotesFile;
    // Nobody, this program included, may have it open meanwhile.
    m_exitSave.ClosePlanner();
    const bool moved = Tell(MoveLiteral, [&] { DBEngine::MoveToServer(file, address); });
    m_opening.subOpenDBNoDlg(false);
    if (moved) MsgBox(QStringLiteral("The planner is on the server now."), msgbox::Information, messages::HelpWizard);
}

void ServerMove::SaveToFile()
{
    if (!m_lockedDay.Commit()) return;
    if (!AskForPlanner(m_dialog, QStringLiteral("Save Planner To File"), QStringLiteral("&Save"))) return;
    const QString path = m_dialog.FileName;
    if (Tell(SaveLiteral, [&] { DBEngine::SaveToFile(g_sNotesFile, path); }))
        MsgBox(QStringLiteral("All that the planner holds is in\n%1").arg(path), msgbox::Information,
               messages::HelpWizard);
}
