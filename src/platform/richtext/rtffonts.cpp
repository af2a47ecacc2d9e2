#include "platform/richtext/rtffonts.h"

#include "platform/richtext/rtfcodepage.h"

void RtfFonts::Begin(int number)
{
    m_places.insert(number, static_cast<int>(m_entries.size()));
    m_entries.append(Entry{});
    m_isOpen = true;
}

void RtfFonts::SetCharset(int charset)
{
    SetCodePage(CodePageOfCharset(charset));
}

void RtfFonts::SetCodePage(int codePage)
{
    if (!m_entries.isEmpty()) m_entries.last().codePage = codePage;
}

void RtfFonts::AppendName(const QString& name)
{
    if (m_isOpen) m_entries.last().family += name;
}

int RtfFonts::CodePageOfOpenEntry() const
{
    return m_entries.isEmpty() ? 0 : m_entries.last().codePage;
}

int RtfFonts::PlaceOf(int number) const
{
    return m_places.value(number, -1);
}

QString RtfFonts::FamilyAt(int place) const
{
    return m_entries.value(place).family;
}

int RtfFonts::CodePageAt(int place) const
{
    return m_entries.value(place).codePage;
}
