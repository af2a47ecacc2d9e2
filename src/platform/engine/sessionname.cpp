#include "platform/engine/sessionname.h"

#include <QSysInfo>
#include <QUrl>

#include <array>
#include <pwd.h>
#include <unistd.h>

namespace {
// The server cuts a label at 63 bytes and replaces non-ASCII characters by question marks.
constexpr QLatin1StringView Prefix("Orrelin ");
constexpr qsizetype UserBytes = 24;
constexpr qsizetype MachineBytes = 30;

QString OneLine(QString text)
{
    for (QChar& letter : text)
        if (!letter.isPrint() && !letter.isSurrogate()) letter = u'?';
    return text;
}
} // namespace

namespace sessionname {
QString User()
{
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return QString::number(::geteuid());
    return QString::fromLocal8Bit(found->pw_name);
}

QString Machine()
{
    return QSysInfo::machineHostName();
}

QString Person(const QString& user, const QString& machine)
{
    return u"user '%1' on machine '%2'"_s.arg(OneLine(user), OneLine(machine));
}

std::string Label()
{
    const auto encode = [](const QString& text) { return QUrl::toPercentEncoding(text); };
    const QByteArray label =
        Prefix.latin1() + Cut(User(), UserBytes, encode) + '@' + Cut(Machine(), MachineBytes, encode);
    return label.toStdString();
}

QString PersonOf(const QString& label)
{
    const QStringList parts = label.mid(Prefix.size()).split(u'@');
    if (!label.startsWith(Prefix) || parts.size() != 2) return QString::fromUtf16(Unknown);
    const auto plain = [](const QString& part) { return QUrl::fromPercentEncoding(part.toLatin1()); };
    return Person(plain(parts[0]), plain(parts[1]));
}
} // namespace sessionname
