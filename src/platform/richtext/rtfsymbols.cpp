#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <iterator>

using namespace std::string_view_literals;

namespace {

// Sixteen characters per row, from the blank on; NUL: no sign. Variants in weight or shadow are mapped to the nearest
// sign that common fonts have.
constexpr std::u32string_view Greek = U" !∀#∃%&∋()∗+,−./"
                                      U"0123456789:;<=>?"
                                      U"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟ"
                                      U"ΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                      U"‾αβχδεφγηιϕκλμνο"
                                      U"πθρστυϖωξψζ{|}∼\0"
                                      U"\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                      U"\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                      U"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓"
                                      U"°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
                                      U"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉"
                                      U"∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                      U"◊〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪"
                                      U"\0〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭\0"sv;

constexpr std::u32string_view Dingbats = U" 🖉✂✁👓🔔📖🕯☎✆✉🖃📪📫📬📭"
                                         U"📁📂📄🗏🗐🗄⌛🖮🖰🖲🖳🖴💾🖬✇✍"
                                         U"🖎✌👌👍👎☜☞☝☟🖐☺😐☹💣☠🏳"
                                         U"🏱✈☼💧❄🕆✞🕈✠✡☪☯ॐ☸♈♉"
                                         U"♊♋♌♍♎♏♐♑♒♓🙰🙵●❍■□"
                                         U"❐❑❒⬧⧫◆❖⬥⌧⮹⌘❀✿❝❞\0"
                                         U"⓪①②③④⑤⑥⑦⑧⑨⑩⓿❶❷❸❹"
                                         U"❺❻❼❽❾❿🙢🙠🙡🙣🙞🙜🙝🙟·•"
                                         U"⬝○🞆🞈◉◎🔿▪◻🟁✦★✶✴✹✵"
                                         U"⯐⌖⟡⌑⯑✪✰🕐🕑🕒🕓🕔🕕🕖🕗🕘"
                                         U"🕙🕚🕛⮰⮱⮲⮳⮴⮵⮶⮷🙪🙫🙕🙔🙗"
                                         U"🙖🙐🙑🙒🙓⌫⌦⮘➢⮙⮛➲➔⮉⮋←"
                                         U"→↑↓↖↗↙↘⬅➡⬆⬇⬉⬈⬋⬊⇦"
                                         U"⇨⇧⇩⬄⇳⬁⬀⬃⬂▭▫✗✓☒☑\0"sv;

constexpr std::u32string_view Zapf = U" ✁✂✃✄☎✆✇✈✉☛☞✌✍✎✏"
                                     U"✐✑✒✓✔✕✖✗✘✙✚✛✜✝✞✟"
                                     U"✠✡✢✣✤✥✦✧★✩✪✫✬✭✮✯"
                                     U"✰✱✲✳✴✵✶✷✸✹✺✻✼✽✾✿"
                                     U"❀❁❂❃❄❅❆❇❈❉❊❋●❍■❏"
                                     U"❐❑❒▲▼◆❖◗❘❙❚❛❜❝❞\0"
                                     U"❨❩❪❫❬❭❮❯❰❱❲❳❴❵\0\0"
                                     U"\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                     U"\0❡❢❣❤❥❦❧♣♦♥♠①②③④"
                                     U"⑤⑥⑦⑧⑨⑩❶❷❸❹❺❻❼❽❾❿"
                                     U"➀➁➂➃➄➅➆➇➈➉➊➋➌➍➎➏"
                                     U"➐➑➒➓➔→↔↕➘➙➚➛➜➝➞➟"
                                     U"➠➡➢➣➤➥➦➧➨➩➪➫➬➭➮➯"
                                     U"\0➱➲➳➴➵➶➷➸➹➺➻➼➽➾\0"sv;

static_assert(Greek.size() == 224 && Dingbats.size() == 224 && Zapf.size() == 224);

constexpr RtfSymbols Fonts[] = {
    {u"Symbol", Greek},
    {u"Wingdings", Dingbats},
    {u"Zapf Dingbats", Zapf},
    {u"ZapfDingbats", Zapf},
    {u"ITC Zapf Dingbats", Zapf},
    {u"Wingdings 2", {}},
    {u"Wingdings 3", {}},
    {u"Webdings", {}},
    {u"Marlett", {}},
};

constexpr char16_t PrivateBase = 0xF000;

char32_t SymbolOf(unsigned char byte, const RtfSymbols& font)
{
    if (byte <= ' ') return byte;
    const std::size_t place = byte - ' ';
    const char32_t symbol = place < font.symbols.size() ? font.symbols[place] : 0;
    return symbol ? symbol : PrivateBase + byte;
}

} // namespace

const RtfSymbols* SymbolsOfFamily(QStringView family)
{
    const auto font = std::ranges::find_if(
        Fonts, [&](const RtfSymbols& one) { return family.compare(one.family, Qt::CaseInsensitive) == 0; });
    return font == std::end(Fonts) ? nullptr : font;
}

const RtfSymbols& AnySymbols()
{
    return Fonts[0];
}

QString DecodeSymbols(QByteArrayView bytes, const RtfSymbols& font)
{
    QString text;
    for (const char byte : bytes) {
        const char32_t symbol = SymbolOf(static_cast<unsigned char>(byte), font);
        text += QStringView(QChar::fromUcs4(symbol));
    }
    return text;
}

bool IsPrivateSymbol(char32_t character)
{
    return character > PrivateBase + U' ' && character <= PrivateBase + 0xFFU;
}

int ByteOfSymbol(char32_t character, const RtfSymbols& font)
{
    if (IsPrivateSymbol(character)) return static_cast<int>(character - PrivateBase);
    const std::size_t place = character ? font.symbols.find(character) : std::u32string_view::npos;
    return place == std::u32string_view::npos ? 0 : static_cast<int>(place) + ' ';
}
