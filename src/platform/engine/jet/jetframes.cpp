#include "platform/engine/jet/jetframes.h"

#include "platform/engine/jet/jeterrors.h"

#include <QtEndian>

#include <algorithm>

namespace {
constexpr qint64 FrameHeadSize = 5;
constexpr int MostColumns = 256;
} // namespace

// Reads the content of one frame from its front.
class JetFrames::Part
{
public:
    Part(QByteArrayView bytes, const QString& name) : m_bytes(bytes), m_name(name) {}

    template <typename Number>
    Number Take()
    {
        return qFromLittleEndian<Number>(Take(sizeof(Number)).data());
    }
    std::optional<QByteArray> Value()
    {
        const auto size = Take<quint32>();
        if (size == jetstream::NullSize) return {};
        return Take(size).toByteArray();
    }
    QString Text() { return QString::fromUtf8(Value().value_or(QByteArray())); }
    void MustBeEmpty() const
    {
        if (!m_bytes.isEmpty()) jeterrors::RaiseDamaged(m_name);
    }

private:
    QByteArrayView Take(qint64 size)
    {
        if (size > m_bytes.size()) jeterrors::RaiseDamaged(m_name);
        const QByteArrayView taken = m_bytes.first(size);
        m_bytes = m_bytes.sliced(size);
        return taken;
    }

    QByteArrayView m_bytes;
    const QString& m_name;
};

JetFrames::JetFrames(QIODevice& source, const QString& name, const Limits& limits)
    : m_source(source), m_name(name), m_bytesLeft(limits.Bytes), m_forSilence(limits.ForSilence), m_until(limits.ForAll)
{
}

QByteArray JetFrames::Receive(qint64 size)
{
    m_bytesLeft -= size;
    if (m_bytesLeft < 0) jeterrors::RaiseDamaged(m_name);
    // Allocates only for bytes that have arrived, never for an announced size.
    while (m_source.bytesAvailable() < size) {
        const auto wait = std::min<qint64>(m_forSilence.count(), m_until.remainingTime());
        // waitForReadyRead fails even if the reader's last bytes arrive with its end.
        if (wait <= 0 || (!m_source.waitForReadyRead(static_cast<int>(wait)) && m_source.bytesAvailable() < size))
            jeterrors::RaiseDamaged(m_name);
    }
    return m_source.read(size);
}

const JetFrames::Frame& JetFrames::Next()
{
    if (!m_next) {
        const QByteArray head = Receive(FrameHeadSize);
        const auto size = qFromLittleEndian<quint32>(head.constData());
        m_next = {static_cast<uchar>(head[FrameHeadSize - 1]), Receive(size)};
        if (m_next->Kind == jetstream::Refusal) jeterrors::Raise(m_name, Part(m_next->Content, m_name).Take<quint8>());
    }
    return *m_next;
}

QByteArray JetFrames::Take()
{
    return std::exchange(m_next, std::nullopt)->Content;
}

JetEncoding JetFrames::Head()
{
    if (Next().Kind != jetstream::Head) jeterrors::RaiseDamaged(m_name);
    const QByteArray content = Take();
    Part part(content, m_name);
    JetEncoding encoding;
    encoding.IsJet4 = part.Take<quint8>() != 0;
    encoding.CodePage = part.Take<quint16>();
    part.MustBeEmpty();
    return encoding;
}

std::optional<JetTable> JetFrames::Table()
{
    if (Next().Kind == jetstream::End) return {};
    if (Next().Kind != jetstream::Table) jeterrors::RaiseDamaged(m_name);
    const QByteArray content = Take();
    Part part(content, m_name);
    JetTable table{part.Text(), {}};
    const auto columns = part.Take<quint16>();
    if (columns > MostColumns) jeterrors::RaiseDamaged(m_name);
    for (int i = 0; i < columns; ++i) {
        JetColumn column;
        column.Type = part.Take<quint8>();
        column.Size = part.Take<quint16>();
        column.Name = part.Text();
        table.Columns.push_back(column);
    }
    part.MustBeEmpty();
    m_columns = table.Columns.size();
    return table;
}

std::optional<JetRow> JetFrames::Row()
{
    if (Next().Kind != jetstream::Row) return {};
    const QByteArray content = Take();
    Part part(content, m_name);
    JetRow row;
    for (std::size_t i = 0; i < m_columns; ++i)
        row.push_back(part.Value());
    part.MustBeEmpty();
    return row;
}
