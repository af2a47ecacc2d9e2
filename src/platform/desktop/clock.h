// The one clock of the program, so that a test can set it.
#pragma once

#include <QDateTime>

namespace desktopclock {
QDateTime Now();

// From now on Now() gives this, until a null QDateTime gives the real clock back.
void SetForTests(const QDateTime& now);
} // namespace desktopclock
