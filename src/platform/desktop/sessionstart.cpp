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

// A command and a value of the file both have characters that need a backslash.
QString Quoted(QString path)
{
    for (const QChar one : u"\\\"`$"_s)
        path.replace(one, u"\\"_s + one);
    return u'"' + path.replace(u'\\', u"\\\\"_s).replace(u'%', u"%%"_s) + u'"';
}
} // namespace

// Desktops have their own ways to switch an entry off.
bool sessionstart::IsOn()
{
    QFile file(EntryFile());
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray entry = file.readAll();
    return !entry.contains("\nHidden=true") && !entry.contains("\nX-GNOME-Autostart-enabled=false");
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
