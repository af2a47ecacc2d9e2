// Who works here, and how a session names its user and machine to the others.
#pragma once

#include <QString>

#include <string>

namespace sessionname {
inline constexpr char16_t Unknown[] = u"another user";

QString User(); // the user's number where the system knows no name
QString Machine();

// "user 'ann' on machine 'desk3'" for a message. Others can have written anything: it gets no lines of theirs.
QString Person(const QString& user, const QString& machine);

// The beginning of the text that takes at most so many bytes when encoded. Cut between characters.
template <typename Encode>
QByteArray Cut(QString text, qsizetype bytes, Encode&& encode)
{
    while (encode(text).size() > bytes)
        text.chop(1);
    return encode(text);
}

// The one label that any user of a server sees: at most 63 bytes of ASCII without quotes.
std::string Label();
QString PersonOf(const QString& label); // Unknown where it is no such label
} // namespace sessionname
