#include "platform/print/qmtprn32.h"

#include "platform/desktop/msgbox.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/calendarpage.h"
#include "platform/print/pagepainter.h"
#include "platform/richtext/richtextbox.h"

#include <QFile>
#include <QPainter>
#include <QPrinter>

namespace {
// Nobody tells of a disk that ran full while the file was written.
bool IsWholePdf(const QString& path)
{
    constexpr qint64 TailSize = 16;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() > TailSize && file.seek(file.size() - TailSize) &&
           file.read(TailSize).contains("%%EOF");
}

bool IsPdf(const QPrinter& printer)
{
    return printer.outputFormat() == QPrinter::PdfFormat;
}

void TellFailure(const QPrinter& printer)
{
    const QString text = IsPdf(printer)
                             ? QStringLiteral("The page could not be written to %1.").arg(printer.outputFileName())
                             : QStringLiteral("The page could not be printed on %1.").arg(printer.printerName());
    const QString advice = IsPdf(printer) ? QStringLiteral("Is the folder still there, and is there room on the disk?")
                                          : QStringLiteral("Is the printer switched on and connected?");
    MsgBox(text, msgbox::Exclamation, QString(), advice);
}
} // namespace

QMTPrn32::QMTPrn32(SystemPrinter& printer) : m_printer(printer) {}
QMTPrn32::~QMTPrn32() = default;

std::int16_t QMTPrn32::qmtInitPrint(QWidget* window, RichTextBox& tbPrint)
{
    m_page.reset();
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

PageCell* QMTPrn32::Cell(int view, int position)
{
    if (!m_page) return nullptr;
    m_page->rows = view == CalendarPage::WeekView ? 1 : 5;
    const bool isCell = position >= 1 && position <= m_page->rows * CalendarPage::Columns;
    return isCell ? &m_page->cells[std::size_t(position - 1)] : nullptr;
}

void QMTPrn32::qmtPrintBoxes(int view, int position)
{
    if (PageCell* cell = Cell(view, position)) cell->hasBox = true;
}

void QMTPrn32::qmtPrintBody(const QString&, int view, int position)
{
    if (PageCell* cell = Cell(view, position)) cell->note.reset(m_tbPrint->document()->clone());
}

void QMTPrn32::qmtPrintDate(const QString& caption, const CaptionLook& look, int view, int position)
{
    if (PageCell* cell = Cell(view, position)) cell->date = {caption.trimmed(), look};
}

void QMTPrn32::qmtPrintMonth(const QString& caption, const CaptionLook& look)
{
    if (m_page) m_page->month = {caption.trimmed(), look};
}

bool QMTPrn32::Print()
{
    QPrinter& printer = m_printer.Printer();
    printer.setFullPage(true); // margins are counted from the paper's edge
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    PaintPage(painter, *m_page, AreaOf(printer.pageLayout(), m_page->setup.margins, printer.resolution()));
    if (!painter.end() || printer.printerState() == QPrinter::Error) return false;
    return !IsPdf(printer) || IsWholePdf(printer.outputFileName());
}

void QMTPrn32::qmtEndPrint()
{
    if (!m_page) return;
    const bool isPrinted = Print();
    m_page.reset();
    if (!isPrinted) TellFailure(m_printer.Printer());
}
