// Notes that no planner would take, each as a rich text file of its own, named after its planner and day.
#pragma once

#include <QString>

class UnsavedNotes;

QString RescueFolder();

// Writes a file for each note; an existing file is never replaced. Why one could not be written, which is logged under
// the literal, else nothing; those before it stay.
QString WriteRescueFiles(const UnsavedNotes& notes, QLatin1StringView literal);
