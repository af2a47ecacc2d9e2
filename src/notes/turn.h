// Turns the page: the one way in which the cells of an open planner come to stand for other days or in another form, so
// that nothing that was typed is left under a date that is not its own. Another planner is saved and read for by
// whoever opens it.
#pragma once

#include <QLatin1StringView>

#include <functional>

class LockedDay;
class QMTDB;

class Turn
{
public:
    Turn(QMTDB& notes, LockedDay& lockedDay) : m_notes(notes), m_lockedDay(lockedDay) {}

    // Commits a day that this user has locked, saves what the cells hold, has them changed by the caller (the date, the
    // drawing), and reads their notes. Without a planner there is only the change; with a locked day that cannot be
    // stored there is nothing, and false is given. A step that fails is logged under the literal and does not keep the
    // others back.
    bool operator()(QLatin1StringView literal, const std::function<void()>& change);

private:
    QMTDB& m_notes;
    LockedDay& m_lockedDay;
};
