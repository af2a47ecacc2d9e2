#include "plannerfile/damagewatch.h"

#include "plannerfile/backups.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/damage.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/plannerstate.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>

namespace {
constexpr QLatin1StringView DamageLiteral(" in DamageWatch, Tell");
constexpr int LookAgain = 100; // milliseconds

// Waits until no other routine runs, above all the start.
void Tell(const QString& planner)
{
    if (DoEventsRuns()) {
        QTimer::singleShot(LookAgain, qApp, Guarded(DamageLiteral, [planner] { Tell(planner); }));
        return;
    }
    const QString text = u"The planner '%1' is damaged: not all of its days can be read any more. What "
                         "cannot be read stays empty on the screen and is not written over.\n\nChoose "
                         "Repair Database in the File menu. It brings back what is still there, and "
                         "keeps the damaged planner beside it."_s;
    MsgBox(text.arg(QFileInfo(planner).fileName()), msgbox::Exclamation, messages::HelpWizard, PlaceOfBackups());
}
} // namespace

void WatchForDamage(const QString& planner)
{
    const QString watched = QFileInfo(planner).canonicalFilePath();
    damage::SetListener([watched](const QString& path) {
        if (path != watched || path == g_sDamageTold) return;
        g_sDamageTold = path;
        QTimer::singleShot(0, qApp, Guarded(DamageLiteral, [watched] { Tell(watched); }));
    });
}
