#include "platform/print/qmtprn32.h"

#include "platform/desktop/msgbox.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/pagepainter.h"
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/durablefile.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryFile>

#include <algorithm>
#include <utility>

namespace {
// QPrinter does not report a full disk.
bool IsWholePdf(const QByteArray& pdf)
{
    constexpr qsizetype TailSize = 16;
    return pdf.last(std::min(TailSize, pdf.size())).contains("%%EOF");
}

bool IsPdf(const QPrinter& printer)
{
    return printer.outputFormat() == QPrinter::PdfFormat;
}

PrintTrouble TroubleWith(const QPrinter& printer)
{
    if (IsPdf(printer))
        return {u"The page could not be written to %1."_s.arg(printer.outputFileName()),
                u"Is the folder still there, and is there room on the disk?"_s};
    return {u"The page could not be printed on %1."_s.arg(printer.printerName()),
            u"Is the printer switched on and connected?"_s};
}
} // namespace

QMTPrn32::QMTPrn32(SystemPrinter& printer) : m_printer(printer) {}
QMTPrn32::~QMTPrn32() = default;

std::int16_t QMTPrn32::qmtInitPrint(QWidget* window, RichTextBox& tbPrint)
{
    m_page.reset();
    m_writtenFile.clear();
    if (!m_printer.AskForJob(window)) return 0;
    m_page = std::make_unique<CalendarPage>();
    m_page->setup = ReadPageSetup();
    m_tbPrint = &tbPrint;
    return 1;
}

void QMTPrn32::qmtPrintHeader()
{
    if (m_page) m_page->hasHeader = true;
}

void QMTPrn32::qmtPrintDOW(const QString& caption, const CaptionLook& look)
{
    if (m_page && m_page->headings.size() < CalendarPage::Columns)
        m_page->headings.push_back({caption.trimmed(), look});
}

PageCell* QMTPrn32::OpenCell(int view, int position)
{
    if (!m_page) return nullptr;
    m_page->rows = view == CalendarPage::WeekView ? 1 : 5;
    const bool isCell = position >= 1 && position <= m_page->rows * CalendarPage::Columns;
    return isCell ? &m_page->cells[std::size_t(position - 1)] : nullptr;
}

void QMTPrn32::qmtPrintBoxes(int view, int position)
{
    if (PageCell* cell = OpenCell(view, position)) cell->hasBox = true;
}

void QMTPrn32::qmtPrintBody(const QString&, int view, int position)
{
    if (PageCell* cell = OpenCell(view, position)) cell->note.reset(m_tbPrint->document()->clone());
}

void QMTPrn32::qmtPrintDate(const QString& caption, const CaptionLook& look, int view, int position)
{
    if (PageCell* cell = OpenCell(view, position)) cell->date = {caption.trimmed(), look};
}

void QMTPrn32::qmtPrintMonth(const QString& caption, const CaptionLook& look)
{
    if (m_page) m_page->month = {caption.trimmed(), look};
}

bool QMTPrn32::Draw(QPrinter& printer)
{
    printer.setFullPage(true); // margins count from the paper's edge
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    PaintPage(painter, *m_page, AreaOf(printer.pageLayout(), m_page->setup.margins, printer.resolution()));
    return painter.end() && printer.printerState() != QPrinter::Error;
}

// Drawn into a temporary file first: QPrinter would truncate the file at once and leave it incomplete on a full disk.
bool QMTPrn32::DrawFile(QPrinter& printer)
{
    QTemporaryFile drawn(QDir::tempPath() + u"/orrelin-XXXXXX.pdf"_s);
    if (!drawn.open()) return false;
    const QString path = printer.outputFileName();
    printer.setOutputFileName(drawn.fileName());
    const bool isDrawn = Draw(printer);
    printer.setOutputFileName(path);
    const QByteArray pdf = drawn.readAll();
    return isDrawn && IsWholePdf(pdf) && WriteDurably(path, pdf);
}

void QMTPrn32::qmtEndPrint()
{
    if (!m_page) return;
    QPrinter& printer = m_printer.Printer();
    const bool isPrinted = IsPdf(printer) ? DrawFile(printer) : Draw(printer);
    m_page.reset();
    if (isPrinted && IsPdf(printer)) m_writtenFile = QFileInfo(printer.outputFileName()).absoluteFilePath();
    if (isPrinted) return;
    m_trouble = TroubleWith(printer);
    m_printer.Renew();
}

void QMTPrn32::TellTrouble()
{
    const auto trouble = std::exchange(m_trouble, std::nullopt);
    if (trouble) msgbox::Tell(trouble->text, msgbox::Exclamation, trouble->advice);
}
