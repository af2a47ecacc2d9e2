#include "recurrence/dayrun.h"

#include "platform/engine/longwork.h"
#include "platform/runtime/errortail.h"

#include <QElapsedTimer>
#include <QScopeGuard>

namespace {
constexpr qint64 LongestGroup = 250; // milliseconds

// The error is not reported: the days are tried again one by one, and those errors are.
template <typename Action>
bool Succeeds(Action&& action)
{
    try {
        std::forward<Action>(action)();
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}
} // namespace

qsizetype DayRun::operator()(const QStringList& dates, const Step& step)
{
    qsizetype done = 0;
    const auto goesOn = [&] { return Succeeds([&] { longwork::Reached(done, dates.size()); }); };
    while (done < dates.size() && goesOn()) {
        const Group group = RunGroup(dates, done, step);
        if (group.committed) done = group.end;
        const qsizetype tried = qMin(group.end + (group.failed ? 1 : 0), dates.size());
        for (; done < tried && goesOn(); ++done)
            RunAlone(dates.at(done), step);
    }
    return done;
}

DayRun::Group DayRun::RunGroup(const QStringList& dates, qsizetype begin, const Step& step) const
{
    Group group{begin, false, false};
    group.committed = Succeeds([&] {
        WriteTransaction writing(m_planner);
        QElapsedTimer time;
        time.start();
        while (!group.failed && group.end < dates.size() && !time.hasExpired(LongestGroup)) {
            group.failed = !Succeeds([&] { step(dates.at(group.end)); });
            if (!group.failed) ++group.end;
        }
        writing.Commit();
    });
    group.failed = group.failed || !group.committed;
    return group;
}

void DayRun::RunAlone(const QString& date, const Step& step)
{
    m_isAlone = true;
    const auto amongOthers = qScopeGuard([this] { m_isAlone = false; });
    ErrorTail{m_literal}([&] {
        try {
            step(date);
        } catch (const RunTimeError& error) {
            Fail(error.Description);
            throw;
        }
    });
}

void DayRun::Fail(const QString& reason)
{
    ++m_failures;
    m_lastError = reason;
}
