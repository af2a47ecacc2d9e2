// The desktop's spelling dictionaries: pairs of files NAME.aff and NAME.dic, read by hunspell. NAME is a locale's, such
// as "de_DE".
#pragma once

#include <QSet>
#include <QStringConverter>
#include <QStringList>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class Hunspell;
class QLocale;

struct DictionaryFiles
{
    QString name;
    QString path; // of both files, without a suffix
};

// In the order of their names. Folders of DICPATH come first; of equal names the first counts.
std::vector<DictionaryFiles> InstalledDictionaries();
void SetDictionaryFoldersForTests(const QStringList& folders); // without folders those of the desktop

// "German (Germany)" for "de_DE"; a name that is no locale's stays.
QString DictionaryInWords(const QString& name);
// The locale's own, else one of its language, else empty.
QString DictionaryFor(const QLocale& locale, const std::vector<DictionaryFiles>& installed);

class Dictionary
{
public:
    // False for files that are damaged, too large or in an unknown encoding.
    static bool IsUsable(const DictionaryFiles& files);
    // Null if the files cannot be used. Takes up to 200 ms.
    static std::unique_ptr<Dictionary> Load(const DictionaryFiles& files);
    ~Dictionary();
    Q_DISABLE_COPY_MOVE(Dictionary)

    bool Writes(const QString& word) const; // its language has the word's letters
    bool Knows(const QString& word);        // in any position of a sentence
    // What the word may have been meant to be, the likeliest first. Takes up to 300 ms.
    QStringList Suggest(const QString& word);

private:
    std::optional<std::string> Encoded(const QString& word); // nothing if the encoding lacks a letter
    Dictionary(std::unique_ptr<Hunspell> words, const QByteArray& encoding, const QSet<int>& scripts);

    const std::unique_ptr<Hunspell> m_words;
    const QByteArray m_encoding;
    std::optional<QStringEncoder> m_encoder;
    const QSet<int> m_scripts; // QChar::Script
};
