// Test files, and a full disk.
#pragma once

#include <QFile>

#include <sys/resource.h>

#include <csignal>

inline QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

inline void SetContent(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("Could not write a test's file");
}

// During its life no file of this process can grow beyond so many bytes. The system reports an I/O error.
class FullDisk
{
public:
    explicit FullDisk(rlim_t most)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit little{most, m_before.rlim_max};
        if (::setrlimit(RLIMIT_FSIZE, &little) != 0) qFatal("The size of files cannot be limited");
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before = {};
};
