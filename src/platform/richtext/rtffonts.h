// The font table while rich text is read. Knows only QtCore.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

struct RtfSymbols;

class RtfFonts
{
public:
    // Definition: a number begins an entry, a semicolon ends its name. The last entry of a number counts.
    void Begin(int number);
    void SetCharset(int charset);
    void SetCodePage(int codePage);
    void AppendName(const QString& name);
    void EndName() { m_isOpen = false; }
    void SetDefault(int number);

    int CodePageOfOpenEntry() const; // 0: the document's page

    // Use: places stay valid while the table grows. -1 is the default font.
    int PlaceOf(int number) const { return m_places.value(number, -1); }
    int PlaceOfDefault() const { return m_defaultPlace; }
    QString FamilyAt(int place) const { return m_entries.value(place).family; } // empty if it has no name
    int CodePageAt(int place) const { return m_entries.value(place).codePage; } // 0: the document's
    bool HoldsSymbolsAt(int place) const { return place >= 0 && m_entries[place].holdsSymbols; }
    const RtfSymbols* SymbolsAt(int place) const; // null if it is no symbol font, by charset or name

private:
    struct Entry
    {
        QString family;
        int codePage = 0;
        bool holdsSymbols = false;
    };

    QList<Entry> m_entries;
    QHash<int, int> m_places;
    int m_defaultNumber = 0;
    int m_defaultPlace = -1;
    bool m_isOpen = false;
};
