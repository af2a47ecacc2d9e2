// The servers that this person has allowed links to lead to. Links lie on shared drives. The author of a link could
// have the program log in anywhere with this person's name and password.
#pragma once

#include <QString>

// True for a planner file, and for a link to a known server. Errors as DBEngine::OpenDatabase.
bool LeadsToKnownServer(const QString& planner);
// The same, but before the first connection to another server it shows where the link leads and asks.
bool MayConnect(const QString& planner);

void RememberServer(const QString& address); // an address as DBEngine::MoveToServer takes it
