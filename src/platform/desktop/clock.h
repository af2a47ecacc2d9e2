// The one clock of the program, so that a test can set it.
#pragma once

#include <QDateTime>

namespace desktopclock {
inline QDateTime g_setByTest; // null while the real clock runs

inline QDateTime Now()
{
    return g_setByTest.isNull() ? QDateTime::currentDateTime() : g_setByTest;
}

// From now on Now() gives this, until a null QDateTime gives the real clock back.
inline void SetForTests(const QDateTime& now)
{
    g_setByTest = now;
}
} // namespace desktopclock
