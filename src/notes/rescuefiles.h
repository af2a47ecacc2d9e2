// Keeps notes that no planner took as rich text files, named by planner and day.
#pragma once

#include <QFileInfoList>

class UnsavedNotes;

QString RescueFolder();
QFileInfoList RescueFilesOf(const QString& planner, const QString& key); // of planners of this file name, in any folder

// Writes one file per note and never replaces a file. Stops at the first error, which is logged under the literal, and
// returns its reason, else an empty text.
QString WriteRescueFiles(const UnsavedNotes& notes, QLatin1StringView literal);
