#include "platform/engine/loginname.h"

#include <array>
#include <pwd.h>
#include <unistd.h>

namespace {
QString OneLine(QString text)
{
    for (QChar& letter : text)
        if (!letter.isPrint() && !letter.isSurrogate()) letter = u'?';
    return text;
}
} // namespace

QString LoginName()
{
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return QString::number(::geteuid());
    return QString::fromLocal8Bit(found->pw_name);
}

QString PersonText(const QString& user, const QString& machine)
{
    return u"user '%1' on machine '%2'"_s.arg(OneLine(user), OneLine(machine));
}
