// The names of the files that stand beside a planner.
#pragma once

#include <QString>

// NAME.ldb beside NAME.mdb.
QString LockFileOf(const QString& planner);

// NAME.WORD.mdb beside NAME.mdb, else NAME.WORD2.mdb and so on: a name that no planner has, and nothing beside one.
QString FreeNameBeside(const QString& planner, QLatin1StringView word);

// The same without an extension: NAME.bak beside NAME.mdb, else NAME.bak2 and so on.
QString FreeBackupOf(const QString& planner);
