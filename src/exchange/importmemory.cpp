#include "exchange/importmemory.h"

#include "exchange/exportstamps.h"
#include "plannerfile/schema.h"
#include "platform/engine/engineerrors.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

namespace {
const QString IdField = u"Import Id"_s;
const QString PiecesField = u"Imported"_s;
const QString IdIndex = u"ImportKey"_s;

TableDef ImportsTable()
{
    constexpr int IdSize = 64;
    return {schema::Imports, {{IdField, dbText, IdSize}, {PiecesField, dbMemo}}, {{IdIndex, IdField, true}}};
}

// The days of a repeated event share one text.
QByteArray Packed(const ImportedPieces& pieces)
{
    QHash<QString, int> numbers;
    QJsonArray texts, rows;
    for (const ImportedPiece& piece : pieces) {
        if (!numbers.contains(piece.text)) {
            numbers.insert(piece.text, static_cast<int>(texts.size()));
            texts += piece.text;
        }
        rows += QJsonArray{static_cast<int>(piece.kind), piece.key, piece.detail, numbers[piece.text]};
    }
    return QJsonDocument(QJsonArray{texts, rows}).toJson(QJsonDocument::Compact);
}

// Nothing if it is damaged: then the texts that stand are left alone.
ImportedPieces Unpacked(const QByteArray& packed)
{
    const QJsonArray both = QJsonDocument::fromJson(packed).array();
    const QJsonArray texts = both.at(0).toArray();
    ImportedPieces pieces;
    for (const QJsonValue& value : both.at(1).toArray()) {
        const QJsonArray row = value.toArray();
        pieces.insert({static_cast<ImportedPiece::Kind>(row.at(0).toInt()), row.at(1).toString(), row.at(2).toString(),
                       texts.at(row.at(3).toInt()).toString()});
    }
    return pieces;
}
} // namespace

// Others of a workgroup may have fewer rights on its server.
template <typename Step>
void ImportMemory::IfPermitted(Step step)
{
    try {
        if (m_isPermitted) step();
    } catch (const RunTimeError& error) {
        if (error.Number != engineerrors::ReadOnlyFile) throw;
        m_isPermitted = false;
    }
}

ImportMemory::ImportMemory(const Database& planner) : m_planner(planner)
{
    if (m_planner.TableNames().contains(schema::Imports)) IfPermitted([this] { Open(); });
}

void ImportMemory::Open()
{
    m_records = m_planner.OpenTable(schema::Imports);
    m_records.SetIndex(IdIndex);
}

ImportedPieces ImportMemory::Of(const QString& entryId)
{
    ImportedPieces pieces;
    if (m_records.IsNothing()) return pieces;
    IfPermitted([&] {
        m_records.Seek(schema::Equal, ShortSum(entryId.toUtf8()));
        if (!m_records.NoMatch()) pieces = Unpacked(m_records.Fields(PiecesField).toByteArray());
    });
    return pieces;
}

void ImportMemory::Keep(const QString& entryId, const ImportedPieces& pieces)
{
    IfPermitted([&] {
        if (m_records.IsNothing()) {
            m_planner.Append(ImportsTable());
            Open();
        }
        const QString id = ShortSum(entryId.toUtf8());
        m_records.Seek(schema::Equal, id);
        if (m_records.NoMatch())
            m_records.AddNew();
        else
            m_records.Edit();
        m_records.SetField(IdField, id);
        m_records.SetField(PiecesField, Packed(pieces));
        m_records.Update();
    });
}
