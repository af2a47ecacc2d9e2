// Backup copies of planners in the folder `backups` of the application directory: one before the first save of each
// day. The last ten of each planner are kept. Planners on a server are left to its administrator.
#pragma once

#include <QString>

QString BackupFolder();
QString PlaceOfBackups(); // the folder, in words for the person

// Call this before writing to the open planner. Does nothing if today's copy exists. If the copy fails, logs the error
// and returns the reason; otherwise returns an empty text. A failed copy does not stop the save, and a copy leaves the
// room that the save needs. A damaged planner pushes out no older copy.
QString BackUpBeforeSave();

// Copies the open planner as it is now, in place of the copy before the last import. Returns why it cannot, else an
// empty text. Does nothing for a planner on a server.
QString BackUpBeforeImport();
