// Draws a calendar's page into an area of a device. From the top: header, headings, the grid; the month's title at the
// foot. Fonts have their sizes in points and are made smaller only where the page is too narrow for them.
#pragma once

#include <QRectF>

class QPainter;
struct CalendarPage;

// area in dots of the painter's device. Lays the notes out anew.
void PaintPage(QPainter& painter, CalendarPage& page, const QRectF& area);
