// What a file of another program brings into a planner. Plain values.
#pragma once

#include "exchange/extract.h"

#include <QDate>
#include <QStringList>
#include <QTextCharFormat>
#include <QTimeZone>

struct ImportChoices
{
    QTextCharFormat form; // of text that has none of its own
    QTimeZone zone;       // of the person's clock
    QDate endlessUntil;   // rules without an end are written up to this day
    QString folder;       // of the file, for the pictures beside it
};

// An event, a task or a note of the file; a changed occurrence of a repeated event is an entry of its own.
struct ImportedEntry
{
    QString id;               // the same in a later file of the same calendar, and unique in the file; empty: no
                              // later file can change it
    QString title;            // one line for the person, without the date: "10:30 Dentist"
    QString remark;           // how it differs from the file, or why it is not taken; may be empty
    bool isTicked = true;     // before the person chooses
    bool isCancelled = false; // so without a tick, what a former import wrote of it is taken out
    bool repeats = false;     // by a rule
    bool isEndless = false;   // its rule has no end
    std::vector<ExtractedNote> notes; // its text in each of its days, in the order of the calendar
    std::vector<ExtractedAlarm> alarms;
    bool takesAlarms = true; // else those of a former import stay as they are
};

struct ImportedFile
{
    std::vector<ImportedEntry> entries; // in the order of their first days
    QStringList leftOut;                // what cannot be read, with its line in the file: "Line 120: ..."
    QString refusal;                    // why nothing can be read at all; empty if anything can
};
