#include "platform/richtext/rtfcodepage.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace {

struct PageOfNumber
{
    int number;
    int page;
};

constexpr PageOfNumber Charsets[] = {
    {0, 1252},   {2, 1252},   {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002}, {83, 10005},
    {85, 10006}, {86, 10081}, {87, 10021}, {88, 10029}, {89, 10007}, {128, 932},  {129, 949},  {130, 949},
    {134, 936},  {136, 950},  {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
    {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

// Pages that the decoders lack are replaced by similar ones.
constexpr PageOfNumber Aliases[] = {{10001, 932},  {10002, 950}, {10003, 949},
                                    {10005, 1255}, {10008, 936}, {10021, 874}};

constexpr int Consoles[] = {437, 720, 737, 775, 850, 852, 855, 857, 858, 860, 861, 862, 863, 864, 865, 866, 869};
constexpr int Windows[] = {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};
constexpr int OfSeveralBytes[] = {932, 936, 949, 950, 54936, 65001};

struct OtherPage
{
    int number;
    const char* name;
};
constexpr OtherPage OtherPages[] = {
    {10000, "macintosh"},     {10006, "x-mac-greek"}, {10007, "x-mac-cyrillic"}, {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"}, {54936, "gb18030"},     {65001, "utf-8"}};

int PageOf(int number, std::span<const PageOfNumber> pages, int otherwise)
{
    const auto found = std::ranges::find(pages, number, &PageOfNumber::number);
    return found == pages.end() ? otherwise : found->page;
}

bool IsIn(std::span<const int> numbers, int number)
{
    return std::ranges::find(numbers, number) != numbers.end();
}

struct CodePage
{
    int number;
    bool takesSeveralBytes;

    QByteArray Name() const
    {
        const auto other = std::ranges::find(OtherPages, number, &OtherPage::number);
        if (other != std::end(OtherPages)) return other->name;
        return (IsIn(Consoles, number) ? "ibm-" : "windows-") + QByteArray::number(number);
    }
};

CodePage PageOf(int number)
{
    number = PageOf(number, Aliases, number);
    const bool isKnown = IsIn(Consoles, number) || IsIn(Windows, number) ||
                         std::ranges::find(OtherPages, number, &OtherPage::number) != std::end(OtherPages);
    return {isKnown ? number : AnsiCodePage, isKnown && IsIn(OfSeveralBytes, number)};
}

using UpperHalf = std::array<char16_t, 128>;

UpperHalf ReadUpperHalf(const CodePage& page)
{
    UpperHalf upperHalf;
    QStringDecoder decoder(page.Name().constData());
    for (int i = 0; i < 128; ++i) {
        const char byte = static_cast<char>(128 + i);
        const QString decoded = decoder.decode(QByteArrayView(&byte, 1));
        upperHalf[i] = decoded.size() == 1 ? decoded[0].unicode() : u'\uFFFD';
    }
    return upperHalf;
}

// Cached, since creating a decoder takes longer than reading a note.
const UpperHalf& UpperHalfOf(const CodePage& page)
{
    thread_local QHash<int, UpperHalf> upperHalves;
    const auto known = upperHalves.constFind(page.number);
    return known != upperHalves.cend() ? *known : *upperHalves.insert(page.number, ReadUpperHalf(page));
}

bool IsAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 128;
}

QString DecodeSingleBytes(QByteArrayView bytes, const CodePage& page)
{
    QString text = QString::fromLatin1(bytes);
    if (std::ranges::all_of(bytes, IsAscii)) return text;
    const UpperHalf& upperHalf = UpperHalfOf(page);
    for (QChar& character : text)
        if (character.unicode() > 127) character = upperHalf[character.unicode() - 128];
    return text;
}

constexpr QChar Substitute(0x1A); // some decoders' substitute for broken characters

bool IsMostlyBroken(const QString& text)
{
    const auto broken = text.count(QChar(QChar::ReplacementCharacter));
    const auto foreign = std::ranges::count_if(text, [](QChar character) { return character.unicode() > 127; });
    return foreign == 0 || broken * 2 > foreign; // a truncated character leaves no trace
}

} // namespace

int CodePageOfCharset(int charset)
{
    return PageOf(charset, Charsets, 0);
}

QString DecodeRtfBytes(QByteArrayView bytes, int codePage, int otherPage)
{
    const CodePage page = PageOf(codePage);
    if (!page.takesSeveralBytes) return DecodeSingleBytes(bytes, page);
    QStringDecoder decoder(page.Name().constData(), QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (!decoder.hasError()) return text;
    text.replace(Substitute, QChar::ReplacementCharacter);
    const CodePage other = PageOf(otherPage);
    return !other.takesSeveralBytes && IsMostlyBroken(text) ? DecodeSingleBytes(bytes, other) : text;
}
