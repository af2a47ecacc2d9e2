#include "notes/rescuefiles.h"

#include "notes/unsavednotes.h"
#include "platform/desktop/folders.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/errortail.h"

#include <QDir>
#include <QFileInfo>

namespace {
QString FreeName(const QString& wanted)
{
    const QString extension = u".rtf"_s;
    QString name = wanted + extension;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = u"%1 (%2)%3"_s.arg(wanted).arg(number).arg(extension);
    return name;
}
} // namespace

QString RescueFolder()
{
    return folders::ApplicationDirectory() + u"/unsaved"_s;
}

QString WriteRescueFiles(const UnsavedNotes& notes, QLatin1StringView literal)
{
    QDir().mkpath(RescueFolder());
    QString reason;
    for (const QString& planner : notes.Planners()) {
        const QString base = RescueFolder() + u'/' + QFileInfo(planner).completeBaseName() + u' ';
        const auto days = notes.NotesOf(planner);
        for (auto day = days.cbegin(); day != days.cend(); ++day) {
            const QString name = FreeName(base + QString(day.key()).replace(u'/', u'-'));
            if (day->rtf.isEmpty() || WriteDurably(name, day->rtf, &reason)) continue;
            LogError({errors::PathFileAccess, reason}, literal);
            return reason;
        }
    }
    return {};
}
