// What a reader of old planners has sent, taken apart. The reader may have been taken over by what it reads, so nothing
// of it is believed: no size, number or order. NotADatabase where it is not as jetstream.h says, or does not come.
#pragma once

#include "platform/engine/jet/jettext.h"

#include <QDeadlineTimer>
#include <QIODevice>

#include <chrono>
#include <optional>
#include <vector>

struct JetColumn
{
    QString Name;
    int Type = 0; // one of jetstream::Type, or any other number
    int Size = 0; // bytes
};

struct JetTable
{
    QString Name;
    std::vector<JetColumn> Columns;
};

using JetRow = std::vector<std::optional<QByteArray>>; // a value for each column, or none for null

class JetFrames
{
public:
    struct Limits
    {
        qint64 Bytes;                         // of all frames together
        std::chrono::milliseconds ForSilence; // without a byte
        std::chrono::milliseconds ForAll;     // from now on
    };

    JetFrames(QIODevice& source, const QString& name, const Limits& limits);

    JetEncoding Head();              // first
    std::optional<JetTable> Table(); // none at the end
    std::optional<JetRow> Row();     // of that table; none behind its last

private:
    struct Frame
    {
        int Kind = 0;
        QByteArray Content;
    };
    class Part;

    const Frame& Next(); // which stays until it is taken
    QByteArray Take();
    QByteArray Receive(qint64 size);

    QIODevice& m_source;
    QString m_name;
    qint64 m_bytesLeft;
    std::chrono::milliseconds m_forSilence;
    QDeadlineTimer m_until;
    std::optional<Frame> m_next;
    std::size_t m_columns = 0; // of the present table
};
