#include "workgroup/servermove.h"

#include "calendar/lockedday.h"
#include "plannerfile/askforplanner.h"
#include "plannerfile/exitsave.h"
#include "plannerfile/knownservers.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"

#include <functional>
#include <optional>

namespace {
constexpr QLatin1StringView MoveLiteral(" in NetworkOptionsForm, btnMove_Click");
constexpr QLatin1StringView SaveLiteral(" in NetworkOptionsForm, btnSaveToFile_Click");

// Under the hourglass. Why it did not come to its end; nothing if it did.
std::optional<QString> Failure(QLatin1StringView literal, const std::function<void()>& work)
{
    std::optional<QString> failure;
    const Hourglass hourglass;
    try {
        work();
    } catch (const RunTimeError& error) {
        LogError(error, literal);
        failure = error.Description;
    }
    return failure;
}

void Tell(const std::optional<QString>& failure, const QString& success)
{
    MsgBox(failure.value_or(success), failure ? msgbox::Exclamation : msgbox::Information, messages::HelpWizard);
}
} // namespace

QString ServerMove::Address() const
{
    return g_dbPlanner.ServerAddress();
}

void ServerMove::MoveToServer(const QString& address)
{
    const QString question = QStringLiteral("%1\n\nwill be moved to\n\n%2\n\nEverybody goes on to open the same file. "
                                            "The planner as it is now stays beside it under a name that ends in .bak.")
                                 .arg(g_sNotesFile, address);
    if (MsgBox(question, msgbox::YesNo + msgbox::Question, messages::HelpWizard) != msgbox::Yes) return;
    if (!m_lockedDay.Commit()) return;
    const QString file = g_sNotesFile;
    // Nobody, this program included, may have it open meanwhile; it is open again before anything is said, since the
    // timers go on behind a message.
    m_exitSave.ClosePlanner();
    const auto failure = Failure(MoveLiteral, [&] {
        DBEngine::MoveToServer(file, address);
        RememberServer(address);
    });
    m_opening.subOpenDBNoDlg(false);
    Tell(failure, QStringLiteral("The planner is on the server now."));
}

void ServerMove::SaveToFile()
{
    if (!m_lockedDay.Commit()) return;
    if (!AskForPlanner(m_dialog, QStringLiteral("Save Planner To File"), QStringLiteral("&Save"))) return;
    const QString path = m_dialog.FileName;
    const auto failure = Failure(SaveLiteral, [&] { g_dbPlanner.SaveToFile(path); });
    Tell(failure, QStringLiteral("All that the planner holds is in\n%1").arg(path));
}
