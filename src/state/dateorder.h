// The order in which the machine writes a date, for the boxes in which a person types one. The program's own order is
// month first, whatever the machine's is.
#pragma once

#include <QString>

struct DateOrder
{
    QString label; // "MM/DD/YYYY"
    QString mask;  // of the box, "##/##/####"
    int month;     // where each begins in the box's text; month and day have two characters, the year four
    int day;
    int year;

    QString EntryDate(const QString& boxText) const; // month/day/year, padded as the box has it
    QString BoxText(int year, int month, int day) const;
    QString BoxText(const QString& dateKey) const;
};

const DateOrder& DateOrderOf(int iDate); // 0 month first, 1 day first, 2 year first; others as 0
const DateOrder& LocalDateOrder();       // as WIN.INI has it at this moment
