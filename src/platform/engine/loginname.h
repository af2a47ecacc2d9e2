// Who works here, as other users are told.
#pragma once

#include <QString>

QString LoginName(); // the user's number where the system knows no name

// "user 'ann' on machine 'desk3'" for a message. Others can have written anything: it gets no lines of theirs.
QString PersonText(const QString& user, const QString& machine);
