// Fakes of the commands that set a desktop's picture, first on the path. They keep settings in small files and record
// their calls.
#pragma once

#include "files.h"

#include <QDir>
#include <QTemporaryDir>

class FakeDesktop
{
public:
    explicit FakeDesktop(const char* name) : m_path(qgetenv("PATH"))
    {
        qputenv("XDG_CURRENT_DESKTOP", name);
        qputenv("PATH", m_folder.path().toUtf8() + ':' + m_path);
        qputenv("FAKE_DESKTOP", m_folder.path().toUtf8());
        const QByteArray head = "#!/bin/sh\nprintf '%s\\n' \"$(basename \"$0\") $*\" >> \"$FAKE_DESKTOP/calls\"\n"
                                "[ ! -e \"$FAKE_DESKTOP/refuses\" ] || exit 1\n"
                                "[ ! -e \"$FAKE_DESKTOP/hangs\" ] || exec sleep 1000\n";
        Command("gsettings",
                head + "case $1 in get) cat \"$FAKE_DESKTOP/$2 $3\" ;;\n"
                       "set) [ -e \"$FAKE_DESKTOP/forgets\" ] || printf '%s\\n' \"$4\" > \"$FAKE_DESKTOP/$2 $3\" ;;"
                       "esac\n");
        Command("xfconf-query", head + "shift 2; mkdir -p \"$FAKE_DESKTOP/xfce\"; cd \"$FAKE_DESKTOP/xfce\"\n"
                                       "[ $1 != -l ] || { find . -type f | cut -c2-; exit; }\n"
                                       "[ $# = 2 ] && exec cat \"./$2\"\n"
                                       "mkdir -p \"./$(dirname \"$2\")\"; printf '%s\\n' \"$7\" > \"./$2\"\n");
        Command("pcmanfm-qt", head);
    }

    ~FakeDesktop()
    {
        qputenv("PATH", m_path);
        qunsetenv("XDG_CURRENT_DESKTOP");
    }
    Q_DISABLE_COPY_MOVE(FakeDesktop)

    // How the commands behave from now on: "refuses", "hangs" or "forgets".
    void Become(const char* manner) const { Keep(QString::fromLatin1(manner), ""); }

    void Keep(const QString& key, const QByteArray& value) const
    {
        QDir().mkpath(QFileInfo(m_folder.filePath(key)).path());
        SetContent(m_folder.filePath(key), value + '\n');
    }

    QByteArray Kept(const QString& key) const
    {
        QFile file(m_folder.filePath(key));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
    }

    QByteArray Calls() const { return Kept(u"calls"_s); }

private:
    void Command(const char* name, const QByteArray& script) const
    {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        SetContent(path, script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QTemporaryDir m_folder;
    QByteArray m_path;
};
