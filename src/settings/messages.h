// Texts that several rooms show.
#pragma once

#include "platform/desktop/msgbox.h"

namespace messages {
using msgbox::HelpWizard;
using msgbox::Tell;
inline const QString WindowTitle = u"Orrelin for Windows 95/98/NT - "_s;
inline const QString PlannerFilter = u"Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*"_s;
// %1 separates the two ways.
inline const QString NoPlanner =
    u"No Planner Exists!\n\nUse 'File' | 'New' to create a new planner or%1Use 'File | Open' to open an "
    "existing planner"_s;
inline const QString NoPlannerForEvents =
    u"No Planner Exists!\nUse 'File' | 'New' to create a new planner or\nUse 'File | Open' to open an "
    "existing planner"_s;
// %1 is what workgroups may not use.
inline const QString NotShared =
    u"%1 for a shared database is not allowed. You need to open the database as a 'Personal Planner' to have "
    "exclusiveness to the database. Please read the helpfile (F1) for more information."_s;
inline const QString AskUpgrade =
    u"You have an older version of the database, Orrelin will upgrade the older database to current version. Make sure "
    "you back up your existing database first! Do you want to proceed?"_s;
} // namespace messages
