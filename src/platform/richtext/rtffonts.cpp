#include "platform/richtext/rtffonts.h"

#include "platform/richtext/rtfcodepage.h"
#include "platform/richtext/rtfsymbols.h"

namespace {
constexpr int SymbolCharset = 2;

// Further fonts are read as the default font: a document compares each new family with all others.
constexpr qsizetype MostFonts = 2000;
} // namespace

void RtfFonts::Begin(int number)
{
    m_isOpen = m_entries.size() < MostFonts;
    if (!m_isOpen) return;
    m_places.insert(number, static_cast<int>(m_entries.size()));
    m_entries.append(Entry{});
    if (number == m_defaultNumber) SetDefault(number);
}

void RtfFonts::SetDefault(int number)
{
    m_defaultNumber = number;
    m_defaultPlace = PlaceOf(number);
}

void RtfFonts::SetCharset(int charset)
{
    SetCodePage(CodePageOfCharset(charset));
    if (m_isOpen) m_entries.last().holdsSymbols = charset == SymbolCharset;
}

void RtfFonts::SetCodePage(int codePage)
{
    if (m_isOpen) m_entries.last().codePage = codePage;
}

void RtfFonts::AppendName(const QString& name)
{
    if (m_isOpen) m_entries.last().family += name;
}

int RtfFonts::CodePageOfOpenEntry() const
{
    return m_isOpen ? m_entries.last().codePage : 0;
}

const RtfSymbols* RtfFonts::SymbolsAt(int place) const
{
    const RtfSymbols* const known = SymbolsOfFamily(FamilyAt(place));
    return !known && HoldsSymbolsAt(place) ? &AnySymbols() : known;
}
