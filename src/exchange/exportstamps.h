// Remembers what was exported, so that another calendar that reads a second export changes what has changed and doubles
// nothing.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QString>

QString ShortSum(const QByteArray& bytes); // tells them from others, for ever

class ExportStamps
{
public:
    explicit ExportStamps(const QString& planner); // by its name; remembers nothing if its file cannot be read

    // When the entry's content was first exported, in UTC. A later content has a later minute, even if the clock was
    // set back.
    QDateTime MomentOf(const QString& uid, const QByteArray& content);

    // A disk that refuses is no reason to export nothing: the next export then dates its entries again.
    void Save() const;

private:
    struct Stamp
    {
        QString sum;
        QDateTime moment;
    };

    QString m_path;
    QDateTime m_now;
    QMap<QString, Stamp> m_stamps; // those gone from the planner stay: a note may come back
    bool m_isChanged = false;
};
