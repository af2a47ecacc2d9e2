// Margins and header from section PAGESETUP of PLANNER.INI, for printing. The page setup dialog keeps the margins as
// typed.
#pragma once

#include <QColor>
#include <QFont>
#include <QMarginsF>
#include <QString>

class QPageLayout;
class QRectF;

struct PageSetup
{
    QMarginsF margins; // inches from the paper's edge
    QString header;    // may be empty
    QFont headerFont;
    QColor headerInk;
};

// A margin that is no number counts as 1.00; "." and "," are both decimal points.
PageSetup ReadPageSetup();

// The calendar's area in dots: inside the margins and the printable area. If the margins leave less than two inches in
// a direction, all count as 1.00.
QRectF AreaOf(const QPageLayout& paper, const QMarginsF& margins, int dotsPerInch);
