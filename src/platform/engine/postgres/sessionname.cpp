#include "platform/engine/postgres/sessionname.h"

#include "platform/engine/loginname.h"

#include <QSysInfo>
#include <QUrl>

namespace {
// The server cuts a label at 63 bytes and makes question marks of what is not ASCII.
constexpr QLatin1StringView Prefix("Orrelin ");
constexpr qsizetype UserBytes = 24;
constexpr qsizetype MachineBytes = 30;

QByteArray Encoded(QString text, qsizetype size)
{
    while (QUrl::toPercentEncoding(text).size() > size)
        text.chop(1);
    return QUrl::toPercentEncoding(text);
}
} // namespace

namespace sessionname {
std::string Own()
{
    const QByteArray label =
        Prefix.latin1() + Encoded(LoginName(), UserBytes) + '@' + Encoded(QSysInfo::machineHostName(), MachineBytes);
    return label.toStdString();
}

QString Person(const QString& label)
{
    const QStringList parts = label.mid(Prefix.size()).split(u'@');
    if (!label.startsWith(Prefix) || parts.size() != 2) return u"another user"_s;
    const auto plain = [](const QString& part) { return QUrl::fromPercentEncoding(part.toLatin1()); };
    return PersonText(plain(parts[0]), plain(parts[1]));
}
} // namespace sessionname
