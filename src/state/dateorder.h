// The machine's order of a date's parts, for the boxes that a date is typed into. The program's own order is always
// month first.
#pragma once

#include <QString>

inline constexpr int LastYearOfBox = 9999; // the arrows of the calendar lead beyond it

struct DateOrder
{
    QString label; // "MM/DD/YYYY"
    QString mask;  // of the box, "##/##/####"
    int month;     // start of each part in the text; month and day have two characters, the year four
    int day;
    int year;

    QString EntryDate(const QString& boxText) const; // month/day/year, padded as in the box
    QString BoxText(int year, int month, int day) const;
    QString BoxText(const QString& dateKey) const;
};

const DateOrder& DateOrderOf(int iDate); // 0 month first, 1 day first, 2 year first; others count as 0
const DateOrder& LocalDateOrder();       // read from WIN.INI at each call
