// Who works here, as other users are told.
#pragma once

#include <QString>

QString LoginName(); // the user's number where the system knows no name
