// A planner of ten years, or of a chosen number, with a note in every cell: 12 months a year, 35 notes each.
#pragma once

#include "notes.h"

#include <QStringList>

struct YearMonth
{
    int year;
    int month;
    YearMonth Next() const { return month == 12 ? YearMonth{year + 1, 1} : YearMonth{year, month + 1}; }
};

YearMonth ThisMonth();               // in the middle of the years
QStringList KeysOf(YearMonth month); // of cells 1 to 35
int NoteNumber(YearMonth month, int cell);

inline constexpr int UsualYears = 10;
void WritePlanner(const QString& path, int years);

// A home whose settings load a copy of the planner at start.
struct Home
{
    QString Folder;
    QString Planner() const { return Folder + u"/tenyears.mdb"_s; }
    QString Config() const { return Folder + u"/config"_s; }
    QString Data() const { return Folder + u"/data"_s; }
};

void Furnish(const Home& home, const QString& planner);
void UseHome(const Home& home); // for this process and its children
