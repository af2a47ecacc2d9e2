// The text of one INI file: finding a value in it and setting one. Knows no files; any bytes are a valid text.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

enum class Quotes
{
    WhereNeeded, // where reading would strip something of the value
    Never        // of a number, whose readers skip blanks
};

class IniFile
{
public:
    IniFile() = default;
    explicit IniFile(const QByteArray& text);

    const QByteArray& Text() const { return m_text; }
    bool HasSection(const QString& section) const;

    // Without the blanks around it and one pair of quotes; empty if the key is absent.
    std::optional<QString> Value(const QString& section, const QString& key) const;

    // With this one value set, all other bytes as they were; a missing section or key is added. Line breaks in the
    // value become blanks. Empty if no INI file can hold such a section or key.
    std::optional<IniFile> With(const QString& section, const QString& key, const QString& value,
                                Quotes quotes = Quotes::WhereNeeded) const;

private:
    struct Place
    {
        qsizetype Start;
        qsizetype Length;
    };

    QByteArray m_text;
    QHash<QString, qsizetype> m_sections; // folded; behind the last line of the first of its name that is not blank
    QHash<QString, Place> m_values;       // by section and key, folded
};
