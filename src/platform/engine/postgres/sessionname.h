// How a session names its user and machine to the others: in the one label that any user of a server sees.
#pragma once

#include <QString>

#include <string>

namespace sessionname {
std::string Own(); // at most 63 bytes of ASCII without quotes
// "user 'ann' on machine 'desk3'", or "another user" where the label is no such one.
QString Person(const QString& label);
} // namespace sessionname
