// Works through the notes of many days in commits of at most a quarter of a second: each day is whole or untouched,
// whatever ends the program meanwhile.
#pragma once

#include "platform/engine/database.h"

#include <QLatin1StringView>
#include <QStringList>

#include <functional>

class DayRun
{
public:
    // Changes the note of one day. What it raises leaves this day out, and no other.
    using Step = std::function<void(const QString& date)>;
    using Progress = std::function<void(qsizetype done, qsizetype all)>;

    // Errors of single days are logged under the literal.
    DayRun(const Database& planner, QLatin1StringView literal, Progress progress)
        : m_planner(planner), m_literal(literal), m_progress(std::move(progress))
    {
    }

    qsizetype operator()(const QStringList& dates, const Step& step); // how many days were left out by an error

    // Whether the day under way has no others waiting for its commit, so that its step may ask somebody. A day that
    // failed among others is tried again alone.
    bool IsAlone() const { return m_isAlone; }
    void Fail(const QString& reason); // for a step that has dealt with the error of its day by itself
    const QString& LastError() const { return m_lastError; }

private:
    struct Group
    {
        qsizetype end;  // behind the last day that was done
        bool committed; // else none of its days has been changed
        bool failed;    // at its end, or in its commit
    };
    Group RunGroup(const QStringList& dates, qsizetype begin, const Step& step) const;
    void RunAlone(const QString& date, const Step& step);

    Database m_planner;
    QLatin1StringView m_literal;
    Progress m_progress;
    QString m_lastError;
    qsizetype m_failures = 0;
    bool m_isAlone = false;
};
