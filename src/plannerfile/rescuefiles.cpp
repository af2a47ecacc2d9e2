#include "plannerfile/rescuefiles.h"

#include "plannerfile/unsavednotes.h"
#include "platform/desktop/folders.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/runtimeerror.h"

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

void WriteNote(const QString& name, const QByteArray& rtf)
{
    QString reason;
    if (!WriteDurably(name, rtf, &reason)) throw RunTimeError{errors::PathFileAccess, reason};
}
} // namespace

QString RescueFolder()
{
    return folders::ApplicationDirectory() + u"/unsaved"_s;
}

void WriteRescueFiles(const UnsavedNotes& notes)
{
    QDir().mkpath(RescueFolder());
    for (const QString& planner : notes.Planners()) {
        const QString base = RescueFolder() + u'/' + QFileInfo(planner).completeBaseName() + u' ';
        const auto days = notes.NotesOf(planner);
        for (auto day = days.cbegin(); day != days.cend(); ++day) {
            if (!day->rtf.isEmpty()) WriteNote(FreeName(base + QString(day.key()).replace(u'/', u'-')), day->rtf);
        }
    }
}
