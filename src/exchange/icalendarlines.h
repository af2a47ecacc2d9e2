// The lines of an iCalendar file, and what stands in a line.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QMap>

#include <optional>

struct CalendarProperty
{
    int line = 0;                            // in the file, from 1
    QByteArray name;                         // in capitals
    QMap<QByteArray, QByteArray> parameters; // those that matter here
    QByteArray value;
};

// Nothing for a line without a colon.
std::optional<CalendarProperty> PropertyOf(int number, const QByteArray& line);

QByteArray AsUtf8(QByteArray file); // from UTF-16; without marks and NUL bytes

// Lines may end with LF, CR LF, CR or CR CR LF. Folded ones are joined before anything is decoded, since a fold may
// stand within a letter.
class CalendarLines
{
public:
    explicit CalendarLines(const QByteArray& text) : m_rest(text) {}

    bool Next();
    int Number() const { return m_number; }
    const QByteArray& Line() const { return m_line; }
    qsizetype Left() const { return m_rest.size(); }

private:
    QByteArrayView TakeLine();

    QByteArrayView m_rest;
    QByteArray m_line;
    int m_number = 0, m_nextNumber = 1;
};
