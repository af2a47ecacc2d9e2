// What a repair has found and kept.
#pragma once

#include <QString>

#include <vector>

struct RepairReport
{
    struct Table
    {
        QString Name;
        qint64 Rows = 0;    // recovered, the cut ones included
        qint64 CutRows = 0; // of which the end of a text, or what stood behind it, is lost
    };
    QString KeptAs; // where the damaged planner lies now, with its journal; empty if nothing was wrong
    std::vector<Table> Tables;
};
