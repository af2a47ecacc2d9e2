// The only way in which the cells of an open planner come to show other days or another layout, so that no text stays
// under a wrong date. Opening another planner saves and reads by itself.
#pragma once

#include <QLatin1StringView>

#include <functional>

class LockedDay;
class QMTDB;

class Turn
{
public:
    Turn(QMTDB& notes, LockedDay& lockedDay) : m_notes(notes), m_lockedDay(lockedDay) {}

    // Commits a day that this user has locked, saves the cells, runs the change (dates, drawing) and reads the notes.
    // Without a planner only the change runs. If the locked day cannot be stored, nothing runs and false is returned.
    // Errors are logged under the literal, and the later steps still run.
    bool operator()(QLatin1StringView literal, const std::function<void()>& change);

private:
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
};
