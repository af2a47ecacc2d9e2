#include "alarms/heardalarms.h"

#include "platform/profile/inistorage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
constexpr int DaysKept = 2;
const QString Until = u"until"_s, Answered = u"answered"_s;

HeardAlarms::Heard Decode(const QJsonObject& text)
{
    HeardAlarms::Heard heard = {QDateTime::fromString(text[Until].toString(), Qt::ISODate), {}};
    for (const QJsonValue& minute : text[Answered].toArray())
        heard.answered += QDateTime::fromString(minute.toString(), Qt::ISODate);
    return heard;
}

QJsonObject Encode(const HeardAlarms::Heard& heard)
{
    QJsonArray answered;
    for (const QDateTime& minute : heard.answered)
        answered.append(minute.toString(Qt::ISODate));
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
        heard.answered.removeIf([&](const QDateTime& answered) { return answered.addDays(DaysKept) < minute; });
    });
}

void HeardAlarms::Add(const QString& planner, const QDateTime& minute)
{
    Change(planner, [&](Heard& heard) { heard.answered += minute; });
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
