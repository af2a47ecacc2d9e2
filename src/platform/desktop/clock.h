// The program's clock, which tests can set.
#pragma once

#include <QDateTime>

namespace desktopclock {
inline QDateTime g_setByTest; // null: the real clock

inline QDateTime Now()
{
    return g_setByTest.isNull() ? QDateTime::currentDateTime() : g_setByTest;
}

// A null value restores the real clock.
inline void SetForTests(const QDateTime& now)
{
    g_setByTest = now;
}
} // namespace desktopclock
