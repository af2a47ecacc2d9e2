// Unrolls the rules of repeated entries. Beside icalendarfile.cpp only this part uses the library for iCalendar.
#pragma once

#include <QByteArray>
#include <QDateTime>

#include <ctime>
#include <functional>

// The processor's time that the rules of a file may take. The search for a date that never comes, such as 30 February,
// takes the library a third of a second each.
class RuleTime
{
public:
    class Watch
    {
    public:
        explicit Watch(RuleTime& time) : m_time(time) {}
        ~Watch() { m_time.m_spent += std::clock() - m_begin; }
        Q_DISABLE_COPY_MOVE(Watch)

        bool IsOver() const { return m_time.m_spent + std::clock() - m_begin > Most; }

    private:
        static constexpr std::clock_t Most = 3 * CLOCKS_PER_SEC;
        RuleTime& m_time;
        const std::clock_t m_begin = std::clock();
    };

private:
    std::clock_t m_spent = 0;
};

enum class RuleEnd
{
    Reached,
    Unreadable, // or without any date
    OutOfTime
};

using TakeDate = std::function<bool(const QDateTime& date)>; // false: no more

// All times are those of the clock on the wall, as Qt::UTC. The rule must be daily or longer: the search within finer
// ones may never return.
RuleEnd ForEachDate(const QByteArray& rule, const QDateTime& start, RuleTime& time, const TakeDate& take);

// Of times that are so many seconds apart, the first one of each day.
RuleEnd ForEachDay(const QDateTime& start, qint64 step, qint64 count, RuleTime& time, const TakeDate& take);
