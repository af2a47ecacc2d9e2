// Unrolls the rules of repeated entries. Beside icalendarfile.cpp only this part uses the library for iCalendar.
#pragma once

#include <QByteArray>
#include <QDateTime>

#include <functional>

// What the rules of a file may take. The search for a date that never comes, such as 30 February, takes the library a
// third of a second each.
class RuleTime
{
public:
    bool IsOver() const { return m_spent > Most; }
    void Spend(qint64 nanoseconds) { m_spent += nanoseconds; }

private:
    static constexpr qint64 Most = 4'000'000'000;
    qint64 m_spent = 0;
};

enum class RuleEnd
{
    Reached,
    Unreadable,
    OutOfTime
};

// Calls take(date) until it returns false. All times are those of the clock on the wall, as Qt::UTC. The rule must be
// daily or longer: the search within finer ones may never return.
RuleEnd ForEachDate(const QByteArray& rule, const QDateTime& start, RuleTime& time,
                    const std::function<bool(const QDateTime& date)>& take);
