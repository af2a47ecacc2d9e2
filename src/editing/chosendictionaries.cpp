#include "editing/chosendictionaries.h"

#include "settings/settings.h"

#include <QLocale>

QStringList ChosenNames(const std::vector<DictionaryFiles>& installed)
{
    return Read(settings::Dictionaries, DictionaryFor(QLocale::system(), installed)).split(u',', Qt::SkipEmptyParts);
}

std::deque<DictionaryFiles> ChosenDictionaries()
{
    std::deque<DictionaryFiles> chosen;
    const std::vector<DictionaryFiles> installed = InstalledDictionaries();
    const QStringList names = ChosenNames(installed);
    for (const DictionaryFiles& one : installed)
        if (names.contains(one.name)) chosen.push_back(one);
    return chosen;
}
