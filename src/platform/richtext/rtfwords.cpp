// The control words and what they do.
#include "platform/richtext/rtfinterpreter.h"

#include <QTextFormat>
#include <QTextOption>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

using Reader = RtfInterpreter;

namespace {
consteval int PlaceOfUnderline(std::string_view word)
{
    return static_cast<int>(std::ranges::find(RtfUnderlines, word, &RtfUnderline::word) - std::begin(RtfUnderlines));
}
} // namespace

constexpr RtfInterpreter::Word RtfInterpreter::Words[] = {
    {"aftncn", &Reader::EnterDestination, Skipped},
    {"aftnsep", &Reader::EnterDestination, Skipped},
    {"aftnsepc", &Reader::EnterDestination, Skipped},
    {"annotation", &Reader::EnterDestination, Skipped},
    {"ansi", &Reader::SetCodePage, AnsiCodePage},
    {"ansicpg", &Reader::SetCodePage},
    {"atnauthor", &Reader::EnterDestination, Skipped},
    {"atnid", &Reader::EnterDestination, Skipped},
    {"b", &Reader::SetStyle, int(RtfStyle::Bold)},
    {"bkmkend", &Reader::EnterDestination, Skipped},
    {"bkmkstart", &Reader::EnterDestination, Skipped},
    {"blue", &Reader::SetColorPart},
    {"bullet", &Reader::PutCharacter, 0x2022},
    {"caps", &Reader::SetStyle, int(RtfStyle::AllCaps)},
    {"cb", &Reader::SetBackground},
    {"cell", &Reader::EndCell},
    {"cf", &Reader::SetColor},
    {"chcbpat", &Reader::SetBackground},
    {"colorschememapping", &Reader::EnterDestination, Skipped},
    {"colortbl", &Reader::EnterDestination, ColorTable},
    {"column", &Reader::EndPage},
    {"comment", &Reader::EnterDestination, Skipped},
    {"cpg", &Reader::SetFontCodePage},
    {"datafield", &Reader::EnterDestination, Skipped},
    {"datastore", &Reader::EnterDestination, Skipped},
    {"deff", &Reader::SetDefaultFont},
    {"dn", &Reader::SetRise, -1},
    {"do", &Reader::EnterDestination, Skipped},
    {"emdash", &Reader::PutCharacter, 0x2014},
    {"emspace", &Reader::PutCharacter, 0x2003},
    {"endash", &Reader::PutCharacter, 0x2013},
    {"enspace", &Reader::PutCharacter, 0x2002},
    {"f", &Reader::SetFont},
    {"falt", &Reader::EnterDestination, Skipped},
    {"fcharset", &Reader::SetFontCharset},
    {"fi", &Reader::SetMeasure, RtfParagraph::First},
    {"filetbl", &Reader::EnterDestination, Skipped},
    {"field", &Reader::BeginField},
    {"fldinst", &Reader::EnterDestination, Instruction},
    {"fname", &Reader::EnterDestination, Skipped},
    {"fontemb", &Reader::EnterDestination, Skipped},
    {"fonttbl", &Reader::EnterDestination, FontTable},
    {"footer", &Reader::EnterDestination, Skipped},
    {"footerf", &Reader::EnterDestination, Skipped},
    {"footerl", &Reader::EnterDestination, Skipped},
    {"footerr", &Reader::EnterDestination, Skipped},
    {"footnote", &Reader::EnterDestination, Skipped},
    {"fs", &Reader::SetFontSize},
    {"ftncn", &Reader::EnterDestination, Skipped},
    {"ftnsep", &Reader::EnterDestination, Skipped},
    {"ftnsepc", &Reader::EnterDestination, Skipped},
    {"generator", &Reader::EnterDestination, Skipped},
    {"green", &Reader::SetColorPart, 8},
    {"header", &Reader::EnterDestination, Skipped},
    {"headerf", &Reader::EnterDestination, Skipped},
    {"headerl", &Reader::EnterDestination, Skipped},
    {"headerr", &Reader::EnterDestination, Skipped},
    {"highlight", &Reader::SetBackground},
    {"i", &Reader::SetStyle, int(RtfStyle::Italic)},
    {"info", &Reader::EnterDestination, Skipped},
    {"latentstyles", &Reader::EnterDestination, Skipped},
    {"ldblquote", &Reader::PutCharacter, 0x201C},
    {"li", &Reader::SetMeasure, RtfParagraph::Left},
    {"line", &Reader::PutCharacter, QChar::LineSeparator},
    {"listoverridetable", &Reader::EnterDestination, Skipped},
    {"listtable", &Reader::EnterDestination, Skipped},
    {"lquote", &Reader::PutCharacter, 0x2018},
    {"ltrmark", &Reader::PutCharacter, 0x200E},
    {"ltrpar", &Reader::SetDirection, false},
    {"mac", &Reader::SetCodePage, MacCodePage},
    {"nestcell", &Reader::EndCell},
    {"nesttableprops", &Reader::EnterDestination, Body},
    {"nestrow", &Reader::EndRow},
    {"nonesttables", &Reader::EnterDestination, Skipped},
    {"nonshppict", &Reader::EnterDestination, Skipped},
    {"nosupersub", &Reader::SetVertical, QTextCharFormat::AlignNormal},
    {"objalias", &Reader::EnterDestination, Skipped},
    {"objclass", &Reader::EnterDestination, Skipped},
    {"objdata", &Reader::EnterDestination, Skipped},
    {"object", &Reader::Object},
    {"objname", &Reader::EnterDestination, Skipped},
    {"objsect", &Reader::EnterDestination, Skipped},
    {"page", &Reader::EndPage},
    {"panose", &Reader::EnterDestination, Skipped},
    {"par", &Reader::EndParagraph},
    {"pard", &Reader::SetParagraphPlain},
    {"pc", &Reader::SetCodePage, PcCodePage},
    {"pca", &Reader::SetCodePage, PcMultilingualCodePage},
    {"pict", &Reader::Picture},
    {"plain", &Reader::SetPlain},
    {"pnseclvl", &Reader::EnterDestination, Skipped},
    {"pntxta", &Reader::EnterDestination, Skipped},
    {"pntxtb", &Reader::EnterDestination, Skipped},
    {"private", &Reader::EnterDestination, Skipped},
    {"qc", &Reader::SetAlignment, Qt::AlignHCenter},
    {"qd", &Reader::SetAlignment, Qt::AlignJustify},
    {"qj", &Reader::SetAlignment, Qt::AlignJustify},
    {"ql", &Reader::SetAlignment, Qt::AlignLeft},
    {"qmspace", &Reader::PutCharacter, 0x2005},
    {"qr", &Reader::SetAlignment, Qt::AlignRight},
    {"rdblquote", &Reader::PutCharacter, 0x201D},
    {"red", &Reader::SetColorPart, 16},
    {"revtbl", &Reader::EnterDestination, Skipped},
    {"ri", &Reader::SetMeasure, RtfParagraph::Right},
    {"row", &Reader::EndRow},
    {"rquote", &Reader::PutCharacter, 0x2019},
    {"rsidtbl", &Reader::EnterDestination, Skipped},
    {"rtlmark", &Reader::PutCharacter, 0x200F},
    {"rtlpar", &Reader::SetDirection, true},
    {"rxe", &Reader::EnterDestination, Skipped},
    {"sa", &Reader::SetMeasure, RtfParagraph::After},
    {"sb", &Reader::SetMeasure, RtfParagraph::Before},
    {"scaps", &Reader::SetStyle, int(RtfStyle::SmallCaps)},
    {"sect", &Reader::EndPage},
    {"shpgrp", &Reader::EnterDestination, Structure},
    {"shpinst", &Reader::EnterDestination, Structure},
    {"shppict", &Reader::EnterDestination, Body},
    {"shprslt", &Reader::EnterDestination, Skipped},
    {"shptxt", &Reader::EnterDestination, Body},
    {"sl", &Reader::SetLineSpacing},
    {"slmult", &Reader::SetLineMultiple},
    {"sn", &Reader::EnterDestination, Skipped},
    {"softline", &Reader::PutCharacter, QChar::LineSeparator},
    {"sp", &Reader::EnterDestination, Structure},
    {"strike", &Reader::SetStyle, int(RtfStyle::StrikeOut)},
    {"striked", &Reader::SetStyle, int(RtfStyle::StrikeOut)},
    {"stylesheet", &Reader::EnterDestination, Skipped},
    {"sub", &Reader::SetVertical, QTextCharFormat::AlignSubScript},
    {"super", &Reader::SetVertical, QTextCharFormat::AlignSuperScript},
    {"sv", &Reader::EnterDestination, Structure},
    {"tab", &Reader::PutCharacter, '\t'},
    {"tc", &Reader::EnterDestination, Skipped},
    {"tcn", &Reader::EnterDestination, Skipped},
    {"template", &Reader::EnterDestination, Skipped},
    {"themedata", &Reader::EnterDestination, Skipped},
    {"tqc", &Reader::SetTabType, QTextOption::CenterTab},
    {"tqdec", &Reader::SetTabType, QTextOption::DelimiterTab},
    {"tql", &Reader::SetTabType, QTextOption::LeftTab},
    {"tqr", &Reader::SetTabType, QTextOption::RightTab},
    {"tx", &Reader::AddTab},
    {"txe", &Reader::EnterDestination, Skipped},
    {"u", &Reader::PutUnicode},
    {"uc", &Reader::SetFallbackLength},
    {"ud", &Reader::EnterDestination, Body},
    {"ul", &Reader::SetUnderline, PlaceOfUnderline("ul")},
    {"uld", &Reader::SetUnderline, PlaceOfUnderline("uld")},
    {"uldash", &Reader::SetUnderline, PlaceOfUnderline("uldash")},
    {"uldashd", &Reader::SetUnderline, PlaceOfUnderline("uldashd")},
    {"uldashdd", &Reader::SetUnderline, PlaceOfUnderline("uldashdd")},
    {"uldb", &Reader::SetUnderline, PlaceOfUnderline("uldb")},
    {"ulhair", &Reader::SetUnderline, PlaceOfUnderline("ulhair")},
    {"ulhwave", &Reader::SetUnderline, PlaceOfUnderline("ulhwave")},
    {"ulldash", &Reader::SetUnderline, PlaceOfUnderline("ulldash")},
    {"ulnone", &Reader::SetUnderline, PlaceOfUnderline("ulnone")},
    {"ulth", &Reader::SetUnderline, PlaceOfUnderline("ulth")},
    {"ulthd", &Reader::SetUnderline, PlaceOfUnderline("ulthd")},
    {"ulthdash", &Reader::SetUnderline, PlaceOfUnderline("ulthdash")},
    {"ulthdashd", &Reader::SetUnderline, PlaceOfUnderline("ulthdashd")},
    {"ulthdashdd", &Reader::SetUnderline, PlaceOfUnderline("ulthdashdd")},
    {"ulthldash", &Reader::SetUnderline, PlaceOfUnderline("ulthldash")},
    {"ululdbwave", &Reader::SetUnderline, PlaceOfUnderline("ululdbwave")},
    {"ulw", &Reader::SetUnderline, PlaceOfUnderline("ulw")},
    {"ulwave", &Reader::SetUnderline, PlaceOfUnderline("ulwave")},
    {"up", &Reader::SetRise, 1},
    {"upr", &Reader::EnterDestination, Structure},
    {"v", &Reader::SetStyle, int(RtfStyle::Hidden)},
    {"xe", &Reader::EnterDestination, Skipped},
    {"xmlnstbl", &Reader::EnterDestination, Skipped},
    {"zwbo", &Reader::PutCharacter, 0x200B},
    {"zwj", &Reader::PutCharacter, 0x200D},
    {"zwnbo", &Reader::PutCharacter, 0x2060},
    {"zwnj", &Reader::PutCharacter, 0x200C},
};

namespace {

constexpr std::size_t SlotCount = 1024; // a power of two, and sparse, so that a search ends at once
using Slots = std::array<quint8, SlotCount>;

constexpr std::size_t SlotOf(std::string_view name)
{
    std::uint32_t hash = 0;
    for (const char letter : name)
        hash = hash * 31 + static_cast<unsigned char>(letter);
    return (hash ^ hash >> 10) % SlotCount;
}

// Places in the table of words, counted from 1; 0 is an empty slot. A taken slot sends on to the next.
template <typename Word, std::size_t count>
consteval Slots SlotsOf(const Word (&words)[count])
{
    static_assert(count < 256);
    Slots slots{};
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t slot = SlotOf(words[i].name);
        while (slots[slot] != 0)
            slot = (slot + 1) % SlotCount;
        slots[slot] = static_cast<quint8>(i + 1);
    }
    return slots;
}

} // namespace

const RtfInterpreter::Word* RtfInterpreter::Find(QByteArrayView name)
{
    static constexpr Slots Placed = SlotsOf(Words);
    const std::string_view wanted(name.data(), static_cast<std::size_t>(name.size()));
    for (std::size_t slot = SlotOf(wanted); Placed[slot] != 0; slot = (slot + 1) % SlotCount)
        if (const Word& word = Words[Placed[slot] - 1]; word.name == wanted) return &word;
    return nullptr;
}
