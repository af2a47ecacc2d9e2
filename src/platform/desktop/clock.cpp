#include "platform/desktop/clock.h"

namespace {
QDateTime g_setByTest; // null while the real clock runs
}

QDateTime desktopclock::Now()
{
    return g_setByTest.isNull() ? QDateTime::currentDateTime() : g_setByTest;
}

void desktopclock::SetForTests(const QDateTime& now)
{
    g_setByTest = now;
}
