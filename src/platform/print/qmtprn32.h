// The print back end: gathers a page by the eight operations and prints it when the job ends, so that a job that breaks
// off half-way leaves nothing on paper. Reads section PAGESETUP itself.
#pragma once

#include "platform/print/printlibrary.h"

#include <memory>
#include <optional>

struct CalendarPage;
struct PageCell;
class QPrinter;
class SystemPrinter;

struct PrintTrouble
{
    QString text;
    QString advice;
};

class QMTPrn32 final : public PrintLibrary
{
public:
    explicit QMTPrn32(SystemPrinter& printer);
    ~QMTPrn32() override;

    std::int16_t qmtInitPrint(QWidget* window, RichTextBox& tbPrint) override;
    void qmtPrintHeader() override;
    void qmtPrintDOW(const QString& caption, const CaptionLook& look) override;
    void qmtPrintBoxes(int view, int position) override;
    void qmtPrintBody(const QString& path, int view, int position) override;
    void qmtPrintDate(const QString& caption, const CaptionLook& look, int view, int position) override;
    void qmtPrintMonth(const QString& caption, const CaptionLook& look) override;
    void qmtEndPrint() override;
    void TellTrouble() override;

private:
    PageCell* OpenCell(int view, int position); // the page has the view now; null without a job, or for no cell of it
    bool Draw(QPrinter& printer);
    bool DrawFile(QPrinter& printer);

    SystemPrinter& m_printer;
    std::unique_ptr<CalendarPage> m_page; // of the job under way
    RichTextBox* m_tbPrint = nullptr;
    std::optional<PrintTrouble> m_trouble; // of the last job
};
