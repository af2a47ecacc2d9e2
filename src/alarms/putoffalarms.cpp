#include "alarms/putoffalarms.h"

#include "settings/messages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {
QJsonObject TextOf(const PutOffAlarm& putOff)
{
    const Alarm& alarm = putOff.alarm;
    return {{u"at"_s, putOff.at.toString(Qt::ISODate)}, // a wall time names no zone
            {u"date"_s, alarm.date},
            {u"time"_s, alarm.time},
            {u"note"_s, QString::fromLatin1(alarm.note.toBase64())},
            {u"tune"_s, alarm.tune},
            {u"silence"_s, alarm.silence}};
}

PutOffAlarm AlarmIn(const QJsonObject& text)
{
    return {{text[u"date"_s].toString(), text[u"time"_s].toString(),
             QByteArray::fromBase64(text[u"note"_s].toString().toLatin1()), text[u"tune"_s].toString(),
             text[u"silence"_s].toBool()},
            QDateTime::fromString(text[u"at"_s].toString(), Qt::ISODate)};
}

// A damaged file holds nothing, and the next alarm that is put off replaces it.
std::vector<PutOffAlarm> DecodeAll(const QByteArray& bytes)
{
    std::vector<PutOffAlarm> alarms;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    for (const QJsonValue& one : document.array())
        if (PutOffAlarm alarm = AlarmIn(one.toObject()); alarm.at.isValid()) alarms.push_back(std::move(alarm));
    return alarms;
}

QByteArray EncodeAll(const std::vector<PutOffAlarm>& alarms)
{
    QJsonArray all;
    for (const PutOffAlarm& alarm : alarms)
        all.append(TextOf(alarm));
    return all.isEmpty() ? QByteArray() : QJsonDocument(all).toJson();
}
} // namespace

bool PutOffAlarms::Replace(const std::optional<PutOffAlarm>& rung, const std::optional<PutOffAlarm>& next)
{
    const bool isWritten = inistorage::Change(m_path, [&](const QByteArray& bytes) {
        std::vector<PutOffAlarm> alarms = DecodeAll(bytes);
        if (rung) std::erase(alarms, *rung);
        if (next) alarms.push_back(*next);
        return std::optional(EncodeAll(alarms));
    });
    if (!isWritten && rung) m_answered.push_back(*rung);
    return isWritten;
}

std::vector<PutOffAlarm> PutOffAlarms::All() const
{
    return DecodeAll(inistorage::Read(m_path).value_or(QByteArray()));
}

std::optional<PutOffAlarm> PutOffAlarms::FirstDue(const QDateTime& now)
{
    if (const inistorage::Identity present = inistorage::IdentityOf(m_path); present != m_read) {
        const auto bytes = inistorage::Read(m_path);
        if (!bytes) return {};
        m_read = present;
        m_alarms = DecodeAll(*bytes);
    }
    std::optional<PutOffAlarm> first;
    for (const PutOffAlarm& alarm : m_alarms) {
        const bool isAnswered = std::ranges::find(m_answered, alarm) != m_answered.end();
        if (!isAnswered && alarm.at <= now && (!first || alarm.at < first->at)) first = alarm;
    }
    return first;
}

bool PutOffOrTell(PutOffAlarms& alarms, const std::optional<PutOffAlarm>& rung, const std::optional<PutOffAlarm>& next)
{
    if (alarms.Replace(rung, next)) return true;
    if (next)
        messages::Tell(u"The alarm cannot be put off, since its file cannot be written."_s, msgbox::Exclamation,
                       {alarms.Path()});
    return false;
}
