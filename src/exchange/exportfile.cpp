#include "exchange/exportfile.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/runtimeerror.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace {
void WriteWhole(const QString& path, const QByteArray& content)
{
    QString reason;
    if (WriteDurably(path, content, &reason)) return;
    throw RunTimeError{engineerrors::InputOutput,
                       u"'%1' could not be written: %2"_s.arg(QFileInfo(path).fileName(), reason)};
}

// The pictures of one export. A file's name follows from its content, so that the next export writes the same names.
class Pictures
{
public:
    explicit Pictures(const QString& path)
        : m_name(QFileInfo(path).completeBaseName() + "-pictures"_L1), m_folder(QFileInfo(path).dir())
    {
    }
    ~Pictures()
    {
        for (const QString& path : m_made)
            QFile::remove(path);
        m_folder.rmdir(m_name); // if it is empty
    }
    Q_DISABLE_COPY_MOVE(Pictures)

    QString Add(const QByteArray& file)
    {
        const QByteArray hash = QCryptographicHash::hash(file, QCryptographicHash::Sha1).toHex().first(16);
        const QString name = QString::fromLatin1(hash) + (file.startsWith("\x89PNG") ? ".png"_L1 : ".jpg"_L1);
        const QString path = m_folder.filePath(m_name + u'/' + name);
        if (!QFile::exists(path)) {
            m_folder.mkdir(m_name);
            WriteWhole(path, file);
            m_made += path;
        }
        return QString::fromLatin1(QUrl::toPercentEncoding(m_name)) + u'/' + name;
    }
    void Keep() { m_made.clear(); }

private:
    QString m_name;
    QDir m_folder;
    QStringList m_made;
};
} // namespace

void WriteExport(const Extract& extract, const ExportFormat& format, const QString& path)
{
    Pictures pictures(path);
    WriteWhole(path, format.write(extract, [&](const QByteArray& file) { return pictures.Add(file); }));
    pictures.Keep();
}
