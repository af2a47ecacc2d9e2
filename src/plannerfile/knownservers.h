// The servers that this person has let planners lead to. A link lies about on shared drives, and its writer
// could have the program log in anywhere with this person's name and password.
#pragma once

#include <QString>

// True for a planner in its file, and for a link to a server that is known. Before the first connection to another one
// it shows where the link leads and asks. Errors as DBEngine::OpenDatabase.
bool MayConnect(const QString& planner);

void RememberServer(const QString& address); // one that the person has given, as DBEngine::MoveToServer takes it
