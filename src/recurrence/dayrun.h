// Changes the notes of many days in commits of at most a quarter of a second. If the program ends meanwhile, each day
// is either changed or untouched.
#pragma once

#include "platform/engine/database.h"

#include <QLatin1StringView>
#include <QStringList>

#include <functional>

class DayRun
{
public:
    // Changes the note of one day. An error skips this day only.
    using Step = std::function<void(const QString& date)>;

    // Errors of single days are logged under the literal.
    DayRun(const Database& planner, QLatin1StringView literal) : m_planner(planner), m_literal(literal) {}

    // Returns how many days were handled: all, unless the person cancels between two commits (longwork.h).
    qsizetype operator()(const QStringList& dates, const Step& step);

    // True if the current day is committed alone, so that its step may ask the person. A day that failed in a group is
    // tried again alone.
    bool IsAlone() const { return m_isAlone; }
    void Fail(const QString& reason); // for a step that has handled its day's error itself
    qsizetype Failures() const { return m_failures; }
    const QString& LastError() const { return m_lastError; }

private:
    struct Group
    {
        qsizetype end;  // index behind the last finished day
        bool committed; // false: none of its days is changed
        bool failed;    // at the day at end, or in the commit
    };
    Group RunGroup(const QStringList& dates, qsizetype begin, const Step& step) const;
    void RunAlone(const QString& date, const Step& step);

    Database m_planner;
    QLatin1StringView m_literal;
    QString m_lastError;
    qsizetype m_failures = 0;
    bool m_isAlone = false;
};
