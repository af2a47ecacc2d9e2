// A planner of ten years with a note in every cell, days and memos: 120 months of 35 notes.
#pragma once

#include "notes.h"

#include <QStringList>

struct YearMonth
{
    int year;
    int month;
    YearMonth Next() const { return month == 12 ? YearMonth{year + 1, 1} : YearMonth{year, month + 1}; }
};

YearMonth ThisMonth();               // stands in the midst of the ten years
QStringList KeysOf(YearMonth month); // of cells 1 to 35
int NoteNumber(YearMonth month, int cell);

void WritePlanner(const QString& path);

// A home with settings that load a copy of the planner at the start, as a person would have it.
struct Home
{
    QString Folder;
    QString Planner() const { return Folder + QStringLiteral("/tenyears.mdb"); }
    QString Config() const { return Folder + QStringLiteral("/config"); }
    QString Data() const { return Folder + QStringLiteral("/data"); }
};

void Furnish(const Home& home, const QString& planner);
void UseHome(const Home& home); // for this process and those it starts
