#include "platform/spelling/speller.h"

#include <algorithm>
#include <malloc.h>

namespace {
constexpr int MostSuggestions = 5;

bool HasCapital(const QString& word)
{
    return !word.isEmpty() && word.front().isUpper();
}
} // namespace

bool Speller::Load(const DictionaryFiles& files)
{
    auto dictionary = Dictionary::Load(files);
    if (!dictionary) return false;
    m_dictionaries.push_back(std::move(dictionary));
    return true;
}

void Speller::LoadNext()
{
    const DictionaryFiles next = std::move(m_expected.front());
    m_expected.pop_front(); // first: one that fails must not be tried again with every click
    Load(next);
}

// Many small pieces were freed, which the allocator would keep.
void Speller::Unload()
{
    m_expected.clear();
    m_dictionaries.clear();
    ::malloc_trim(0);
}

bool Speller::IsKnown(const QString& word)
{
    bool isWritten = false;
    for (const auto& dictionary : m_dictionaries) {
        if (!dictionary->Writes(word)) continue;
        if (dictionary->Knows(word)) return true;
        isWritten = true;
    }
    return !isWritten || IsAccepted(word);
}

// A word in small letters is accepted with a capital, too, as at the beginning of a sentence.
bool Speller::IsAccepted(const QString& word) const
{
    const auto has = [this](const QString& one) { return m_personal.Words().contains(one) || m_ignored.contains(one); };
    return has(word) || (HasCapital(word) && has(word.front().toLower() + word.mid(1)));
}

// The dictionaries take turns, since the text may be in any of their languages.
QStringList Speller::Suggest(const QString& word)
{
    QList<QStringList> lists;
    for (const auto& dictionary : m_dictionaries)
        if (dictionary->Writes(word)) lists += dictionary->Suggest(word);
    QStringList chosen;
    for (int place = 0; place < MostSuggestions; ++place)
        for (const QStringList& list : lists)
            if (place < list.size() && !chosen.contains(list[place])) chosen += list[place];
    return chosen.first(std::min<qsizetype>(chosen.size(), MostSuggestions));
}
