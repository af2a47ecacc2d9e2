#include "wallpaper/calendarpicture.h"

#include "calendar/ccalendarview.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/panelstyle.h"
#include "platform/desktop/windowplace.h"
#include "platform/look/paper.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/runtimeerror.h"
#include "settings/settings.h"
#include "state/calendarstate.h"
#include "state/modshow.h"

#include <QBuffer>
#include <QPainter>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalBlocker>

#include <optional>

namespace {
// Removes momentary looks from the shown cells and restores them in its destructor.
class MomentsLook
{
public:
    // lblDateDiff and card may lie over the cells. month may have notices behind its title.
    MomentsLook(Cells& cells, const ViewMode& viewMode, QWidget& lblDateDiff, QWidget& card, SSPanel& month);
    ~MomentsLook();
    Q_DISABLE_COPY_MOVE(MomentsLook)

private:
    void HideCaret(RichTextBox& box);
    void ShowCaret();

    QWidget& m_lblDateDiff;
    QWidget& m_card;
    const bool m_hadLabel;
    SSPanel& m_month;
    const QString m_title;
    SSPanel* m_today = nullptr;
    SSPanel* m_active = nullptr;
    SSPanel* m_held = nullptr;
    RichTextBox* m_box = nullptr; // box with the caret
    std::optional<QSignalBlocker> m_silent;
    QTextCursor m_caret;
    int m_caretWidth = 0;
    int m_scrolled = 0;
};

SSPanel* TodaysPanel(Cells& cells, const CellRange& range)
{
    const int today = ShownToday();
    const int cell = today == 0 ? 0 : cells.CellOfDay(range, today);
    return cell == 0 ? nullptr : &cells.panelDay(cell);
}
MomentsLook::MomentsLook(Cells& cells, const ViewMode& viewMode, QWidget& lblDateDiff, QWidget& card, SSPanel& month)
    : m_lblDateDiff(lblDateDiff), m_card(card), m_hadLabel(!lblDateDiff.isHidden()), m_month(month),
      m_title(month.Caption())
{
    m_month.SetCaption(MonthTitle());
    m_lblDateDiff.setVisible(false);
    m_card.lower(); // behind the cells; hiding it would move the focus
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
    // In the week view, too, the month's style is used, here and in the destructor.
    ApplyStyle(*m_today, ReadStyle(settings::DailyPanel));
    m_today->SetPaper(paper::Paper);
    m_today->SetFrame(QColor());
}

MomentsLook::~MomentsLook()
{
    m_month.SetCaption(m_title);
    m_lblDateDiff.setVisible(m_hadLabel);
    m_card.raise();
    if (m_today) {
        ApplyStyle(*m_today, ReadStyle(settings::TodayPanel));
        m_today->SetPaper(paper::Today);
        m_today->SetFrame(paper::TodayFrame);
    }
    if (m_active) m_active->SetActive(true);
    if (m_held) m_held->SetHeld(true);
    if (m_box) ShowCaret();
}

// Blocks the box's signals until the caret is shown again: nobody moved it, and nobody may paint over the note.
void MomentsLook::HideCaret(RichTextBox& box)
{
    m_silent.emplace(box);
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
    m_box->setCursorWidth(m_caretWidth);
    if (!m_caret.hasSelection()) return;
    m_box->setTextCursor(m_caret);
    m_box->verticalScrollBar()->setValue(m_scrolled);
}

// The client's size in a window that fills the work area. The window itself is not resized: it would flash, and a
// window manager may refuse or be late.
QSize GrownSize(const QWidget& client)
{
    const QWidget& window = *client.window();
    return window.screen()->availableGeometry().size() - (window.frameGeometry().size() - client.size());
}

QSize ScaledBy(const QSize& logical, qreal ratio)
{
    return (QSizeF(logical) * ratio).toSize();
}

// Draws the region over an image of this many pixels. Text is drawn in the new size, not stretched.
QImage DrawOver(QWidget& client, const QRect& region, const QSize& drawn, const QSize& pixels)
{
    const qreal ratio = client.devicePixelRatioF();
    QImage image(pixels, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(client.palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.scale(drawn.width() / ratio / region.width(), drawn.height() / ratio / region.height());
    client.render(&painter, QPoint(), region);
    return image;
}
} // namespace

QRect CalendarPicture::Region() const
{
    Rectangle grid;
    m_calendar.GetRect(grid.left, grid.top, grid.right, grid.bottom);
    return {grid.left, grid.top, grid.right - grid.left, grid.bottom - grid.top + m_bottom.panelBottom->height()};
}

QImage CalendarPicture::Draw(int wallpaperSize) const
{
    QWidget& client = *m_cells.Client();
    const auto restore = qScopeGuard([&client, before = client.geometry()] { client.setGeometry(before); });
    if (wallpaperSize != calendarpicture::Normal && client.isVisible()) client.resize(GrownSize(client));
    const MomentsLook out(m_cells, m_calendar, m_lblDateDiff, m_card, *m_bottom.panelBottom);
    const QRect region = Region();
    const qreal ratio = client.devicePixelRatioF();
    if (wallpaperSize == calendarpicture::Stretched) {
        const QSize screen = NativeSize(*client.screen());
        return DrawOver(client, region, screen, screen);
    }
    const QSize drawn = ScaledBy(region.size(), ratio);
    // One row less: the panel's lowest row belongs to the client area below.
    return DrawOver(client, region, drawn, ScaledBy(region.size() - QSize(0, 1), ratio));
}

void SaveBitmap(const QImage& image, const QString& path)
{
    QBuffer bitmap;
    QString reason;
    if (!image.save(&bitmap, "BMP") || !WriteDurably(path, bitmap.data(), &reason))
        throw RunTimeError{errors::PathFileAccess, u"Cannot write %1: %2"_s.arg(path, reason)};
}
