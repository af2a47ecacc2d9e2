// Draws a calendar's page into an area of a device. From the top: header, headings, the grid; the month's title at the
// foot. Fonts have their sizes in points and are made smaller only where the page is too narrow for them.
#pragma once

#include "platform/print/pagesetup.h"
#include "platform/print/printlibrary.h"

#include <QRectF>
#include <QTextDocument>

#include <array>
#include <memory>
#include <vector>

class QPainter;

struct PageCaption
{
    QString text;
    CaptionLook look;
};

struct PageCell
{
    bool hasBox = false;
    std::unique_ptr<QTextDocument> note;
    PageCaption date;
};

// What stands on a page, as the operations of a job have brought it; drawn when the job ends, since only all of it
// together tells how much room is left for the boxes.
struct CalendarPage
{
    static constexpr int Columns = 7;
    static constexpr int WeekView = 2; // one row; 3 is the month's five

    PageSetup setup;
    bool hasHeader = false;
    std::vector<PageCaption> headings;
    int rows = 5;
    std::array<PageCell, 35> cells;
    PageCaption month;
};

// area in dots of the painter's device. Lays the notes out again.
void PaintPage(QPainter& painter, CalendarPage& page, const QRectF& area);
