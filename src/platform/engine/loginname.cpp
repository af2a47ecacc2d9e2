#include "platform/engine/loginname.h"

#include <array>
#include <pwd.h>
#include <unistd.h>

QString LoginName()
{
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return QString::number(::geteuid());
    return QString::fromLocal8Bit(found->pw_name);
}
