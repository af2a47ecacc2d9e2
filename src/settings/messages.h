// Texts that more than one room shows.
#pragma once

#include <QString>

namespace messages {
inline const QString HelpWizard = QStringLiteral("Orrelin Help Wizard");
inline const QString WindowTitle = QStringLiteral("Orrelin for Windows 95/98/NT - ");
inline const QString PlannerFilter = QStringLiteral("Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*");
// %1 is what parts the two ways.
inline const QString NoPlanner =
    QStringLiteral("No Planner Exists!\n\nUse 'File' | 'New' to create a new planner or%1Use 'File | Open' to open an "
                   "existing planner");
inline const QString NoPlannerForEvents =
    QStringLiteral("No Planner Exists!\nUse 'File' | 'New' to create a new planner or\nUse 'File | Open' to open an "
                   "existing planner");
// %1 is what is not for workgroups.
inline const QString NotShared = QStringLiteral(
    "%1 for a shared database is not allowed. You need to open the database as a 'Personal Planner' to have "
    "exclusiveness to the database. Please read the helpfile (F1) for more information.");
inline const QString AskUpgrade = QStringLiteral(
    "You have an older version of the database, Orrelin will upgrade the older database to current version. Make sure "
    "you back up your existing database first! Do you want to proceed?");
} // namespace messages
