// The table of the control words; those of formats that are written too stand with the formats.
#include "platform/richtext/rtfactions.h"

#include <array>
#include <string_view>
#include <vector>

class RtfMachine::Table : Actions
{
public:
    Table()
    {
        const auto itself = [](int place) { return place; };
        AddAll(RtfUnderlines, SetUnderline, itself);
        AddAll(RtfVerticals, SetVertical, itself);
        AddAll(RtfTabKinds, SetTabType, itself);
        AddAll(RtfMeasures, SetMeasure, itself);
        AddAll(RtfStyleNames, SetStyle, [](int place) { return static_cast<int>(RtfStyleNames[place].style); });
        AddAll(RtfAlignments, SetAlignment, [](int place) { return RtfAlignments[place].alignment; });
        for (const std::string_view name : SkippedGroups)
            Add({name, Enter, Skipped, Word::Destination});
        for (const Word& word : Words)
            Add(word);
    }

    const Word* Find(std::string_view name) const
    {
        const quint8 place = m_slots[SlotOf(name)];
        return place ? &m_words[place - 1U] : nullptr;
    }

private:
    static constexpr std::string_view SkippedGroups[] = {"aftncn",     "aftnsep",      "aftnsepc",
                                                         "annotation", "atnauthor",    "atnid",
                                                         "bkmkend",    "bkmkstart",    "colorschememapping",
                                                         "comment",    "datafield",    "datastore",
                                                         "do",         "falt",         "filetbl",
                                                         "fname",      "fontemb",      "footer",
                                                         "footerf",    "footerl",      "footerr",
                                                         "footnote",   "ftncn",        "ftnsep",
                                                         "ftnsepc",    "generator",    "header",
                                                         "headerf",    "headerl",      "headerr",
                                                         "info",       "latentstyles", "listoverridetable",
                                                         "listtable",  "nonesttables", "nonshppict",
                                                         "objalias",   "objclass",     "objdata",
                                                         "objname",    "objsect",      "panose",
                                                         "pnseclvl",   "pntxta",       "pntxtb",
                                                         "private",    "revtbl",       "rsidtbl",
                                                         "rxe",        "shprslt",      "sn",
                                                         "stylesheet", "tc",           "tcn",
                                                         "template",   "themedata",    "txe",
                                                         "xe",         "xmlnstbl"};

    static constexpr Word Words[] = {
        {"colortbl", Enter, ColorTable, Word::Destination},
        {"fldinst", Enter, Instruction, Word::Destination},
        {"fonttbl", Enter, FontTable, Word::Destination},
        {"nesttableprops", Enter, Body, Word::Destination},
        {"object", ReadObject, 0, Word::Picture},
        {"pict", ReadPicture, 0, Word::Picture},
        {"shpgrp", Enter, Structure, Word::Destination},
        {"shpinst", Enter, Structure, Word::Destination},
        {"shppict", Enter, Body, Word::Destination},
        {"shptxt", Enter, Body, Word::Destination},
        {"sp", Enter, Structure, Word::Destination},
        {"sv", Enter, Structure, Word::Destination},
        {"ud", Enter, Body, Word::Destination},
        {"upr", Enter, Structure, Word::Destination},
        {"\t", PutCharacter, '\t'},
        {"\n", EndParagraph},
        {"\r", EndParagraph},
        {"-", PutCharacter, 0xAD},
        {"_", PutCharacter, 0x2011},
        {"ansi", SetCodePage, AnsiCodePage},
        {"ansicpg", SetCodePage},
        {"blue", SetColorPart},
        {"bullet", PutCharacter, 0x2022},
        {"cb", SetBackground},
        {"cell", EndCell},
        {"cf", SetColor},
        {"chcbpat", SetBackground},
        {"column", EndPage},
        {"cpg", SetFontCodePage},
        {"deff", SetDefaultFont},
        {"dn", SetRise, -1},
        {"emdash", PutCharacter, 0x2014},
        {"emspace", PutCharacter, 0x2003},
        {"endash", PutCharacter, 0x2013},
        {"enspace", PutCharacter, 0x2002},
        {"f", SetFont},
        {"fcharset", SetFontCharset},
        {"field", BeginField},
        {"fs", SetFontSize},
        {"green", SetColorPart, 8},
        {"highlight", SetBackground},
        {"ldblquote", PutCharacter, 0x201C},
        {"line", PutCharacter, QChar::LineSeparator},
        {"lquote", PutCharacter, 0x2018},
        {"ltrmark", PutCharacter, 0x200E},
        {"ltrpar", SetDirection, false},
        {"mac", SetCodePage, MacCodePage},
        {"nestcell", EndCell},
        {"nestrow", EndRow},
        {"page", EndPage},
        {"par", EndParagraph},
        {"pard", SetParagraphPlain},
        {"pc", SetCodePage, PcCodePage},
        {"pca", SetCodePage, PcMultilingualCodePage},
        {"plain", SetPlain},
        {"qd", SetAlignment, Qt::AlignJustify},
        {"qmspace", PutCharacter, 0x2005},
        {"rdblquote", PutCharacter, 0x201D},
        {"red", SetColorPart, 16},
        {"row", EndRow},
        {"rquote", PutCharacter, 0x2019},
        {"rtlmark", PutCharacter, 0x200F},
        {"rtlpar", SetDirection, true},
        {"sect", EndPage},
        {"sl", SetLineSpacing},
        {"slmult", SetLineMultiple},
        {"softline", PutCharacter, QChar::LineSeparator},
        {"striked", SetStyle, int(RtfStyle::StrikeOut)},
        {"tab", PutCharacter, '\t'},
        {"tx", AddTab},
        {"u", PutUnicode},
        {"uc", SetFallbackLength},
        {"up", SetRise, 1},
        {"v", SetStyle, int(RtfStyle::Hidden)},
        {"zwbo", PutCharacter, 0x200B},
        {"zwj", PutCharacter, 0x200D},
        {"zwnbo", PutCharacter, 0x2060},
        {"zwnj", PutCharacter, 0x200C},
        {"~", PutCharacter, 0xA0},
    };

    static constexpr std::size_t SlotCount = 1024; // sparse, so that a search ends at once

    // Of a word that is there twice the first counts.
    void Add(const Word& word)
    {
        quint8& place = m_slots[SlotOf(word.name)];
        if (place != 0) return;
        m_words.push_back(word);
        place = static_cast<quint8>(m_words.size());
    }

    template <typename Names, typename Value>
    void AddAll(const Names& names, void (*act)(Machine&, int, const RtfToken&), Value valueAt)
    {
        for (int place = 0; place < static_cast<int>(std::size(names)); ++place)
            Add({names[place].word, act, valueAt(place)});
    }

    // Where the word is, or would go. A taken slot sends on to the next.
    std::size_t SlotOf(std::string_view name) const
    {
        std::size_t slot = 0;
        for (const char letter : name)
            slot = slot * 31 + static_cast<unsigned char>(letter);
        slot = (slot ^ slot >> 10) % SlotCount;
        while (m_slots[slot] != 0 && m_words[m_slots[slot] - 1U].name != name)
            slot = (slot + 1) % SlotCount;
        return slot;
    }

    std::vector<Word> m_words;
    std::array<quint8, SlotCount> m_slots{}; // places in m_words, from 1
};

const RtfMachine::Word* RtfMachine::Find(QByteArrayView name)
{
    static const Table words;
    return words.Find(std::string_view(name.data(), static_cast<std::size_t>(name.size())));
}

char16_t RtfMachine::CharacterOf(QByteArrayView name)
{
    const Word* const word = Find(name);
    return word && word->act == Actions::PutCharacter ? static_cast<char16_t>(word->argument) : 0;
}
