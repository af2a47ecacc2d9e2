#include "notes/rescuefiles.h"

#include "notes/unsavednotes.h"
#include "platform/desktop/folders.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/errortail.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {
QString NameOf(const QString& planner, const QString& key)
{
    return RescueFolder() + u'/' + QFileInfo(planner).completeBaseName() + u' ' + QString(key).replace(u'/', u'-');
}

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

QFileInfoList RescueFilesOf(const QString& planner, const QString& key)
{
    static const QRegularExpression ending(u"^( \\(\\d+\\))?\\.rtf$"_s);
    const QString begin = NameOf(planner, key);
    QFileInfoList files = QDir(RescueFolder()).entryInfoList(QDir::Files | QDir::NoSymLinks);
    files.removeIf([&](const QFileInfo& file) {
        return !file.filePath().startsWith(begin) || !ending.match(file.filePath().mid(begin.size())).hasMatch();
    });
    return files;
}

QString WriteRescueFiles(const UnsavedNotes& notes, QLatin1StringView literal)
{
    QDir().mkpath(RescueFolder());
    QString reason;
    for (const QString& planner : notes.Planners()) {
        const auto days = notes.NotesOf(planner);
        for (auto day = days.cbegin(); day != days.cend(); ++day) {
            const QString name = FreeName(NameOf(planner, day.key()));
            if (day->rtf.isEmpty() || WriteDurably(name, day->rtf, &reason)) continue;
            LogError({errors::PathFileAccess, reason}, literal);
            return reason;
        }
    }
    return {};
}
