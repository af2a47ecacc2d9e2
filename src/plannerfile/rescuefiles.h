// Notes that no planner would take, each as a rich text file of its own, named after its planner and day.
#pragma once

#include <QString>

class UnsavedNotes;

QString RescueFolder();

// Writes a file for each note; an existing file is never replaced. 75 if one cannot be written; those before it stay.
void WriteRescueFiles(const UnsavedNotes& notes);
