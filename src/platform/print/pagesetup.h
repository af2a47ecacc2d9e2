// What section PAGESETUP of PLANNER.INI says of the page: margins and header. Read by the print back end alone; the
// dialog that writes it keeps the margins as they were typed.
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
    QString header;    // empty for none
    QFont headerFont;
    QColor headerInk;
};

// A margin that is no number counts as 1.00; "." and "," both part its fraction.
PageSetup ReadPageSetup();

// Where the calendar goes, in dots from the paper's corner: inside the margins and where the printer can print. Margins
// that leave less than two inches across or down count as 1.00 all round.
QRectF AreaOf(const QPageLayout& paper, const QMarginsF& margins, int dotsPerInch);
