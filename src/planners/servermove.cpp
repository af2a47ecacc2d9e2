#include "planners/servermove.h"

#include "plannerfile/knownservers.h"
#include "planners/askforplanner.h"
#include "planners/opening.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/lockedday.h"
#include "state/plannerstate.h"

#include <optional>

namespace {
constexpr QLatin1StringView MoveLiteral(" in NetworkOptionsForm, btnMove_Click");
constexpr QLatin1StringView SaveLiteral(" in NetworkOptionsForm, btnSaveToFile_Click");

void Tell(const std::optional<RunTimeError>& failure, QLatin1StringView literal, const QString& success)
{
    if (failure && failure->Number == engineerrors::Cancelled) return;
    if (failure) LogError(*failure, literal);
    MsgBox(failure ? failure->Description : success, failure ? msgbox::Exclamation : msgbox::Information,
           messages::HelpWizard);
}
} // namespace

QString ServerMove::Address() const
{
    return g_dbPlanner.ServerAddress();
}

void ServerMove::MoveToServer(const QString& address)
{
    const QString question =
        u"%1\n\nwill be moved to\n\n%2\n\nEverybody goes on to open the same file. "
        "The planner as it is now stays beside it under a name that ends in .bak."_s.arg(g_sNotesFile, address);
    if (MsgBox(question, msgbox::YesNo + msgbox::Question, messages::HelpWizard) != msgbox::Yes) return;
    if (!m_lockedDay.Commit()) return;
    const QString file = g_sNotesFile;
    const auto failure = m_opening.Reopen(u"Move to Server"_s, [&] {
        DBEngine::MoveToServer(file, address);
        RememberServer(address);
    });
    Tell(failure, MoveLiteral, u"The planner is on the server now."_s);
}

void ServerMove::SaveToFile()
{
    if (!m_lockedDay.Commit()) return;
    if (!AskForPlanner(m_dialog, u"Save Planner To File"_s, u"&Save"_s)) return;
    const QString path = m_dialog.FileName;
    const auto failure = FailureOf(u"Save to File"_s, [&] { g_dbPlanner.SaveToFile(path); });
    Tell(failure, SaveLiteral, u"All that the planner holds is in\n%1"_s.arg(path));
}
