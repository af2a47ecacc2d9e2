#include "notes/turn.h"

#include "notes/qmtdb.h"
#include "platform/desktop/mousepointer.h"
#include "platform/runtime/errortail.h"
#include "state/lockedday.h"
#include "state/plannerstate.h"

bool Turn::operator()(QLatin1StringView literal, const std::function<void()>& change)
{
    const ErrorTail tail(literal);
    if (g_bDBShared && !m_lockedDay.Commit()) return false;
    const Hourglass hourglass;
    // Even without changes this releases cells whose text would else stay under other dates.
    if (HasPlanner()) tail([&] { m_notes.subUpdateQMTDatabase(); });
    tail(change);
    if (HasPlanner()) tail([&] { m_notes.subSeekQMTDatabase(); });
    return true;
}
