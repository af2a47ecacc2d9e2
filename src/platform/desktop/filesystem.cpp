#include "platform/desktop/filesystem.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <filesystem>

namespace {
QHash<QString, QString> g_remembered; // lower-cased to exact path, of files and their folders

// toLower and toCaseFolded differ: a capital I with dot becomes two characters by toLower only. Names are equal if they
// are after both.
QString Folded(const QString& name)
{
    return name.toLower().toCaseFolded();
}

// A search. It stops after a thousand folders or a million names, since links to parent folders make trees endless.
class Search
{
public:
    explicit Search(const QStringList& names) : m_names(names) {}

    // The file for the names from index on, below the folder; empty if there is none.
    QString Below(const QString& folder, qsizetype index = 0)
    {
        if (index == m_names.size()) return folder.isEmpty() ? u"/"_s : folder;
        const QString& name = m_names[index];
        const QString exact = Step(folder, name, index);
        if (!exact.isEmpty() || name == ".."_L1) return exact;
        for (const QString& other : EqualNames(folder, name)) {
            const QString found = Step(folder, other, index);
            if (!found.isEmpty()) return found;
        }
        return {};
    }

private:
    QString Step(const QString& folder, const QString& name, qsizetype index)
    {
        const QString next = folder + u'/' + name;
        return QFileInfo::exists(next) ? Below(next, index + 1) : QString();
    }

    // Sorted, so that the result does not depend on the folder's order.
    QStringList EqualNames(const QString& folder, const QString& name)
    {
        namespace fs = std::filesystem;
        const QString folded = Folded(name);
        QStringList names;
        if (--m_foldersLeft < 0) return names;
        std::error_code error;
        const QByteArray path = QFile::encodeName(folder + u'/');
        for (fs::directory_iterator i(path.constData(), error), end; !error && i != end; i.increment(error)) {
            if (--m_namesLeft < 0) return {};
            const QString candidate = QFile::decodeName(i->path().filename().c_str());
            if (candidate != name && Folded(candidate) == folded) names += candidate;
        }
        names.sort();
        return names;
    }

    QStringList m_names;
    int m_foldersLeft = 1000;
    int m_namesLeft = 1'000'000;
};

QStringList NamesOf(const QString& path)
{
    QStringList names = QDir::current().absoluteFilePath(path).split(u'/', Qt::SkipEmptyParts);
    names.removeAll(u"."_s);
    return names;
}

QString Joined(const QStringList& names)
{
    return u'/' + names.join(u'/');
}

QString FindNames(const QStringList& names)
{
    const QString path = Joined(names);
    const QString remembered = g_remembered.value(path);
    if (!remembered.isEmpty() && QFileInfo::exists(remembered)) return remembered;
    const QString folder = names.isEmpty() ? QString() : g_remembered.value(Joined(names.first(names.size() - 1)));
    if (!folder.isEmpty()) {
        const QString found = Search(names.last(1)).Below(folder);
        if (!found.isEmpty()) return found;
    }
    return QFileInfo::exists(path) ? path : Search(names).Below(QString());
}
} // namespace

QString filesystem::Find(const QString& path)
{
    if (path.isEmpty()) return {};
    const QString found = FindNames(NamesOf(path));
    return path.endsWith(u'/') && !QFileInfo(found).isDir() ? QString() : found;
}

QString filesystem::PlaceFor(const QString& path)
{
    const QStringList names = NamesOf(path);
    if (path.isEmpty() || path.endsWith(u'/') || names.isEmpty()) return {};
    const QString folder = FindNames(names.first(names.size() - 1));
    return QFileInfo(folder).isDir() ? QDir(folder).filePath(names.last()) : QString();
}

void filesystem::Remember(const QString& exactPath)
{
    const QStringList names = NamesOf(exactPath);
    if (names.isEmpty()) return;
    const QString path = Joined(names);
    const QString folder = Joined(names.first(names.size() - 1));
    g_remembered[path.toLower()] = path;
    g_remembered[folder.toLower()] = folder;
}

void filesystem::ForgetAll()
{
    g_remembered.clear();
}

QString filesystem::Dir(const QString& path)
{
    const QFileInfo found(Find(path));
    return found.isFile() ? found.fileName() : QString();
}
