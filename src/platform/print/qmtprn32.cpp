#include "platform/print/qmtprn32.h"

#include "platform/desktop/msgbox.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/pagepainter.h"
#include "platform/richtext/richtextbox.h"

#include <QPainter>
#include <QPrinter>

#include <utility>

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

void QMTPrn32::qmtEndPrint()
{
    if (!m_page) return;
    const PrintResult result = RunPrintJob(m_printer, [this](QPrinter& printer, QPainter& painter) {
        PaintPage(painter, *m_page, AreaOf(printer.pageLayout(), m_page->setup.margins, printer.resolution()));
    });
    m_page.reset();
    m_writtenFile = result.writtenFile;
    m_trouble = result.trouble;
}

void QMTPrn32::TellTrouble()
{
    const auto trouble = std::exchange(m_trouble, std::nullopt);
    if (trouble) msgbox::Tell(trouble->text, msgbox::Exclamation, trouble->advice);
}
