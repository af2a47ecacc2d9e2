// The shown calendar as an image, drawn by its widgets, so that windows in front of it do not appear.
#pragma once

#include <QImage>

class CCalendarView;
class Cells;
class QWidget;
struct BottomPanel;

namespace calendarpicture {
// The image's size; these numbers are stored.
inline constexpr int Normal = 0;    // the calendar as it is
inline constexpr int Stretched = 1; // laid out as for Maximized, then drawn over the whole screen
inline constexpr int Maximized = 2; // the calendar as it is in a window that fills the work area
} // namespace calendarpicture

class CalendarPicture
{
public:
    CalendarPicture(Cells& cells, const BottomPanel& bottom, const CCalendarView& calendar, QWidget& lblDateDiff,
                    QWidget& card)
        : m_cells(cells), m_bottom(bottom), m_calendar(calendar), m_lblDateDiff(lblDateDiff), m_card(card)
    {
    }

    // Grid, headings and month's title in device pixels, without momentary looks: today, caret, selection, frames, date
    // difference, card. They are restored afterwards, also after an error. Today's caption then has the month's style,
    // in the week view too.
    QImage Draw(int wallpaperSize) const;

private:
    QRect Region() const; // logical pixels of the client area

    Cells& m_cells;
    const BottomPanel& m_bottom;
    const CCalendarView& m_calendar;
    QWidget& m_lblDateDiff;
    QWidget& m_card;
};

// Writes a bitmap file. If that fails, an old file stays and errors::PathFileAccess is raised.
void SaveBitmap(const QImage& image, const QString& path);
