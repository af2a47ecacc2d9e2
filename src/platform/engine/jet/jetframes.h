// Parses what the reader of old planners sends. The file may have taken over the reader, so no size, number or order is
// trusted. NotADatabase if the stream breaks the format of jetstream.h or stops.
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
    int Type = 0; // usually a jetstream::Type
    int Size = 0; // bytes
};

struct JetTable
{
    QString Name;
    std::vector<JetColumn> Columns;
};

using JetRow = std::vector<std::optional<QByteArray>>; // a value or null for each column

class JetFrames
{
public:
    struct Limits
    {
        qint64 Bytes;                         // of all frames together
        std::chrono::milliseconds ForSilence; // without a byte
        std::chrono::milliseconds ForAll;     // from the construction on
    };

    JetFrames(QIODevice& source, const QString& name, const Limits& limits);

    JetEncoding Head();                              // call this first
    std::optional<JetTable> Table();                 // none at the end
    std::optional<JetRow> Row();                     // of that table; none after the last
    qint64 BytesLeft() const { return m_bytesLeft; } // of the limit

private:
    struct Frame
    {
        int Kind = 0;
        QByteArray Content;
    };
    class Part;

    const Frame& Next(); // keeps the frame until Take
    QByteArray Take();
    QByteArray Receive(qint64 size);

    QIODevice& m_source;
    QString m_name;
    qint64 m_bytesLeft;
    std::chrono::milliseconds m_forSilence;
    QDeadlineTimer m_until;
    std::optional<Frame> m_next;
    std::size_t m_columns = 0; // of the current table
};
