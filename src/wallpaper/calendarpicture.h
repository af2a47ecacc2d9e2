// The shown calendar as an image, drawn by its own widgets: what lies over the window on the screen does not get in.
#pragma once

#include <QImage>

class CCalendarView;
class Cells;
class QWidget;
struct BottomPanel;

namespace calendarpicture {
// How large the image becomes; the numbers stand in the settings.
inline constexpr int Normal = 0;    // the calendar as it is
inline constexpr int Stretched = 1; // laid out as for Maximized, then drawn over the whole screen
inline constexpr int Maximized = 2; // the calendar as it is in a window that fills the work area
} // namespace calendarpicture

class CalendarPicture
{
public:
    CalendarPicture(Cells& cells, const BottomPanel& bottom, const CCalendarView& calendar, QWidget& lblDateDiff)
        : m_cells(cells), m_bottom(bottom), m_calendar(calendar), m_lblDateDiff(lblDateDiff)
    {
    }

    // Grid, headings and the month's title in the screen's own pixels, without what only the moment has: today's look,
    // caret, selection, the frame of the cell with the caret, the date difference. All of that is back when the call
    // ends, however it ends; today's caption in the month's style, in the week view too.
    QImage Draw(int wallpaperSize) const;

private:
    QRect Region() const; // in logical pixels of the client area

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const CCalendarView& m_calendar;
    QWidget& m_lblDateDiff;
};

// The image as a bitmap file, in place of one of that name: whole, or the old file stays and error 75 is raised.
void SaveBitmap(const QImage& image, const QString& path);
