#include "alarms/heardalarms.h"

#include "alarms/alarmspan.h"
#include "platform/profile/inistorage.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
constexpr int DaysKept = 2;
const QString Until = u"until"_s, Answered = u"answered"_s;

HeardAlarms::Heard Decode(const QJsonObject& text)
{
    HeardAlarms::Heard heard = {QDateTime::fromString(text[Until].toString(), Qt::ISODate), {}};
    for (const QJsonValue& name : text[Answered].toArray())
        heard.answered += name.toString();
    return heard;
}

QJsonObject Encode(const HeardAlarms::Heard& heard)
{
    QJsonArray answered;
    for (const QString& name : heard.answered)
        answered.append(name);
    return {{Until, heard.until.toString(Qt::ISODate)}, {Answered, answered}};
}
} // namespace

HeardAlarms::Heard HeardAlarms::Of(const QString& planner) const
{
    const auto bytes = inistorage::Read(m_path);
    return Decode(QJsonDocument::fromJson(bytes.value_or(QByteArray())).object()[planner].toObject());
}

void HeardAlarms::SetUntil(const QString& planner, const QDateTime& minute)
{
    Change(planner, [&](Heard& heard) {
        heard.until = minute;
        const QString oldest = minute.addDays(-DaysKept).toString(Qt::ISODate); // a name begins with its minute
        heard.answered.removeIf([&](const QString& name) { return name < oldest; });
    });
}

void HeardAlarms::Add(const QString& planner, const Alarm& answered)
{
    Change(planner, [&](Heard& heard) { heard.answered += NameOf(answered); });
}

void HeardAlarms::Forget()
{
    QFile::remove(m_path);
}

QString HeardAlarms::NameOf(const Alarm& alarm)
{
    constexpr int Enough = 8; // bytes
    QCryptographicHash rest(QCryptographicHash::Sha1);
    rest.addData(alarm.note + '\n' + alarm.tune.toUtf8() + (alarm.silence ? "\n1" : "\n0"));
    return WallMinuteOf(alarm).toString(Qt::ISODate) + u' ' + QString::fromLatin1(rest.result().first(Enough).toHex());
}

void HeardAlarms::Change(const QString& planner, const std::function<void(Heard& heard)>& change)
{
    inistorage::Change(m_path, [&](const QByteArray& bytes) {
        QJsonObject all = QJsonDocument::fromJson(bytes).object();
        Heard heard = Decode(all[planner].toObject());
        change(heard);
        all[planner] = Encode(heard);
        return std::optional(QJsonDocument(all).toJson());
    });
}
