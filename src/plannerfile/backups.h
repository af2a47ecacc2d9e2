// Copies of planners in `backups` of the application directory: one before the first save of each day, the last ten of
// each planner. A planner on a server is its administrator's to copy.
#pragma once

#include <QString>

QString BackupFolder();
QString PlaceOfBackups(); // where they are, in words

// To be called before the open planner is written. Does nothing where today's copy is there. A copy that fails is
// logged, and the reason returned, else nothing: it must not keep anybody from saving, nor take the room that the save
// needs. A copy of what is damaged takes no sound one's place.
QString BackUpBeforeSave();
