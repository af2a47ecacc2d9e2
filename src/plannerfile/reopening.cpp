#include "plannerfile/reopening.h"

#include "plannerfile/exitsave.h"
#include "plannerfile/opening.h"
#include "plannerfile/plannerstate.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/engine/damage.h"

#include <QFileInfo>

std::optional<RunTimeError> FailureOf(const std::function<void()>& work)
{
    const Hourglass hourglass;
    try {
        work();
        return {};
    } catch (const RunTimeError& error) {
        return error;
    }
}

std::optional<RunTimeError> Reopening::operator()(const std::function<void()>& work)
{
    const QString file = g_sNotesFile;
    m_exitSave.ClosePlanner();
    damage::SetListener(nullptr); // the command says by itself what it meets
    const auto failure = FailureOf(work);
    // After a New that was not to replace a file the path names that file.
    filesystem::Remember(file);
    g_sDBPath = file.toLower();
    g_sDBTitle = QFileInfo(file).fileName().toLower();
    m_opening.subOpenDBNoDlg(!g_bDBShared);
    return failure;
}
