#include "platform/desktop/folders.h"

#include "platform/desktop/filesystem.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace {
using Location = QStandardPaths::StandardLocation;

struct Folder
{
    QString Name;  // below the location
    Location Base; // the generic ones, so that the path does not hang on the names of the application object
    QString Path;  // empty until the folder was asked for
};

Folder g_application{QStringLiteral("orrelin"), QStandardPaths::GenericDataLocation, {}};
Folder g_windows{QStringLiteral("orrelin"), QStandardPaths::GenericConfigLocation, {}};
QString g_root; // of a test; empty otherwise

QString Make(const QString& path)
{
    const QFileInfo folder(path);
    QDir().mkpath(folder.path());
    // A diary is nobody else's business.
    QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

const QString& PathOf(Folder& folder, const QString& nameInRoot)
{
    if (folder.Path.isEmpty()) {
        const QString base = QStandardPaths::writableLocation(folder.Base);
        folder.Path = Make(g_root.isEmpty() ? base + u'/' + folder.Name : g_root + u'/' + nameInRoot);
    }
    return folder.Path;
}
} // namespace

QString folders::ApplicationDirectory()
{
    return PathOf(g_application, QStringLiteral("data"));
}

QString folders::WindowsDirectory()
{
    return PathOf(g_windows, QStringLiteral("config"));
}

QString folders::MediaDirectory()
{
    return Make(ApplicationDirectory() + QStringLiteral("/Media"));
}

QString folders::HelpFile(const QString& name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString beside = filesystem::Find(program.filePath(name));
    return beside.isEmpty() ? filesystem::Find(program.filePath(QStringLiteral("../share/orrelin/") + name)) : beside;
}

void folders::SetRootForTests(const QString& root)
{
    g_root = root;
    g_application.Path.clear();
    g_windows.Path.clear();
}
