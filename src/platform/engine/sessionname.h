// The user and machine of this session, and their names for others.
#pragma once

#include <QString>

#include <string>

namespace sessionname {
inline constexpr char16_t Unknown[] = u"another user";

QString User(); // the user's number if the system knows no name
QString Machine();

// "user 'ann' on machine 'desk3'" for a message, without line ends: others can have written any text.
QString Person(const QString& user, const QString& machine);

// The longest beginning of the text that takes at most so many bytes when encoded. Cuts between characters.
template <typename Encode>
QByteArray Cut(QString text, qsizetype bytes, Encode&& encode)
{
    while (encode(text).size() > bytes)
        text.chop(1);
    return encode(text);
}

// The label that all users of a server see: at most 63 bytes of ASCII without quotes.
std::string Label();
QString PersonOf(const QString& label); // Unknown if it is not such a label
} // namespace sessionname
