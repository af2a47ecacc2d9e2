#include "platform/print/printjob.h"

#include "platform/desktop/systemprinter.h"
#include "platform/runtime/durablefile.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>
#include <QScopeGuard>
#include <QTemporaryFile>

#include <algorithm>

namespace {
using Paint = std::function<void(QPrinter& printer, QPainter& painter)>;

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

bool Draw(QPrinter& printer, const Paint& paint)
{
    printer.setFullPage(true); // margins count from the paper's edge
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    auto abort = qScopeGuard([&] { printer.abort(); });
    paint(printer, painter);
    abort.dismiss();
    return painter.end() && printer.printerState() != QPrinter::Error;
}

// Drawn into a temporary file first: QPrinter would truncate the file at once and leave it incomplete on a full disk.
bool DrawFile(QPrinter& printer, const Paint& paint)
{
    QTemporaryFile drawn(QDir::tempPath() + u"/orrelin-XXXXXX.pdf"_s);
    if (!drawn.open()) return false;
    const QString path = printer.outputFileName();
    printer.setOutputFileName(drawn.fileName());
    const auto restore = qScopeGuard([&] { printer.setOutputFileName(path); });
    const bool isDrawn = Draw(printer, paint);
    const QByteArray pdf = drawn.readAll();
    return isDrawn && IsWholePdf(pdf) && WriteDurably(path, pdf);
}
} // namespace

PrintResult RunPrintJob(SystemPrinter& system, const Paint& paint)
{
    QPrinter& printer = system.Printer();
    auto renew = qScopeGuard([&] { system.Renew(); });
    const bool isPrinted = IsPdf(printer) ? DrawFile(printer, paint) : Draw(printer, paint);
    if (!isPrinted) return {TroubleWith(printer), {}};
    renew.dismiss();
    return {{}, IsPdf(printer) ? QFileInfo(printer.outputFileName()).absoluteFilePath() : QString()};
}
