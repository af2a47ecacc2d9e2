#include "tools/listprinting.h"

#include "hall/foot.h"
#include "planners/opening.h"
#include "platform/desktop/msgbox.h"
#include "platform/desktop/systemprinter.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/longwork.h"
#include "platform/print/pagesetup.h"
#include "platform/print/printjob.h"
#include "platform/runtime/errortail.h"
#include "tools/foundmodel.h"

#include <QPainter>
#include <QPrinter>

namespace {
constexpr QLatin1StringView PrintLiteral(" in FindWordForm, ListPrinting");

class ListPages
{
public:
    ListPages(QPrinter& printer, QPainter& painter, QString heading)
        : m_printer(printer), m_painter(painter), m_heading(std::move(heading)),
          m_area(AreaOf(printer.pageLayout(), ReadPageSetup().margins, printer.resolution())),
          m_font(QFont(u"Arial"_s, 9), &printer), m_line(QFontMetricsF(m_font, &printer).lineSpacing()),
          m_dates(QFontMetricsF(m_font, &printer).horizontalAdvance(u"Sep Memo3, 20000"_s))
    {
        painter.setFont(m_font);
        BeginPage();
    }

    void Put(const FoundLine& line)
    {
        QTextLayout words(line.text, m_font, &m_printer);
        words.setFormats(BoldIn(line));
        const qreal height = LayOut(words);
        if (m_y + height > m_area.bottom() && m_y > m_top) {
            m_printer.newPage();
            BeginPage();
        }
        m_painter.drawText(QRectF(m_area.left(), m_y, m_dates, m_line), Qt::AlignLeft, line.date);
        words.draw(&m_painter, QPointF(m_area.left() + m_dates, m_y));
        m_y += height + m_line / 4;
    }

private:
    void BeginPage()
    {
        const QRectF head(m_area.left(), m_area.top(), m_area.width(), m_line);
        m_painter.drawText(head, Qt::AlignLeft, m_heading);
        m_painter.drawText(head, Qt::AlignRight, u"Page %1"_s.arg(++m_page));
        m_y = m_top = m_area.top() + 2 * m_line;
    }

    qreal LayOut(QTextLayout& words) const
    {
        qreal height = 0;
        words.beginLayout();
        for (QTextLine line = words.createLine(); line.isValid(); line = words.createLine()) {
            line.setLineWidth(m_area.width() - m_dates);
            line.setPosition(QPointF(0, height));
            height += line.height();
        }
        words.endLayout();
        return height;
    }

    QPrinter& m_printer;
    QPainter& m_painter;
    const QString m_heading;
    const QRectF m_area;
    const QFont m_font;
    const qreal m_line, m_dates; // the height of a line, the width of the dates
    qreal m_y = 0, m_top = 0;
    int m_page = 0;
};
} // namespace

void ListPrinting::Print(QWidget* owner, const QString& heading, const FoundModel& found)
{
    if (!m_printer.AskForJob(owner)) return;
    PrintResult result;
    const auto failure = FailureOf(u"Print List"_s, [&] {
        result = RunPrintJob(m_printer, [&](QPrinter& printer, QPainter& painter) {
            ListPages pages(printer, painter, heading);
            for (int row = 0; row < found.rowCount(); ++row) {
                pages.Put(found.LineAt(row));
                longwork::Reached(row + 1, found.rowCount());
            }
        });
    });
    if (failure && failure->Number == engineerrors::Cancelled) return;
    if (failure) return LogError(*failure, PrintLiteral);
    if (result.trouble) return msgbox::Tell(result.trouble->text, msgbox::Exclamation, result.trouble->advice);
    if (!result.writtenFile.isEmpty()) m_foot.SayBeside(u"The list is in "_s + result.writtenFile);
}
