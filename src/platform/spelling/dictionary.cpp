#include "platform/spelling/dictionary.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include <hunspell.hxx>
#include <optional>

namespace {
constexpr qint64 LargestFile = 24 << 20; // bytes; the largest known have 20 MB, most 1 MB
constexpr qint64 Sample = 64 << 10;      // bytes; they name the encoding, and their letters tell the language's scripts

QByteArray Beginning(const QString& path)
{
    QFile file(path);
    return file.size() <= LargestFile && file.open(QIODevice::ReadOnly) ? file.read(Sample) : QByteArray();
}

// A name of an encoding as the converters know it.
QByteArray EncodingOf(const QByteArray& rules)
{
    static const QRegularExpression line(uR"(^SET[ \t]+(?:microsoft-)?(\S+))"_s, QRegularExpression::MultilineOption);
    return line.match(QString::fromLatin1(rules)).captured(1).toLatin1();
}

// Hunspell reserves room for as many words as the first line promises.
bool PromisesWhatItHolds(const QByteArray& words, qint64 size)
{
    bool isNumber = false;
    const qsizetype start = words.startsWith("\xef\xbb\xbf") ? 3 : 0; // the mark of UTF-8
    const qint64 count = words.sliced(start, std::max<qsizetype>(0, words.indexOf('\n') - start))
                             .simplified()
                             .split(' ')
                             .value(0)
                             .toLongLong(&isNumber);
    return isNumber && count > 0 && count <= size;
}

// The scripts of more than every twentieth letter: a dictionary has a few words in letters of other languages.
QSet<int> ScriptsOf(const QString& words)
{
    QHash<int, qsizetype> letters;
    qsizetype all = 0;
    for (const char32_t one : words.toUcs4()) {
        if (!QChar::isLetter(one)) continue;
        ++letters[QChar::script(one)];
        ++all;
    }
    QSet<int> scripts;
    for (auto count = letters.begin(); count != letters.end(); ++count)
        if (count.value() * 20 > all) scripts += count.key();
    return scripts;
}

struct Language
{
    QByteArray encoding;
    QSet<int> scripts;
};

// Empty if the files cannot be used. Hunspell itself would take any.
std::optional<Language> LanguageOf(const DictionaryFiles& files)
{
    const QString wordFile = files.path + u".dic"_s;
    const QByteArray words = Beginning(wordFile), encoding = EncodingOf(Beginning(files.path + u".aff"_s));
    QStringDecoder decoder(encoding.constData());
    if (!decoder.isValid() || !PromisesWhatItHolds(words, QFile(wordFile).size())) return {};
    const Language language{encoding, ScriptsOf(decoder(words))};
    return language.scripts.isEmpty() ? std::nullopt : std::optional(language);
}

bool IsOfAnyLanguage(QChar::Script script)
{
    return script == QChar::Script_Common || script == QChar::Script_Inherited;
}
} // namespace

Dictionary::Dictionary(std::unique_ptr<Hunspell> words, const QByteArray& encoding, const QSet<int>& scripts)
    : m_words(std::move(words)), m_encoding(encoding), m_scripts(scripts)
{
}

Dictionary::~Dictionary() = default;

bool Dictionary::IsUsable(const DictionaryFiles& files)
{
    return bool(LanguageOf(files));
}

std::unique_ptr<Dictionary> Dictionary::Load(const DictionaryFiles& files)
{
    const std::optional<Language> language = LanguageOf(files);
    if (!language) return nullptr;
    auto words = std::make_unique<Hunspell>(QFile::encodeName(files.path + u".aff"_s).constData(),
                                            QFile::encodeName(files.path + u".dic"_s).constData());
    return std::unique_ptr<Dictionary>(new Dictionary(std::move(words), language->encoding, language->scripts));
}

bool Dictionary::Writes(const QString& word) const
{
    const auto letters = word.toUcs4();
    return std::all_of(letters.begin(), letters.end(), [this](char32_t one) {
        const QChar::Script script = QChar::script(one);
        return IsOfAnyLanguage(script) || m_scripts.contains(script);
    });
}

// An encoder keeps its error for ever, also through a reset.
std::optional<std::string> Dictionary::Encoded(const QString& word)
{
    if (!m_encoder || m_encoder->hasError()) m_encoder.emplace(m_encoding.constData());
    const QByteArray encoded = (*m_encoder)(word);
    return m_encoder->hasError() ? std::nullopt : std::optional(encoded.toStdString());
}

bool Dictionary::Knows(const QString& word)
{
    const auto encoded = Encoded(word);
    return encoded && m_words->spell(*encoded);
}

QStringList Dictionary::Suggest(const QString& word)
{
    QStringList suggestions;
    const auto encoded = Encoded(word);
    if (!encoded) return suggestions;
    for (const std::string& one : m_words->suggest(*encoded))
        suggestions += QStringDecoder(m_encoding.constData())(QByteArray::fromStdString(one));
    return suggestions;
}
