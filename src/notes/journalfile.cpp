#include "notes/journalfile.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

namespace {
const QByteArray Head("Orrelin journal 1\n");
constexpr qsizetype SumLength = 32;

QByteArray SumOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}
} // namespace

QDataStream& operator<<(QDataStream& stream, const UnsavedNote& note)
{
    return stream << note.rtf << note.base.has_value() << note.base.value_or(QByteArray()) << note.former;
}

QDataStream& operator>>(QDataStream& stream, UnsavedNote& note)
{
    bool hasBase = false;
    QByteArray base;
    stream >> note.rtf >> hasBase >> base >> note.former;
    if (hasBase) note.base = base;
    return stream;
}

QByteArray journalfile::Encode(const UnsavedNotes& notes)
{
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << notes.All();
    return Head + SumOf(content) + content;
}

std::optional<UnsavedNotes> journalfile::Decode(const QByteArray& bytes)
{
    const QByteArray content = bytes.mid(Head.size() + SumLength);
    if (!bytes.startsWith(Head) || bytes.mid(Head.size(), SumLength) != SumOf(content)) return {};
    QDataStream stream(content);
    stream.setVersion(QDataStream::Qt_6_4);
    UnsavedNotes::ByPlanner notes;
    stream >> notes;
    if (stream.status() != QDataStream::Ok) return {};
    return UnsavedNotes(notes);
}
