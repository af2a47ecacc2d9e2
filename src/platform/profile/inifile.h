// The text of one INI file: finds a value and sets one. Does not touch files; any bytes are a valid text.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

enum class Quotes
{
    WhereNeeded, // if reading would strip the value
    Never        // for numbers, whose readers skip blanks
};

class IniFile
{
public:
    IniFile() = default;
    explicit IniFile(const QByteArray& text);

    const QByteArray& Text() const { return m_text; }
    bool HasSection(const QString& section) const;

    // Without surrounding blanks and one pair of quotes; empty if the key is absent.
    std::optional<QString> Value(const QString& section, const QString& key) const;

    // The text with this value set and all other bytes unchanged. A missing section or key is added. Line breaks in the
    // value become blanks. Empty if an INI file cannot hold such a section or key.
    std::optional<IniFile> With(const QString& section, const QString& key, const QString& value,
                                Quotes quotes = Quotes::WhereNeeded) const;

private:
    struct Place
    {
        qsizetype Start;
        qsizetype Length;
    };

    QByteArray m_text;
    QHash<QString, qsizetype>
        m_sections;                 // case-folded; end of the last non-blank line of the first section of that name
    QHash<QString, Place> m_values; // by section and key, case-folded
};
