// The tables of an old planner as rows of today's tables. A separate process reads the file during the life of this
// object.
#pragma once

#include "platform/engine/jet/jetframes.h"
#include "platform/engine/tabledef.h"

#include <QProcess>

class JetRows
{
public:
    // A file without the first expected table is no planner. NotADatabase.
    JetRows(const QString& path, const std::vector<TableDef>& expected);

    // The next table of the file; a text field is as wide as its column, if that is more. None at the end.
    const TableDef* NextTable();
    std::optional<std::vector<QVariant>> NextRow(); // its values in field order

    // Tells long work how much of the file has come.
    void TellReached() const;

    // How long the reader may send no byte before it is given up.
    static void SetPatienceForTests(std::chrono::milliseconds patience);

private:
    QVariant ValueOf(std::size_t field, const JetRow& row) const;

    QString m_name;
    qint64 m_size, m_most; // bytes of the file, and those that may come
    const std::vector<TableDef>& m_expected;
    struct Process : QProcess
    {
        ~Process() override
        {
            kill();
            waitForFinished();
        }
    } m_process;
    std::optional<JetFrames> m_frames;
    JetEncoding m_encoding;
    JetTable m_from;
    TableDef m_table;
    std::vector<std::optional<std::size_t>> m_columns; // for each field; an older planner may lack some
    bool m_isPlanner = false;
};
