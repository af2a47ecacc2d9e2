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
#include "settings/messages.h"
#include "tools/foundmodel.h"

#include <QPainter>
#include <QPrinter>

namespace {
constexpr QLatin1StringView PrintLiteral(" in FindWordForm, ListPrinting");

struct Paragraph
{
    Paragraph(const FoundLine& line, const QFont& font, QPrinter& printer, qreal width)
        : words(line.text, font, &printer)
    {
        words.setFormats(BoldIn(line));
        words.beginLayout();
        for (QTextLine next = words.createLine(); next.isValid(); next = words.createLine()) {
            next.setLineWidth(width);
            next.setPosition(QPointF(0, height));
            height += next.height();
        }
        words.endLayout();
    }

    QTextLayout words;
    qreal height = 0;
};

// Planned first, and drawn without a way to cancel: a printer prints whatever was drawn.
class ListPages
{
public:
    ListPages(QPrinter& printer, const QString& heading, const std::vector<FoundLine>& lines)
        : m_printer(printer), m_lines(lines),
          m_area(AreaOf(printer.pageLayout(), ReadPageSetup().margins, printer.resolution())),
          m_font(QFont(u"Arial"_s, 9), &printer), m_metrics(m_font, &printer), m_line(m_metrics.lineSpacing()),
          m_dates(m_metrics.horizontalAdvance(u"Sep Memo3, 20000"_s)),
          m_heading(m_metrics.elidedText(heading, Qt::ElideRight,
                                         m_area.width() - m_metrics.horizontalAdvance(u"  Page 10000"_s)))
    {
        qreal y = Top();
        for (std::size_t number = 0; number < lines.size(); ++number) {
            const qreal height = ParagraphOf(lines[number]).height;
            if (y + height > m_area.bottom() && number > m_firsts.back()) {
                m_firsts.push_back(number);
                y = Top();
            }
            y += height + Gap();
            longwork::Reached(qint64(number) + 1, qint64(lines.size()));
        }
    }

    void Draw(QPainter& painter) const
    {
        painter.setFont(m_font);
        for (std::size_t page = 0; page < m_firsts.size(); ++page) {
            if (page > 0) m_printer.newPage();
            DrawHead(painter, page + 1);
            const std::size_t end = page + 1 < m_firsts.size() ? m_firsts[page + 1] : m_lines.size();
            qreal y = Top();
            for (std::size_t number = m_firsts[page]; number < end; ++number)
                y += DrawLine(painter, m_lines[number], y) + Gap();
        }
    }

private:
    qreal Top() const { return m_area.top() + 2 * m_line; }
    qreal Gap() const { return m_line / 4; }

    Paragraph ParagraphOf(const FoundLine& line) const
    {
        return Paragraph(line, m_font, m_printer, m_area.width() - m_dates);
    }

    void DrawHead(QPainter& painter, std::size_t page) const
    {
        const QRectF head(m_area.left(), m_area.top(), m_area.width(), m_line);
        painter.drawText(head, Qt::AlignLeft, m_heading);
        painter.drawText(head, Qt::AlignRight, u"Page %1"_s.arg(page));
    }

    qreal DrawLine(QPainter& painter, const FoundLine& line, qreal y) const
    {
        const Paragraph paragraph = ParagraphOf(line);
        painter.drawText(QRectF(m_area.left(), y, m_dates, m_line), Qt::AlignLeft, line.date);
        paragraph.words.draw(&painter, QPointF(m_area.left() + m_dates, y));
        return paragraph.height;
    }

    QPrinter& m_printer;
    const std::vector<FoundLine>& m_lines;
    const QRectF m_area;
    const QFont m_font;
    const QFontMetricsF m_metrics;
    const qreal m_line, m_dates; // the height of a line, the width of the dates
    const QString m_heading;
    std::vector<std::size_t> m_firsts = {0}; // the number of the first line of each page
};
} // namespace

void ListPrinting::Print(QWidget* owner, const QString& heading, const std::vector<FoundLine>& lines)
{
    if (!m_printer.AskForJob(owner)) return;
    PrintResult result;
    const auto failure = FailureOf(u"Print List"_s, [&] {
        const ListPages pages(m_printer.Printer(), heading, lines);
        result = RunPrintJob(m_printer, [&](QPrinter&, QPainter& painter) { pages.Draw(painter); });
    });
    if (failure && failure->Number == engineerrors::Cancelled) return;
    if (failure) {
        LogError(*failure, PrintLiteral);
        return messages::Tell(failure->Description, msgbox::Exclamation);
    }
    if (result.trouble) return msgbox::Tell(result.trouble->text, msgbox::Exclamation, result.trouble->advice);
    if (!result.writtenFile.isEmpty()) m_foot.SayBeside(u"The list is in "_s + result.writtenFile);
}
