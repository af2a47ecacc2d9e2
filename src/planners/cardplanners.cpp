#include "planners/cardplanners.h"

#include "platform/profile/profile.h"
#include "settings/settings.h"

using settings::OnCard;

namespace {
void WriteAll(const QStringList& paths)
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    for (int place = 0; place < int(std::size(OnCard)); ++place)
        Write(OnCard[place], paths.value(place));
}
} // namespace

// Until the card has a list of its own it shows the recent one.
QStringList CardPlanners()
{
    QStringList paths;
    for (int place = 0; place < int(std::size(OnCard)); ++place)
        paths +=
            place < settings::RecentPlanners ? Read(OnCard[place], Read(settings::MRU[place])) : Read(OnCard[place]);
    paths.removeAll(QString());
    return paths;
}

void PutOnCard(const QString& path)
{
    QStringList paths = CardPlanners();
    if (!paths.isEmpty() && paths.front() == path) return;
    paths.removeOne(path);
    paths.prepend(path);
    WriteAll(paths);
}

void TakeOffCard(const QString& path)
{
    QStringList paths = CardPlanners();
    paths.removeOne(path);
    WriteAll(paths);
}
