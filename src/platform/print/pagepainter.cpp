#include "platform/print/pagepainter.h"

#include "platform/print/notefit.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr double PointsPerInch = 72;

// Lengths in points.
constexpr double HairlineWidth = 0.5;
constexpr double FrameWidth = 1;
constexpr double Padding = 4.5;  // inside a cell's edge
constexpr double Gap = 6;        // above and below the grid
constexpr double LeastBand = 13; // least height above a note, for the date

constexpr double LargestShare = 0.1; // of the page's height, for a line of text
constexpr double LeastFactor = 0.5;  // least scale of fonts; longer texts are cut
constexpr double Slack = 0.98;       // widths shrink a little less than sizes
constexpr QColor LineColor(0xb9, 0xb3, 0xa6);

class PagePainter
{
public:
    PagePainter(QPainter& painter, CalendarPage& page, const QRectF& area)
        : m_painter(painter), m_page(page), m_area(area), m_grid(area),
          m_point(painter.device()->logicalDpiY() / PointsPerInch)
    {
    }

    void Paint();

private:
    QFontMetricsF MetricsOf(const QFont& font) const { return QFontMetricsF(font, m_painter.device()); }
    double FactorFor(const PageCaption& caption, double width, double height) const;
    QFont Smaller(const QFont& font, double factor) const;
    QRectF TakeTop(double height);
    QRectF TakeBottom(double height);
    void PaintLine(const PageCaption& caption, const QFont& font, const QRectF& place);
    void PaintHeader();
    void PaintHeadings();
    void MeasureDates();
    QRectF CellRect(int index) const;
    void PaintBox(const PageCell& cell, const QRectF& rect);
    void PaintNote(PageCell& cell, const QRectF& rect);
    void PaintDate(const PageCell& cell, const QRectF& rect);

    QPainter& m_painter;
    CalendarPage& m_page;
    const QRectF m_area;
    QRectF m_grid; // the rest of the area
    const double m_point;
    double m_dateFactor = 1;
    double m_band = 0; // height above each note
};

double PagePainter::FactorFor(const PageCaption& caption, double width, double height) const
{
    const QFontMetricsF metrics = MetricsOf(caption.look.font);
    const double needed = metrics.horizontalAdvance(caption.text);
    const double across = needed > width ? std::max(width / needed * Slack, LeastFactor) : 1;
    return std::min({1.0, across, height / metrics.height()});
}

QFont PagePainter::Smaller(const QFont& font, double factor) const
{
    QFont smaller = font;
    smaller.setPointSizeF(std::max(font.pointSizeF() * factor, 1.0));
    return smaller;
}

QRectF PagePainter::TakeTop(double height)
{
    const QRectF taken(m_grid.left(), m_grid.top(), m_grid.width(), height);
    m_grid.setTop(taken.bottom());
    return taken;
}

QRectF PagePainter::TakeBottom(double height)
{
    const QRectF taken(m_grid.left(), m_grid.bottom() - height, m_grid.width(), height);
    m_grid.setBottom(taken.top());
    return taken;
}

void PagePainter::PaintLine(const PageCaption& caption, const QFont& font, const QRectF& place)
{
    const QString shown = MetricsOf(font).elidedText(caption.text, Qt::ElideRight, place.width());
    m_painter.setFont(font);
    m_painter.setPen(caption.look.ink);
    m_painter.drawText(place, int(caption.look.alignment | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

void PagePainter::PaintHeader()
{
    const PageCaption header = {m_page.setup.header.trimmed(), {m_page.setup.headerFont, m_page.setup.headerInk}};
    if (!m_page.hasHeader || header.text.isEmpty()) return;
    const double factor = FactorFor(header, m_area.width(), m_area.height() * LargestShare);
    const QFont font = Smaller(header.look.font, factor);
    PaintLine(header, font, TakeTop(MetricsOf(font).height()));
    TakeTop(Gap * m_point);
}

// All seven get the same scale.
void PagePainter::PaintHeadings()
{
    if (m_page.headings.empty()) return;
    const double width = m_area.width() / CalendarPage::Columns - 2 * Padding * m_point;
    double factor = 1, height = 0;
    for (const PageCaption& heading : m_page.headings)
        factor = std::min(factor, FactorFor(heading, width, m_area.height() * LargestShare));
    for (const PageCaption& heading : m_page.headings)
        height = std::max(height, MetricsOf(Smaller(heading.look.font, factor)).height());
    const QRectF row = TakeTop(height + Padding * m_point);
    for (std::size_t i = 0; i < m_page.headings.size(); ++i) {
        const QRectF column = CellRect(int(i));
        PaintLine(m_page.headings[i], Smaller(m_page.headings[i].look.font, factor),
                  QRectF(column.left(), row.top(), column.width(), height));
    }
}

void PagePainter::MeasureDates()
{
    const QRectF cell = CellRect(0);
    constexpr double BandShare = 0.3;
    m_band = LeastBand * m_point;
    for (const PageCell& each : m_page.cells)
        m_dateFactor = std::min(m_dateFactor,
                                FactorFor(each.date, cell.width() - 2 * Padding * m_point, cell.height() * BandShare));
    for (const PageCell& each : m_page.cells) {
        if (each.date.text.isEmpty()) continue;
        const double height = MetricsOf(Smaller(each.date.look.font, m_dateFactor)).height();
        m_band = std::max(m_band, height + 2 * m_point);
    }
}

// Whole dots make all lines equally thick.
QRectF PagePainter::CellRect(int index) const
{
    const int column = index % CalendarPage::Columns, row = index / CalendarPage::Columns;
    const auto across = [&](int edge) {
        return std::round(m_grid.left() + m_grid.width() * edge / CalendarPage::Columns);
    };
    const auto down = [&](int edge) { return std::round(m_grid.top() + m_grid.height() * edge / m_page.rows); };
    return QRectF(QPointF(across(column), down(row)), QPointF(across(column + 1), down(row + 1)));
}

void PagePainter::PaintBox(const PageCell& cell, const QRectF& rect)
{
    if (!cell.hasBox) return;
    if (cell.date.look.paper != Qt::white) m_painter.fillRect(rect, cell.date.look.paper);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(LineColor, HairlineWidth * m_point, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    m_painter.drawRect(rect);
    if (!cell.date.look.frame.isValid()) return;
    const double inside = (HairlineWidth + FrameWidth) / 2 * m_point;
    m_painter.setPen(QPen(cell.date.look.frame, FrameWidth * m_point, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    m_painter.drawRect(rect.adjusted(inside, inside, -inside, -inside));
}

void PagePainter::PaintNote(PageCell& cell, const QRectF& rect)
{
    if (!cell.note || cell.note->isEmpty()) return;
    const double padding = Padding * m_point;
    const QRectF place = rect.adjusted(padding, padding / 2 + m_band, -padding, -padding);
    if (place.isEmpty()) return;
    FitNote(*cell.note, place.size(), *m_painter.device());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black); // not the theme's colour
    context.clip = QRectF(QPointF(), place.size());
    m_painter.save();
    m_painter.setClipRect(place);
    m_painter.translate(place.topLeft());
    cell.note->documentLayout()->draw(&m_painter, context);
    m_painter.restore();
}

void PagePainter::PaintDate(const PageCell& cell, const QRectF& rect)
{
    if (cell.date.text.isEmpty()) return;
    const double padding = Padding * m_point;
    const QFont font = Smaller(cell.date.look.font, m_dateFactor);
    const QRectF place(rect.left() + padding, rect.top() + padding / 2, rect.width() - 2 * padding, m_band);
    m_painter.setFont(font);
    const QRectF ground =
        m_painter.boundingRect(place, int(cell.date.look.alignment | Qt::AlignVCenter), cell.date.text);
    m_painter.fillRect(ground.adjusted(-m_point, 0, m_point, 0) & place.adjusted(-m_point, 0, m_point, 0),
                       cell.date.look.paper);
    PaintLine(cell.date, font, place);
}

void PagePainter::Paint()
{
    PaintHeader();
    const double titleFactor = FactorFor(m_page.month, m_area.width(), m_area.height() * LargestShare);
    const QFont titleFont = Smaller(m_page.month.look.font, titleFactor);
    QRectF title;
    if (!m_page.month.text.isEmpty()) {
        title = TakeBottom(MetricsOf(titleFont).height());
        TakeBottom(Gap * m_point);
    }
    PaintHeadings();
    MeasureDates();
    const int count = m_page.rows * CalendarPage::Columns;
    for (int i = 0; i < count; ++i)
        PaintBox(m_page.cells[std::size_t(i)], CellRect(i));
    for (int i = 0; i < count; ++i)
        PaintNote(m_page.cells[std::size_t(i)], CellRect(i));
    for (int i = 0; i < count; ++i)
        PaintDate(m_page.cells[std::size_t(i)], CellRect(i));
    if (!title.isEmpty()) PaintLine(m_page.month, titleFont, title);
}
} // namespace

void PaintPage(QPainter& painter, CalendarPage& page, const QRectF& area)
{
    PagePainter(painter, page, area).Paint();
}
