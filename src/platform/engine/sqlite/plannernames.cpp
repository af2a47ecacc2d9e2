#include "platform/engine/sqlite/plannernames.h"

#include "platform/engine/sqlite/wholefiles.h"

namespace {
struct Parts
{
    QString stem, extension;
};

Parts PartsOf(const QString& planner)
{
    constexpr QLatin1StringView Extension(".mdb");
    if (!planner.endsWith(Extension, Qt::CaseInsensitive)) return {planner, {}};
    return {planner.chopped(Extension.size()), planner.last(Extension.size())};
}

bool IsFree(const QString& name)
{
    using namespace wholefiles;
    return !Exists(name) && !Exists(JournalOf(name)) && !Exists(LockFileOf(name));
}

QString FirstFree(const QString& stem, const QString& extension)
{
    QString name = stem + extension;
    for (int number = 2; !IsFree(name); ++number)
        name = stem + QString::number(number) + extension;
    return name;
}
} // namespace

QString LockFileOf(const QString& planner)
{
    return PartsOf(planner).stem + ".ldb"_L1;
}

QString FreeNameBeside(const QString& planner, QLatin1StringView word)
{
    const auto [stem, extension] = PartsOf(planner);
    return FirstFree(stem + u'.' + word, extension);
}

QString FreeBackupOf(const QString& planner)
{
    return FirstFree(PartsOf(planner).stem + ".bak"_L1, {});
}
