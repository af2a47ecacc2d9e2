// Inputs made of other inputs, always the same ones for the same seed. Knows only the standard library.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

class Mutator
{
public:
    // The corpus must hold something and outlive the mutator. The words are what the language is made of: half the
    // changes put one in, so that they are not all mere other letters.
    Mutator(const std::vector<std::string>& corpus, const std::vector<std::string>& words, std::uint32_t seed);

    std::string Next();

private:
    void Change(std::string& input);
    void FlipBits(std::string& input);
    void Remove(std::string& input);
    void RepeatPart(std::string& input);
    void InsertWord(std::string& input);
    void Splice(std::string& input);
    void ChangeNumber(std::string& input);

    std::size_t Below(std::size_t bound);
    const std::string& OneOf(const std::vector<std::string>& strings);

    const std::vector<std::string>& m_corpus;
    const std::vector<std::string>& m_words;
    std::mt19937 m_random;
};
