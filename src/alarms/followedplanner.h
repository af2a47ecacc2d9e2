// The alarms of a planner that is not open here. It is read when it has changed, and not kept open: it can be moved,
// copied and opened elsewhere, also for one person alone.
#pragma once

#include "alarms/alarmsource.h"
#include "platform/profile/inistorage.h"

class FollowedPlanner final : public AlarmSource
{
public:
    explicit FollowedPlanner(const QString& path) : m_path(path) {} // empty for none

    QString Planner() const override { return m_path; }
    // If the planner cannot be read now, from what is known of it.
    std::vector<Alarm> Due(const QDate& today, const QString& minute) override;
    std::vector<Alarm> Between(const QDateTime& after, const QDateTime& before) override;

private:
    // As the file was when it was read. The journal beside it holds what a program has not finished.
    struct State
    {
        inistorage::Identity file, journal;
        bool operator==(const State&) const = default;
    };

    State Present() const;
    bool HasChanged() const;
    void Refresh(const QDateTime& after); // the alarms after this wall minute, at least
    void Read(const QDateTime& after);

    const QString m_path;
    State m_read;
    bool m_isOnServer = false;
    QDateTime m_readAt;
    QDateTime m_after; // a wall minute, from which on all alarms are known
    std::vector<Alarm> m_alarms;
    bool m_isFailing = false;
};
