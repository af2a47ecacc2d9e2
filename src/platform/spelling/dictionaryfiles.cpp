#include "platform/spelling/dictionary.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <map>

namespace {
QStringList& FoldersForTests()
{
    static QStringList folders;
    return folders;
}

QStringList Folders()
{
    if (!FoldersForTests().isEmpty()) return FoldersForTests();
    return qEnvironmentVariable("DICPATH").split(u':', Qt::SkipEmptyParts) +
           QStringList{u"/usr/share/hunspell"_s, u"/usr/share/myspell"_s, u"/usr/share/myspell/dicts"_s};
}

QString LanguagePart(const QString& name)
{
    return name.section(u'_', 0, 0);
}
} // namespace

void SetDictionaryFoldersForTests(const QStringList& folders)
{
    FoldersForTests() = folders;
}

std::vector<DictionaryFiles> InstalledDictionaries()
{
    std::map<QString, QString> found;
    for (const QString& folder : Folders()) {
        for (const QFileInfo& words : QDir(folder).entryInfoList({u"*.dic"_s}, QDir::Files)) {
            const QString path = words.path() + u'/' + words.completeBaseName();
            if (QFile::exists(path + u".aff"_s)) found.emplace(words.completeBaseName(), path);
        }
    }
    std::vector<DictionaryFiles> installed;
    for (const auto& [name, path] : found)
        installed.push_back({name, path});
    return installed;
}

QString DictionaryInWords(const QString& name)
{
    // A variant has more behind the country: "de_DE_frami", "en_GB-large".
    const QString locale = name.section(u'-', 0, 0).section(u'_', 0, 1);
    const QLocale known(locale);
    if (known.language() == QLocale::C) return name;
    QStringList details;
    if (locale.contains(u'_')) details += QLocale::territoryToString(known.territory());
    if (const QString variant = name.sliced(locale.size()); !variant.isEmpty()) details += variant.sliced(1);
    const QString language = QLocale::languageToString(known.language());
    return details.isEmpty() ? language : u"%1 (%2)"_s.arg(language, details.join(u", "_s));
}

QString DictionaryFor(const QLocale& locale, const std::vector<DictionaryFiles>& installed)
{
    const auto first = [&](auto fits) {
        const auto found = std::ranges::find_if(installed, fits, &DictionaryFiles::name);
        return found == installed.end() ? QString() : found->name;
    };
    const QString exact = first([&](const QString& name) { return name == locale.name(); });
    const QString language = LanguagePart(locale.name());
    return exact.isEmpty() ? first([&](const QString& name) { return LanguagePart(name) == language; }) : exact;
}
