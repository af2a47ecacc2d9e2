// The text of one INI file: finding a value in it and setting one. Knows no files; any bytes are a valid text.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

class IniFile
{
public:
    IniFile() = default;
    explicit IniFile(const QByteArray& text);

    const QByteArray& Text() const { return m_text; }
    bool HasSection(const QString& section) const;

    // Without the blanks around it and one pair of quotes; empty if the key is absent.
    std::optional<QString> Value(const QString& section, const QString& key) const;

private:
    struct Place
    {
        qsizetype Start;
        qsizetype Length;
    };

    QByteArray m_text;
    QSet<QString> m_sections;       // folded
    QHash<QString, Place> m_values; // by section and key, folded
};

enum class Quotes
{
    WhereNeeded, // where reading would strip something of the value
    Never        // of a number, whose readers skip blanks
};

// The text with this one value set, all other bytes as they were; a missing section or key is added. Line breaks in the
// value become blanks. Empty if no INI file can hold such a section or key.
std::optional<QByteArray> WithValue(const QByteArray& text, const QString& section, const QString& key,
                                    const QString& value, Quotes quotes = Quotes::WhereNeeded);
