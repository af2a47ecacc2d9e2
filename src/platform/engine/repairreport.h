// The result of a repair.
#pragma once

#include <QString>

#include <vector>

struct RepairReport
{
    struct Table
    {
        QString Name;
        qint64 Rows = 0;    // recovered rows, cut ones included
        qint64 CutRows = 0; // rows that lost the end of a text or what followed it
    };
    QString KeptAs; // the damaged planner's new place, journal included; empty if nothing was wrong
    std::vector<Table> Tables;
};
