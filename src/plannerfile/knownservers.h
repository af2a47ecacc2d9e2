// The servers that this person has allowed links to lead to. Links lie on shared drives. The author of a link could
// have the program log in anywhere with this person's name and password.
#pragma once

#include <QString>

// True for a planner file, and for a link to a known server. Before the first connection to another server, shows where
// the link leads and asks. Errors as DBEngine::OpenDatabase.
bool MayConnect(const QString& planner);

void RememberServer(const QString& address); // an address as DBEngine::MoveToServer takes it
