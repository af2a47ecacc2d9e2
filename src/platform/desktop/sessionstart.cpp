#include "platform/desktop/sessionstart.h"

#include "platform/desktop/desktopcalls.h"
#include "platform/runtime/durablefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace {
QString EntryFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + u"/autostart/"_s + DesktopCalls::Name() +
           u".desktop"_s;
}

// In an entry, these characters of a path have a meaning.
QString Quoted(const QString& path)
{
    QString quoted;
    for (const QChar one : path) {
        if (u"\"`$\\"_s.contains(one)) quoted += u"\\\\"_s;
        quoted += one == u'%' ? u"%%"_s : QString(one);
    }
    return u'"' + quoted + u'"';
}
} // namespace

bool sessionstart::IsOn()
{
    return QFile::exists(EntryFile());
}

bool sessionstart::Set(bool on, const QString& words)
{
    const QString file = EntryFile();
    if (!on) return !QFile::exists(file) || QFile::remove(file);
    const QString entry =
        u"[Desktop Entry]\nType=Application\nName=Orrelin\nComment=Rings your alarms\nIcon=%1\nExec=%2 "
        "%3\nTerminal=false\n"_s.arg(DesktopCalls::Name(), Quoted(QCoreApplication::applicationFilePath()), words);
    return QDir().mkpath(QFileInfo(file).path()) && WriteDurably(file, entry.toUtf8());
}
