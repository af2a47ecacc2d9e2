// The tables of an old planner as rows of today's tables.
#pragma once

#include "platform/engine/jet/jetreader.h"
#include "platform/engine/tabledef.h"

class JetRows
{
public:
    // The tables that a planner has, the first of which makes it one. 3343.
    JetRows(const QString& path, const std::vector<TableDef>& expected);

    // The next table that is there; a field is as wide as it was, if that is more. None at the end.
    const TableDef* NextTable();
    std::optional<std::vector<QVariant>> NextRow(); // of it, in the order of its fields

private:
    QVariant ValueOf(std::size_t field, const JetRow& row) const;

    QString m_name;
    const std::vector<TableDef>& m_expected;
    JetReader m_reader;
    JetEncoding m_encoding;
    JetTable m_from;
    TableDef m_table;
    std::vector<std::optional<std::size_t>> m_columns; // of each field; an older planner may lack some
    bool m_isPlanner = false;
};
