#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/qmtprn32.h"
#include "printing/printing.h"
#include "rows.h"
#include "state/lockedday.h"
#include "state/viewmode.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

namespace {
constexpr Turns SomeJobs{10};
constexpr int Columns = 7, Rows = 5;

QString PdfPath()
{
    static const QTemporaryDir folder;
    return folder.filePath(u"page.pdf"_s);
}

bool HasPdf()
{
    return QFile(PdfPath()).size() > 0;
}

void SetUp(QPrinter& printer)
{
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(PdfPath());
}

// Prints to a file without asking.
struct FilePrinter final : SystemPrinter
{
    bool AskForJob(QWidget*) override
    {
        SetUp(Printer());
        return true;
    }
};

struct NoLock final : LockedDay
{
    bool Commit() override { return true; }
    void LeaveBehind() override {}
};

struct MonthView final : ViewMode
{
    int GetViewMode() const override { return Month; }
};

struct PrintingWindow
{
    explicit PrintingWindow(const QWidget& window)
        : bottom{window.findChild<SSPanel*>(u"panelBottom"_s)},
          printing({*window.findChild<Cells*>(), bottom, foot, view}, lock, FontDialog, printer, library)
    {
    }

    MonthView view;
    BottomPanel bottom;
    Foot foot{bottom};
    NoLock lock;
    CommonDialog FontDialog{nullptr};
    FilePrinter printer;
    QMTPrn32 library{printer};
    Printing printing;
};

// The same notes, one document each, and nothing else.
void PrintBare(const std::vector<Note>& notes)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    SetUp(printer);
    QPainter painter(&printer);
    const QSizeF cell(painter.viewport().width() / double(Columns), painter.viewport().height() / double(Rows));
    for (std::size_t i = 0; i < notes.size(); ++i) {
        QTextDocument document;
        Build({notes[i]}, document);
        document.documentLayout()->setPaintDevice(&printer);
        document.setTextWidth(cell.width());
        painter.save();
        painter.translate(cell.width() * double(i % Columns), cell.height() * double(i / Columns));
        document.drawContents(&painter, QRectF(QPointF(), cell));
        painter.restore();
    }
}
} // namespace

void AddPrintRow(const TakeRow& add, PlannerWindow& ours)
{
    static std::vector<Note> notes;
    for (int cell = 1; cell <= BoxCount; ++cell)
        notes.push_back(MakeNote(NoteNumber(ThisMonth(), cell)));
    const auto window = std::make_shared<PrintingWindow>(*ours.Box(1).window());
    const auto removePdf = [] { QFile::remove(PdfPath()); };
    add({"print a full month to PDF",
         {[window] { window->printing.mnuPrint_Click(); }, [&ours, removePdf] { ours.ShowMonth(), removePdf(); },
          HasPdf},
         {[] { PrintBare(notes); }, removePdf, HasPdf},
         SomeJobs});
}
