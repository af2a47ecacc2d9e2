#include "printing/printing.h"

#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/foot.h"
#include "platform/controls/named.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/folders.h"
#include "platform/look/colorvalue.h"
#include "platform/look/paper.h"
#include "platform/print/printlibrary.h"
#include "platform/runtime/errortail.h"
#include "printing/pagesetupform.h"
#include "printing/spoolform.h"
#include "state/lockedday.h"
#include "state/modshow.h"
#include "state/viewmode.h"

#include <QFile>

namespace {
constexpr QLatin1StringView EngineLiteral(" in MainForm, subUseDLLPrintEngine");
constexpr int Headings = 7;

// A cell's look on paper: flat, and white instead of the calendar's paper colour.
CaptionLook LookOf(const SSPanel& panel)
{
    constexpr Qt::Alignment Columns[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return {panel.CaptionFont(), ColorOfValue(panel.ForeColor()), Columns[panel.CaptionAlignment() / 3],
            panel.Paper() == paper::Paper ? QColor(Qt::white) : panel.Paper(), panel.Frame()};
}
} // namespace

Printing::Printing(const Printed& printed, LockedDay& lockedDay, CommonDialog& FontDialog, SystemPrinter& printer,
                   PrintLibrary& library)
    : m_printed(printed), m_lockedDay(lockedDay), m_FontDialog(FontDialog), m_printer(printer), m_library(library)
{
}

Printing::~Printing() = default;

void Printing::mnuPageSetup_Click()
{
    PageSetupForm(m_printed.cells.Client()->window()).exec();
}

void Printing::mnuPrintSetup_Click()
{
    const ErrorTail tail(" in MainForm, mnuPrintSetup_Click"_L1, {errors::DialogCancelled});
    tail([&] { m_FontDialog.ShowPrinter(m_printer); });
}

void Printing::mnuPrint_Click()
{
    m_lockedDay.Commit();
    subUseDLLPrintEngine();
}

// The first error ends the routine: the job is not ended, and the notice stays until the next job.
void Printing::subUseDLLPrintEngine()
{
    const ErrorTail tail(EngineLiteral);
    tail([&] { PrintPage(); });
}

void Printing::PrintPage()
{
    Cells& cells = m_printed.cells;
    if (!m_tbPrint) {
        m_tbPrint = Named(new RichTextBox(cells.Client()), "tbPrint");
        m_tbPrint->hide();
    }
    if (m_library.qmtInitPrint(cells.Client()->window(), *m_tbPrint) == 0) return;
    ShowSpoolForm();
    m_library.qmtPrintHeader();
    for (int day = 0; day < Headings; ++day)
        m_library.qmtPrintDOW(cells.lblDayOfWeek(day).Caption(), LookOf(cells.lblDayOfWeek(day)));
    const int view = m_printed.viewMode.GetViewMode();
    const CellRange range = CellsOf(view);
    for (int cell = range.first; cell <= range.last; ++cell)
        PrintCell(view, cell - range.first + 1, cell);
    // Dates are printed after all notes, so that the numbers lie on top.
    for (int cell = range.first; cell <= range.last; ++cell) {
        const SSPanel& panel = cells.panelDay(cell);
        m_library.qmtPrintDate(panel.Caption(), LookOf(panel), view, cell - range.first + 1);
    }
    const SSPanel& month = *m_printed.bottom.panelBottom;
    m_library.qmtPrintMonth(MonthTitle(), LookOf(month));
    m_library.qmtEndPrint();
    m_spoolForm.reset();
    m_library.TellTrouble();
    if (const QString file = m_library.WrittenFile(); !file.isEmpty())
        m_printed.foot.SayBeside(u"The page is in "_s + file);
}

// The position in the main window is used as one on the screen.
void Printing::ShowSpoolForm()
{
    const SSPanel& heading = m_printed.cells.lblDayOfWeek(0);
    m_spoolForm = std::make_unique<SpoolForm>(m_printed.cells.Client()->window());
    m_spoolForm->move(heading.x(), heading.y() + 2 * heading.height());
    ShowAndPaint(*m_spoolForm); // no events are processed from here on
}

void Printing::PrintCell(int view, int position, int cell)
{
    m_library.qmtPrintBoxes(view, position);
    const QString path = folders::ApplicationDirectory() + u"/qmtprint.rtf"_s;
    LoadCarrier(m_printed.cells.tbDay(cell), path);
    m_library.qmtPrintBody(path, view, position);
    QFile::remove(path);
}

// The file can fail: the disk may be full, or a second Orrelin writes it. The note then comes from the cell, so that
// none is missing on the page.
void Printing::LoadCarrier(RichTextBox& note, const QString& path)
{
    const ErrorTail tail(EngineLiteral);
    note.CommitPreedit();
    m_tbPrint->SetBlankFormat(note.Font(), 0); // for a plain text note
    tail([&] {
        note.SaveFile(path);
        m_tbPrint->LoadFile(path);
    });
    const QByteArray rtf = note.TextRTF();
    if (!m_tbPrint->Holds(rtf)) m_tbPrint->SetTextRTF(rtf);
}
