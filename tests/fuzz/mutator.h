// Makes inputs from other inputs, always the same for the same seed. Uses only the standard library.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

class Mutator
{
public:
    // The corpus must not be empty and must outlive the mutator. Half of the changes insert one of the words, so that
    // inputs resemble the language.
    Mutator(const std::vector<std::string>& corpus, const std::vector<std::string>& words, std::uint32_t seed)
        : m_corpus(corpus), m_words(words), m_random(seed)
    {
    }

    std::string Next()
    {
        constexpr std::size_t MostChanges = 10;
        std::string input = OneOf(m_corpus);
        for (std::size_t changes = 1 + Below(MostChanges); changes > 0 && !input.empty(); --changes)
            Change(input);
        if (input.size() > LongestInput) input.resize(LongestInput);
        return input;
    }

private:
    static constexpr std::size_t LongestInput = 20'000;
    static constexpr const char* Numbers[] = {"0",     "1",      "-1",    "7",          "255",         "256",
                                              "32767", "-32768", "65536", "2147483647", "-2147483648", "99999999999"};

    void Change(std::string& input)
    {
        using Kind = void (Mutator::*)(std::string&);
        constexpr Kind Kinds[] = {&Mutator::InsertWord, &Mutator::FlipBits,    &Mutator::InsertWord,
                                  &Mutator::Remove,     &Mutator::Splice,      &Mutator::RepeatPart,
                                  &Mutator::InsertWord, &Mutator::ChangeNumber};
        (this->*Kinds[Below(std::size(Kinds))])(input);
    }

    void FlipBits(std::string& input)
    {
        char& byte = input[Below(input.size())];
        byte = static_cast<char>(byte ^ (1 + Below(255)));
    }

    void Remove(std::string& input)
    {
        constexpr std::size_t Few = 9;
        const std::size_t most = Below(4) == 0 ? input.size() : Few;
        input.erase(Below(input.size()), Below(most));
    }

    // A few times, or often enough to reach the limits of depth and counts.
    void RepeatPart(std::string& input)
    {
        const std::string part = input.substr(Below(input.size()), 1 + Below(60));
        std::string repeated;
        for (std::size_t times = Below(8) == 0 ? Below(2000) : 1 + Below(3); times > 0; --times)
            repeated += part;
        input.insert(Below(input.size()), repeated);
    }

    void InsertWord(std::string& input) { input.insert(Below(input.size()), OneOf(m_words)); }

    void Splice(std::string& input)
    {
        const std::string& other = OneOf(m_corpus);
        const std::size_t from = Below(other.size());
        const std::size_t to = Below(input.size());
        input.replace(to, Below(input.size() - to), other, from, Below(other.size() - from) + 1);
    }

    void ChangeNumber(std::string& input)
    {
        const auto isDigit = [](unsigned char byte) { return std::isdigit(byte) != 0; };
        const auto number =
            std::find_if(input.begin() + static_cast<std::ptrdiff_t>(Below(input.size())), input.end(), isDigit);
        const auto end = std::find_if_not(number, input.end(), isDigit);
        if (number != end) input.replace(number, end, Numbers[Below(std::size(Numbers))]);
    }

    std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : m_random() % bound; }

    const std::string& OneOf(const std::vector<std::string>& strings) { return strings[Below(strings.size())]; }

    const std::vector<std::string>& m_corpus;
    const std::vector<std::string>& m_words;
    std::mt19937 m_random;
};
