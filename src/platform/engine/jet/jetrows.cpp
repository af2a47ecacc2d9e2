#include "platform/engine/jet/jetrows.h"

#include "platform/desktop/folders.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/jet/jeterrors.h"
#include "platform/engine/jet/jetstream.h"
#include "platform/engine/jet/jetvalues.h"
#include "platform/engine/longwork.h"
#include "platform/runtime/runtimeerror.h"

#include <QFileInfo>
#include <QProcessEnvironment>

#include <algorithm>

namespace {
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds Patience = 20s;
constexpr std::chrono::milliseconds Longest = 10min;
std::chrono::milliseconds g_patience = Patience;

// The reader sends every byte of a sound file once, plus five bytes before each value, which takes more than one byte
// of the file.
constexpr qint64 BytesPerByte = 4;
constexpr qint64 BytesOfDefinitions = 1 << 20;

QStringList NamesOf(const std::vector<TableDef>& tables)
{
    QStringList names;
    for (const TableDef& table : tables)
        names += table.Name;
    return names;
}

template <typename List>
auto FindNamed(const List& list, const QString& name)
{
    return std::ranges::find_if(list,
                                [&](const auto& item) { return item.Name.compare(name, Qt::CaseInsensitive) == 0; });
}
} // namespace

JetRows::JetRows(const QString& path, const std::vector<TableDef>& expected)
    : m_name(QFileInfo(path).fileName()), m_size(QFileInfo(path).size()),
      m_most(BytesOfDefinitions + BytesPerByte * m_size), m_expected(expected)
{
    QProcessEnvironment environment; // The reader gets none of our environment.
    environment.insert(u"LC_ALL"_s, u"C"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setStandardInputFile(path);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(folders::ShippedProgram(u"orrelin-readjet"_s), NamesOf(expected));
    if (!m_process.waitForStarted())
        throw RunTimeError{engineerrors::NotADatabase,
                           u"The part of Orrelin that reads older planners is not installed."_s};
    m_frames.emplace(m_process, m_name, JetFrames::Limits{m_most, g_patience, Longest});
    m_encoding = m_frames->Head();
}

void JetRows::SetPatienceForTests(std::chrono::milliseconds patience)
{
    g_patience = patience.count() > 0 ? patience : Patience;
}

void JetRows::TellReached() const
{
    longwork::Reached(m_most - m_frames->BytesLeft(), m_size);
}

const TableDef* JetRows::NextTable()
{
    auto from = m_frames->Table();
    if (!from) {
        if (!m_isPlanner) jeterrors::RaiseNoPlanner(m_name, NamesOf(m_expected).value(0));
        return nullptr;
    }
    m_from = std::move(*from);
    const auto table = FindNamed(m_expected, m_from.Name);
    if (table == m_expected.end()) jeterrors::RaiseDamaged(m_name);
    m_isPlanner = m_isPlanner || table == m_expected.begin();
    m_table = *table;
    m_columns.clear();
    for (Field& field : m_table.Fields) {
        const auto column = FindNamed(m_from.Columns, field.Name);
        const bool isThere = column != m_from.Columns.end();
        m_columns.push_back(isThere ? std::optional<std::size_t>(column - m_from.Columns.begin()) : std::nullopt);
        if (isThere && field.Type == dbText && column->Type == jetstream::Text)
            field.Size = std::max(field.Size, m_encoding.IsJet4 ? column->Size / 2 : column->Size);
    }
    for (const Index& index : m_table.Indexes)
        if (!m_columns[FieldNumber(m_table, KeyField(index))]) jeterrors::RaiseNoPlanner(m_name, KeyField(index));
    return &m_table;
}

std::optional<std::vector<QVariant>> JetRows::NextRow()
{
    const auto row = m_frames->Row();
    if (!row) return {};
    std::vector<QVariant> values;
    for (std::size_t field = 0; field < m_table.Fields.size(); ++field)
        values.push_back(ValueOf(field, *row));
    return values;
}

QVariant JetRows::ValueOf(std::size_t field, const JetRow& row) const
{
    if (!m_columns[field]) return {};
    const auto& bytes = row[*m_columns[field]];
    if (!bytes) return {};
    const auto value = jetvalues::Decode(m_from.Columns[*m_columns[field]], *bytes, m_encoding, m_table.Fields[field]);
    if (!value) jeterrors::RaiseDamaged(m_name);
    return *value;
}
