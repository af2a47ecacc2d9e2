// The tables of an old planner as rows of today's tables. A process of its own reads the file, from the beginning of
// this object to its end.
#pragma once

#include "platform/engine/jet/jetframes.h"
#include "platform/engine/tabledef.h"

#include <QProcess>

class JetRows
{
public:
    // The tables that a planner has, the first of which makes it one. NotADatabase.
    JetRows(const QString& path, const std::vector<TableDef>& expected);

    // The next table that is there; a field is as wide as it was, if that is more. None at the end.
    const TableDef* NextTable();
    std::optional<std::vector<QVariant>> NextRow(); // of it, in the order of its fields

    // For tests, the time without a byte after which the reader is given up.
    static void SetPatienceForTests(std::chrono::milliseconds patience);

private:
    QVariant ValueOf(std::size_t field, const JetRow& row) const;

    QString m_name;
    const std::vector<TableDef>& m_expected;
    struct Process : QProcess
    {
        ~Process() override
        {
            kill(); // whatever it is doing then
            waitForFinished();
        }
    } m_process;
    std::optional<JetFrames> m_frames;
    JetEncoding m_encoding;
    JetTable m_from;
    TableDef m_table;
    std::vector<std::optional<std::size_t>> m_columns; // of each field; an older planner may lack some
    bool m_isPlanner = false;
};
