#include "exchange/exportstamps.h"

#include "platform/desktop/clock.h"
#include "platform/desktop/folders.h"
#include "platform/runtime/durablefile.h"

#include <QCryptographicHash>
#include <QDir>

#include <algorithm>

namespace {
constexpr qint64 Minute = 60;
} // namespace

QString ShortSum(const QByteArray& bytes)
{
    constexpr qsizetype Digits = 16;
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().first(Digits));
}

// Each line: the entry, the sum of its content, the moment in seconds since 1970.
ExportStamps::ExportStamps(const QString& planner)
    : m_path(folders::ApplicationDirectory() + u"/exports/"_s + ShortSum(planner.toUtf8())),
      m_now(QDateTime::fromSecsSinceEpoch(desktopclock::Now().toSecsSinceEpoch(), Qt::UTC))
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) return;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QByteArrayList parts = line.split(' ');
        const qint64 seconds = parts.last().toLongLong();
        if (parts.size() != 3 || seconds <= 0) continue;
        m_stamps[QString::fromUtf8(parts[0])] = {QString::fromUtf8(parts[1]),
                                                 QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)};
    }
}

QDateTime ExportStamps::MomentOf(const QString& uid, const QByteArray& content)
{
    const QString sum = ShortSum(content);
    const auto known = m_stamps.constFind(uid);
    if (known != m_stamps.cend() && known->sum == sum) return known->moment;
    const QDateTime moment = known == m_stamps.cend() ? m_now : std::max(m_now, known->moment.addSecs(Minute));
    m_stamps[uid] = {sum, moment};
    m_isChanged = true;
    return moment;
}

void ExportStamps::Save() const
{
    if (!m_isChanged) return;
    QDir().mkpath(QFileInfo(m_path).path());
    QByteArray lines;
    for (auto i = m_stamps.cbegin(); i != m_stamps.cend(); ++i)
        lines += u"%1 %2 %3\n"_s.arg(i.key(), i->sum).arg(i->moment.toSecsSinceEpoch()).toUtf8();
    WriteDurably(m_path, lines);
}
