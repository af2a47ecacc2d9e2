// Reads a table in pages, between which the person may type and others may write. A row that stays is read once, though
// maybe as it was; one that is deleted and added meanwhile may come twice.
#pragma once

#include "platform/engine/database.h"

#include <memory>

class TableWalk
{
public:
    TableWalk() = default;                                                                // at its end
    TableWalk(const Database& database, const QString& table, const QStringList& fields); // NoTable, ItemNotFound

    // The values of the next rows, in order of insertion; none at the end. Each page is a short wait, for a server too.
    // Does not keep the database open: Closed once it is closed.
    std::vector<std::vector<QVariant>> Next();
    double Done() const; // from 0 to 1

private:
    std::weak_ptr<OpenStore> m_database;
    TableDef m_table; // with the wanted fields alone
    qint64 m_after = 0, m_last = 0;
    int m_rows = 0; // of the next page; 0 at the end
};
