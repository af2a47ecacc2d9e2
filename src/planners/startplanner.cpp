#include "planners/startplanner.h"

#include "platform/profile/profile.h"
#include "platform/runtime/language.h"
#include "settings/settings.h"
#include "state/plannerstate.h"

namespace {
// Older versions store a length with the blank of its sign.
QString LengthOf(const QString& text)
{
    return text.isEmpty() ? QString() : Str(text.size());
}
} // namespace

bool IsStartPlanner(const QString& path)
{
    return Read(settings::LoadCondition) == 1 && Read(settings::LoadFilePath) == path;
}

void WriteStartPlanner(bool opens)
{
    const QString path = opens ? g_sDBPath : QString();
    const QString title = opens ? g_sDBTitle : QString();
    Write(settings::LoadCondition, opens ? 1 : 0);
    WriteText(settings::LoadPathSize, LengthOf(path));
    WriteText(settings::LoadTitleSize, LengthOf(title));
    Write(settings::LoadFilePath, path);
    Write(settings::LoadFileTitle, title);
}
