// Draws a calendar page. From the top: header, headings, grid, the month's title. Font sizes are in points and shrink
// only if the page is too narrow.
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

// The content of a page, collected during a job. It is drawn at the end, since the grid's room depends on all of it.
struct CalendarPage
{
    static constexpr int Columns = 7;
    static constexpr int WeekView = 2; // one row; 3 has five

    PageSetup setup;
    bool hasHeader = false;
    std::vector<PageCaption> headings;
    int rows = 5;
    std::array<PageCell, 35> cells;
    PageCaption month;
};

// area is in dots of the painter's device. Lays the notes out again.
void PaintPage(QPainter& painter, CalendarPage& page, const QRectF& area);
