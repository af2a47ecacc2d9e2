#include "wallpaper/momentslook.h"

#include "appearance/panelstyle.h"
#include "calendar/calendarstate.h"
#include "calendar/modshow.h"
#include "calendar/viewmode.h"
#include "hall/cells.h"
#include "platform/desktop/clock.h"
#include "platform/look/paper.h"
#include "settings/settings.h"

#include <QScrollBar>
#include <QSignalBlocker>

namespace {
SSPanel* TodaysPanel(Cells& cells, const CellRange& range)
{
    const QDate today = desktopclock::Now().date();
    if (g_iMonth != today.month() || g_iYear != today.year()) return nullptr;
    const int cell = cells.CellOfDay(range, today.day());
    return cell == 0 ? nullptr : &cells.panelDay(cell);
}
} // namespace

MomentsLook::MomentsLook(Cells& cells, const ViewMode& viewMode, QWidget& lblDateDiff, SSPanel& month)
    : m_lblDateDiff(lblDateDiff), m_hadLabel(!lblDateDiff.isHidden()), m_month(month), m_title(month.Caption())
{
    m_month.SetCaption(MonthTitle());
    m_lblDateDiff.setVisible(false);
    const CellRange range = CellsOf(viewMode.GetViewMode());
    for (int cell = range.first; cell <= range.last && cell > 0; ++cell) {
        if (!cells.Shows(cell)) continue;
        if (cells.panelDay(cell).IsActive()) m_active = &cells.panelDay(cell);
        if (cells.panelDay(cell).IsHeld()) m_held = &cells.panelDay(cell);
        if (&cells.tbDay(cell) == cells.Client()->window()->focusWidget()) HideCaret(cells.tbDay(cell));
    }
    if (m_active) m_active->SetActive(false);
    if (m_held) m_held->SetHeld(false);
    m_today = TodaysPanel(cells, range);
    if (!m_today) return;
    // The month's styles in the week view too, here and at the end: the wallpaper knows no others.
    ApplyStyle(*m_today, ReadStyle(settings::DailyPanel));
    m_today->SetPaper(paper::Paper);
    m_today->SetFrame(QColor());
}

MomentsLook::~MomentsLook()
{
    m_month.SetCaption(m_title);
    m_lblDateDiff.setVisible(m_hadLabel);
    if (m_today) {
        ApplyStyle(*m_today, ReadStyle(settings::TodayPanel));
        m_today->SetPaper(paper::Today);
        m_today->SetFrame(paper::TodayFrame);
    }
    if (m_active) m_active->SetActive(true);
    if (m_held) m_held->SetHeld(true);
    if (m_box) ShowCaret();
}

// The box is not to tell of it: nobody has moved the caret.
void MomentsLook::HideCaret(RichTextBox& box)
{
    const QSignalBlocker silent(box);
    m_box = &box;
    m_caret = box.textCursor();
    m_caretWidth = box.cursorWidth();
    m_scrolled = box.verticalScrollBar()->value();
    box.setCursorWidth(0);
    if (!m_caret.hasSelection()) return;
    QTextCursor unselected = m_caret;
    unselected.clearSelection();
    box.setTextCursor(unselected);
    box.verticalScrollBar()->setValue(m_scrolled);
}

void MomentsLook::ShowCaret()
{
    const QSignalBlocker silent(m_box);
    m_box->setCursorWidth(m_caretWidth);
    if (!m_caret.hasSelection()) return;
    m_box->setTextCursor(m_caret);
    m_box->verticalScrollBar()->setValue(m_scrolled);
}
