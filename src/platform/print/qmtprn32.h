// Collects a page by the eight operations and prints it at the end, so that an aborted job prints nothing. Reads
// section PAGESETUP.
#pragma once

#include "platform/print/printjob.h"
#include "platform/print/printlibrary.h"

#include <memory>

struct CalendarPage;
struct PageCell;
class SystemPrinter;

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
    QString WrittenFile() const override { return m_writtenFile; }

private:
    PageCell* OpenCell(int view, int position); // sets the page's view; null without a job or for a position outside

    SystemPrinter& m_printer;
    std::unique_ptr<CalendarPage> m_page; // of the current job
    RichTextBox* m_tbPrint = nullptr;
    std::optional<PrintTrouble> m_trouble; // of the last job
    QString m_writtenFile;                 // by the last job
};
