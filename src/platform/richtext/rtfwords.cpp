// What the control words do, and their table. Words that are also written are in rtfformat.h.
#include "platform/richtext/rtfmachine.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <unordered_map>
#include <utility>

struct RtfMachine::Actions
{
    using Machine = RtfMachine;

    static bool IsOn(const RtfToken& word) { return word.ParameterOr(1) != 0; }

    static void Enter(Machine& machine, int destination, const RtfToken&)
    {
        machine.Enter(static_cast<Destination>(destination));
    }

    static void ReadPicture(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_wantsCodes) return;
        const RtfPicture picture = ReadRtfPicture(machine.m_tokenizer, word.bytes);
        const bool isHidden = machine.m_state.character.styles.testFlag(RtfStyle::Hidden);
        if (picture.hasData && !isHidden) machine.m_sink.Picture(picture, machine.Character());
    }

    // An object that shows itself by a picture is kept whole, for its data; of another there is only the text that it
    // shows. Objects within it hold no picture either, so they are not looked through again.
    static void ReadObject(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_wantsCodes || std::exchange(machine.m_state.isInObject, true)) return;
        RtfTokenizer ahead = machine.m_tokenizer;
        const RtfPicture picture = ReadRtfPicture(ahead, word.bytes);
        if (!picture.hasData || !machine.TakesText()) return;
        machine.m_tokenizer = ahead;
        machine.m_sink.Picture(picture, machine.Character());
    }

    static void BeginField(Machine& machine, int, const RtfToken&) { machine.m_state.isField = true; }

    static void PutCharacter(Machine& machine, int character, const RtfToken&)
    {
        machine.PutCharacter(static_cast<char32_t>(character));
    }

    // A signed 16-bit number by rights; some write it unsigned, and some a whole code point.
    static void PutUnicode(Machine& machine, int, const RtfToken& word)
    {
        machine.m_skip = machine.m_state.fallbackLength;
        const auto whole = static_cast<char32_t>(word.parameter);
        const auto unit = static_cast<char16_t>(word.parameter);
        if (word.parameter > 0xFFFF && whole <= QChar::LastValidCodePoint) return machine.PutCharacter(whole);
        const bool isSymbol = machine.m_state.destination == Body && IsPrivateSymbol(unit);
        const RtfSymbols* const symbols =
            isSymbol ? machine.m_tables.fonts.SymbolsAt(machine.Character().font) : nullptr;
        if (!symbols) return machine.PutCharacter(unit);
        machine.m_code = {};
        const char byte = static_cast<char>(unit);
        machine.Put(DecodeSymbols(QByteArrayView(&byte, 1), *symbols));
    }

    static void SetFallbackLength(Machine& machine, int, const RtfToken& word)
    {
        constexpr int Longest = 255;
        machine.m_state.fallbackLength = std::clamp(word.ParameterOr(1), 0, Longest);
    }

    template <void (RtfSink::*end)(const RtfParagraph&, const RtfCharacter&)>
    static void End(Machine& machine, int, const RtfToken&)
    {
        machine.EndParagraph(end);
    }
    static void EndCell(Machine& machine, int, const RtfToken&)
    {
        if (machine.m_state.destination == Body) machine.m_sink.EndCell();
    }

    static void SetCodePage(Machine& machine, int codePage, const RtfToken& word)
    {
        machine.m_codePage = codePage ? codePage : word.parameter;
    }

    static void SetDefaultFont(Machine& machine, int, const RtfToken& word)
    {
        machine.m_tables.fonts.SetDefault(word.parameter);
    }

    template <void (RtfFonts::*set)(int)>
    static void SetOfFont(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_state.destination == FontTable) (machine.m_tables.fonts.*set)(word.parameter);
    }

    static void SetColorPart(Machine& machine, int shift, const RtfToken& word)
    {
        constexpr QRgb IsGiven = 0xFF000000;
        const QRgb part = static_cast<QRgb>(std::clamp(word.parameter, 0, 255));
        machine.m_color = (machine.m_color & ~(QRgb{255} << shift)) | (part << shift) | IsGiven;
    }

    static void SetPlain(Machine& machine, int, const RtfToken&)
    {
        machine.m_state.character = {.link = machine.m_state.character.link};
    }

    static void SetFont(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_state.destination == FontTable)
            machine.m_tables.fonts.Begin(word.parameter);
        else
            machine.m_state.character.font = machine.m_tables.fonts.PlaceOf(word.parameter);
    }

    static void SetFontSize(Machine& machine, int, const RtfToken& word)
    {
        const int size = word.parameter > 0 ? word.parameter : RtfCharacter::DefaultHalfPoints;
        machine.m_state.character.halfPoints = std::min(size, RtfCharacter::MaximumHalfPoints);
    }

    static void SetStyle(Machine& machine, int style, const RtfToken& word)
    {
        machine.m_state.character.styles.setFlag(static_cast<RtfStyle>(style), IsOn(word));
    }

    template <quint8 RtfCharacter::*kind>
    static void SetKind(Machine& machine, int place, const RtfToken& word)
    {
        machine.m_state.character.*kind = static_cast<quint8>(IsOn(word) ? place : 0);
    }

    static void SetRise(Machine& machine, int sign, const RtfToken& word)
    {
        constexpr int Usual = 6, Most = RtfCharacter::MaximumHalfPoints;
        machine.m_state.character.rise = sign * std::clamp(word.ParameterOr(Usual), -Most, Most);
    }

    template <QRgb RtfCharacter::*color>
    static void SetColor(Machine& machine, int, const RtfToken& word)
    {
        const std::vector<QRgb>& colors = machine.m_tables.colors;
        const auto place = static_cast<std::size_t>(word.parameter); // far beyond the table where it is negative
        machine.m_state.character.*color = place < colors.size() ? colors[place] : 0;
    }

    static void SetParagraphPlain(Machine& machine, int, const RtfToken&)
    {
        machine.m_state.paragraph = {};
        machine.m_state.tabType = QTextOption::LeftTab;
    }

    static void SetAlignment(Machine& machine, int alignment, const RtfToken&)
    {
        machine.m_state.paragraph.alignment = Qt::Alignment::fromInt(alignment);
    }

    static void SetDirection(Machine& machine, int direction, const RtfToken&)
    {
        machine.m_state.paragraph.direction = static_cast<Qt::LayoutDirection>(direction);
    }

    static void SetMeasure(Machine& machine, int measure, const RtfToken& word)
    {
        machine.m_state.paragraph.measures[measure] = RtfMeasures[measure].Bounded(word.parameter);
    }

    static void SetLineSpacing(Machine& machine, int, const RtfToken& word)
    {
        constexpr int Most = RtfParagraph::Furthest;
        machine.m_state.paragraph.lineSpacing = std::clamp(word.parameter, -Most, Most);
    }

    static void SetLineMultiple(Machine& machine, int, const RtfToken& word)
    {
        machine.m_state.paragraph.isLineMultiple = IsOn(word);
    }

    static void SetTabType(Machine& machine, int type, const RtfToken&)
    {
        machine.m_state.tabType = static_cast<QTextOption::TabType>(type);
    }

    static void AddTab(Machine& machine, int, const RtfToken& word)
    {
        const auto type = std::exchange(machine.m_state.tabType, QTextOption::LeftTab);
        QList<QTextOption::Tab>& tabs = machine.m_state.paragraph.tabs;
        if (tabs.size() >= RtfParagraph::MaximumTabs) return;
        tabs.append(QTextOption::Tab(std::clamp(word.parameter, 0, RtfParagraph::Furthest), type));
    }
};

// A note is mostly such words. They are short, so their first bytes are a good number already, and a general hash took
// longer than the rest of the look-up.
struct HashOfWord
{
    std::size_t operator()(std::string_view name) const
    {
        std::uint64_t bytes = name.size();
        std::memcpy(&bytes, name.data(), std::min(name.size(), sizeof bytes));
        return (bytes * 0x9E3779B97F4A7C15) >> 32;
    }
};

class RtfMachine::Table : Actions
{
public:
    Table()
    {
        const auto itself = [](int place) { return place; };
        AddAll(RtfUnderlines, SetKind<&RtfCharacter::underline>, itself);
        AddAll(RtfVerticals, SetKind<&RtfCharacter::vertical>, itself);
        AddAll(RtfTabKinds, SetTabType, itself);
        AddAll(RtfDirections, SetDirection, itself);
        AddAll(RtfMeasures, SetMeasure, itself);
        AddAll(RtfStyleNames, SetStyle, [](int place) { return static_cast<int>(RtfStyleNames[place].style); });
        AddAll(RtfAlignments, SetAlignment, [](int place) { return RtfAlignments[place].alignment; });
        for (const std::string_view name : SkippedGroups)
            m_words.emplace(name, Word{Enter, Skipped, Word::Destination});
        for (const auto& [name, word] : Words)
            m_words.emplace(name, word);
    }

    const Word* Find(std::string_view name) const
    {
        const auto found = m_words.find(name);
        return found == m_words.end() ? nullptr : &found->second;
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

    static constexpr std::pair<std::string_view, Word> Words[] = {
        {"colortbl", {Enter, ColorTable, Word::Destination}},
        {"fldinst", {Enter, Instruction, Word::Destination}},
        {"fonttbl", {Enter, FontTable, Word::Destination}},
        {"nesttableprops", {Enter, Body, Word::Destination}},
        {"object", {ReadObject, 0, Word::Picture}},
        {"pict", {ReadPicture, 0, Word::Picture}},
        {"shpgrp", {Enter, Structure, Word::Destination}},
        {"shpinst", {Enter, Structure, Word::Destination}},
        {"shppict", {Enter, Body, Word::Destination}},
        {"shptxt", {Enter, Body, Word::Destination}},
        {"sp", {Enter, Structure, Word::Destination}},
        {"sv", {Enter, Structure, Word::Destination}},
        {"ud", {Enter, Body, Word::Destination}},
        {"upr", {Enter, Structure, Word::Destination}},
        {"\t", {PutCharacter, '\t'}},
        {"\n", {End<&RtfSink::EndParagraph>}},
        {"\r", {End<&RtfSink::EndParagraph>}},
        {"-", {PutCharacter, 0xAD}},
        {"_", {PutCharacter, 0x2011}},
        {"ansi", {SetCodePage, AnsiCodePage}},
        {"ansicpg", {SetCodePage}},
        {"blue", {SetColorPart}},
        {"bullet", {PutCharacter, 0x2022}},
        {"cb", {SetColor<&RtfCharacter::background>}},
        {"cell", {EndCell}},
        {"cf", {SetColor<&RtfCharacter::color>}},
        {"chcbpat", {SetColor<&RtfCharacter::background>}},
        {"column", {End<&RtfSink::EndPage>}},
        {"cpg", {SetOfFont<&RtfFonts::SetCodePage>}},
        {"deff", {SetDefaultFont}},
        {"dn", {SetRise, -1}},
        {"emdash", {PutCharacter, 0x2014}},
        {"emspace", {PutCharacter, 0x2003}},
        {"endash", {PutCharacter, 0x2013}},
        {"enspace", {PutCharacter, 0x2002}},
        {"f", {SetFont}},
        {"fcharset", {SetOfFont<&RtfFonts::SetCharset>}},
        {"field", {BeginField}},
        {"fs", {SetFontSize}},
        {"green", {SetColorPart, 8}},
        {"highlight", {SetColor<&RtfCharacter::background>}},
        {"ldblquote", {PutCharacter, 0x201C}},
        {"line", {PutCharacter, QChar::LineSeparator}},
        {"lquote", {PutCharacter, 0x2018}},
        {"ltrmark", {PutCharacter, 0x200E}},
        {"mac", {SetCodePage, MacCodePage}},
        {"nestcell", {EndCell}},
        {"nestrow", {End<&RtfSink::EndRow>}},
        {"page", {End<&RtfSink::EndPage>}},
        {"par", {End<&RtfSink::EndParagraph>}},
        {"pard", {SetParagraphPlain}},
        {"pc", {SetCodePage, PcCodePage}},
        {"pca", {SetCodePage, PcMultilingualCodePage}},
        {"plain", {SetPlain}},
        {"qd", {SetAlignment, Qt::AlignJustify}},
        {"qmspace", {PutCharacter, 0x2005}},
        {"rdblquote", {PutCharacter, 0x201D}},
        {"red", {SetColorPart, 16}},
        {"row", {End<&RtfSink::EndRow>}},
        {"rquote", {PutCharacter, 0x2019}},
        {"rtlmark", {PutCharacter, 0x200F}},
        {"sect", {End<&RtfSink::EndPage>}},
        {"sl", {SetLineSpacing}},
        {"slmult", {SetLineMultiple}},
        {"softline", {PutCharacter, QChar::LineSeparator}},
        {"striked", {SetStyle, int(RtfStyle::StrikeOut)}},
        {"tab", {PutCharacter, '\t'}},
        {"tx", {AddTab}},
        {"u", {PutUnicode}},
        {"uc", {SetFallbackLength}},
        {"up", {SetRise, 1}},
        {"v", {SetStyle, int(RtfStyle::Hidden)}},
        {"zwbo", {PutCharacter, 0x200B}},
        {"zwj", {PutCharacter, 0x200D}},
        {"zwnbo", {PutCharacter, 0x2060}},
        {"zwnj", {PutCharacter, 0x200C}},
        {"~", {PutCharacter, 0xA0}},
    };

    template <typename Names, typename Value>
    void AddAll(const Names& names, void (*act)(Machine&, int, const RtfToken&), Value valueAt)
    {
        for (int place = 0; place < static_cast<int>(std::size(names)); ++place)
            m_words.emplace(names[place].word, Word{act, valueAt(place)}); // the first entry of a word counts
    }

    std::unordered_map<std::string_view, Word, HashOfWord> m_words;
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
