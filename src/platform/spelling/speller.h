// Tells right words from unknown ones by several dictionaries at once and by the person's own words.
#pragma once

#include "platform/spelling/dictionary.h"
#include "platform/spelling/personalwords.h"

#include <deque>

class Speller
{
public:
    explicit Speller(const QString& personalFile) : m_personal(personalFile) {}

    bool Load(const DictionaryFiles& files); // false: the dictionary is left out
    void Unload();                           // gives their memory back: 8 MB for a usual one
    void Expect(std::deque<DictionaryFiles> files) { m_expected = std::move(files); } // to be loaded one by one
    bool IsExpecting() const { return !m_expected.empty(); }
    void LoadNext();
    bool IsLoaded() const { return !m_dictionaries.empty(); }

    // Words are plain (words.h). Also true for a word in letters that no loaded dictionary has.
    bool IsKnown(const QString& word);
    QStringList Suggest(const QString& word); // at most five, the likeliest first; takes up to half a second
    void Ignore(const QString& word) { m_ignored += word; } // until the program ends
    PersonalWords& Personal() { return m_personal; }

private:
    bool IsAccepted(const QString& word) const;

    std::deque<DictionaryFiles> m_expected;
    std::vector<std::unique_ptr<Dictionary>> m_dictionaries;
    PersonalWords m_personal;
    QSet<QString> m_ignored;
};
