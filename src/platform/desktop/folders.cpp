#include "platform/desktop/folders.h"

#include "platform/desktop/filesystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {
struct Folder
{
    QStandardPaths::StandardLocation Base; // generic, so that it does not depend on the application's name
    const char* InRoot;                    // below a test's root
    QString Path;                          // empty until first used
};

Folder g_application{QStandardPaths::GenericDataLocation, "data", {}};
Folder g_windows{QStandardPaths::GenericConfigLocation, "config", {}};
QString g_root; // of a test; empty otherwise

QString Make(const QString& path)
{
    const QFileInfo folder(path);
    QDir().mkpath(folder.path());
    // A diary is nobody else's business.
    QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

const QString& PathOf(Folder& folder)
{
    if (folder.Path.isEmpty()) {
        const QString base = QStandardPaths::writableLocation(folder.Base);
        folder.Path = Make(g_root.isEmpty() ? base + u"/orrelin"_s : g_root + u'/' + QLatin1StringView(folder.InRoot));
    }
    return folder.Path;
}

QString Brought(const QString& name, const QString& installed)
{
    if (!g_root.isEmpty()) return filesystem::Find(g_root + u"/shipped/"_s + name);
    const QDir program(QCoreApplication::applicationDirPath());
    const QString beside = filesystem::Find(program.filePath(name));
    return beside.isEmpty() ? filesystem::Find(program.filePath(installed + name)) : beside;
}

// False if there is nothing to copy.
bool CopyAll(const QDir& from, const QDir& to)
{
    const QStringList files = from.isRelative() ? QStringList() : from.entryList(QDir::Files);
    bool isComplete = !files.isEmpty();
    for (const QString& file : files) {
        QFile::remove(to.filePath(file)); // perhaps incomplete
        isComplete = QFile::copy(from.filePath(file), to.filePath(file)) && isComplete;
    }
    return isComplete;
}

// A folder of the application directory that is filled from the program's files. It gets its name when complete, since
// an incomplete one would never be filled. Until then the unfinished one is used.
QString Stocked(const QString& name)
{
    const QString path = folders::ApplicationDirectory() + u'/' + name;
    if (QFileInfo::exists(path)) return path;
    const QString unfinished = Make(path + u".new"_s);
    const bool isComplete = CopyAll(QDir(folders::Shipped(name)), QDir(unfinished));
    return isComplete && QDir().rename(unfinished, path) ? path : unfinished;
}
} // namespace

QString folders::ApplicationDirectory()
{
    return PathOf(g_application);
}

QString folders::WindowsDirectory()
{
    return PathOf(g_windows);
}

QString folders::MediaDirectory()
{
    return Stocked(u"Media"_s);
}

QString folders::IconsDirectory()
{
    return Stocked(u"icons"_s);
}

QString folders::Shipped(const QString& name)
{
    return Brought(name, u"../share/orrelin/"_s);
}

QString folders::ShippedProgram(const QString& name)
{
    return Brought(name, u"../lib/orrelin/"_s);
}

void folders::SetRootForTests(const QString& root)
{
    g_root = root;
    g_application.Path.clear();
    g_windows.Path.clear();
    filesystem::ForgetAll();
}
