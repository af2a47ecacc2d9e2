#include "printing/printing.h"

#include "hall/bottompanel.h"
#include "hall/cells.h"
#include "platform/controls/picturebutton.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/printlibrary.h"
#include "printedpage.h"
#include "printing/spoolform.h"
#include "program.h"
#include "state/lockedday.h"
#include "state/viewmode.h"
#include "testmain.h"

#include <QPrinter>

// A back end that does what a test says, at a cell's box and at the end.
class ScriptedLibrary final : public PrintLibrary
{
public:
    std::function<void(int position)> OnBox = [](int) {};
    std::function<void()> OnTrouble = [] {};

    std::int16_t qmtInitPrint(QWidget*, RichTextBox&) override { return 1; }
    void qmtPrintHeader() override {}
    void qmtPrintDOW(const QString&, const CaptionLook&) override {}
    void qmtPrintBoxes(int, int position) override { OnBox(position); }
    void qmtPrintBody(const QString&, int, int) override {}
    void qmtPrintDate(const QString&, const CaptionLook&, int, int) override {}
    void qmtPrintMonth(const QString&, const CaptionLook&) override {}
    void qmtEndPrint() override {}
    void TellTrouble() override { OnTrouble(); }
};

struct OpenDay final : LockedDay
{
    bool Commit() override { return true; }
    void LeaveBehind() override {}
};

struct MonthMode final : ViewMode
{
    int GetViewMode() const override { return Month; }
};

// Printing of the main window; today is 17 March 1999.
class PrintingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    SpoolForm* Notice() const { return m_program->form->findChild<SpoolForm*>(); }
    QString Pdf() const { return m_program->folders.Path(u"page.pdf"_s); }
    static QString Scratch() { return folders::ApplicationDirectory() + u"/qmtprint.rtf"_s; }

    QRectF CellOf(const PrintedPage& page, int cell) const
    {
        const double left = page.At(u"Sun"_s).center().x(), right = page.At(u"Sat"_s).center().x();
        const double top = page.At(u"Sun"_s).bottom(), bottom = page.At(u"1999"_s).top();
        const double width = (right - left) / 6, height = (bottom - top) / 5;
        return {left - width / 2 + (cell - 1) % 7 * width, top + (cell - 1) / 7 * height, width, height};
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void anErrorEndsTheRoutineAndLeavesTheNotice()
    {
        ScriptedLibrary library;
        OpenDay day;
        MonthMode month;
        CommonDialog dialog{nullptr};
        SystemPrinter printer;
        BottomPanel bottom{&m_program->Bottom()};
        Printing printing({*m_program->form->findChild<Cells*>(), bottom, month}, day, dialog, printer, library);
        bool wasTold = false;
        library.OnTrouble = [&] { wasTold = !Notice(); }; // it would lie over the box
        printing.mnuPrint_Click();
        QVERIFY(wasTold);
        library.OnBox = [](int position) {
            if (position == 5) throw RunTimeError{5, u"broken"_s};
        };
        printing.subUseDLLPrintEngine();
        QVERIFY(m_program->Log().contains("broken in MainForm, subUseDLLPrintEngine"));
        QVERIFY(Notice()->isVisible());
    }

    // A folder in the way of the scratch file stands for a disk that takes no more.
    void theWeekIsPrintedWithoutTheScratchFile()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Trigger("mnuWeekView");
        for (int cell = 36; cell <= 42; ++cell)
            m_program->Box(cell).SetText(u"note%1"_s.arg(cell));
        QVERIFY(QDir().mkpath(Scratch() + u"/in the way"_s));
        PrintNextTo(Pdf());
        m_program->Trigger("mnuPrint");
        const PrintedPage page(Pdf());
        for (int cell = 36; cell <= 42; ++cell) {
            QVERIFY(!page.At(u"note%1"_s.arg(cell)).isNull());
            QVERIFY(!page.At(m_program->Panel(cell).Caption().trimmed()).isNull());
        }
    }

    void theShownMonthIsOnThePage()
    {
        m_program->New(u"notes.mdb"_s);
        g_iMonth = 4; // and then May, whose last two days wrap to the first row
        m_program->Trigger("mnuNextMonth");
        for (int cell = 1; cell <= 35; ++cell)
            m_program->Box(cell).SetText(u"note%1"_s.arg(cell));
        CancelNextPrintDialog();
        m_program->Trigger("mnuPrint");
        QVERIFY(!Notice() && !QFile::exists(Pdf()));
        PrintNextTo(Pdf());
        m_program->Trigger("mnuPrint");
        QVERIFY(!Notice() && !QFile::exists(Scratch()));
        const PrintedPage page(Pdf());
        QCOMPARE(page.Pages(), 1);
        for (int cell = 1; cell <= 35; ++cell) {
            const QRectF place = CellOf(page, cell);
            QVERIFY(place.contains(page.At(u"note%1"_s.arg(cell))));
            QVERIFY(place.contains(page.At(m_program->Panel(cell).Caption().trimmed()).center()));
        }
        QCOMPARE(page.At(u"36"_s), QRectF());
        QVERIFY(!m_program->Log().contains("subUseDLLPrintEngine"));
    }

    void thePictureCommitsTheLockedDayFirst()
    {
        const QString file = u"team.mdb"_s;
        m_program->New(file, true);
        m_program->Click(18);
        QTest::mouseClick(&m_program->Find<PictureButton>("picLock"), Qt::LeftButton);
        QTest::keyClicks(&m_program->Box(18), u"locked text"_s);
        auto& print = m_program->Find<PictureButton>("picPrint");
        PrintNextTo(Pdf());
        QTest::mousePress(&print, Qt::LeftButton);
        QVERIFY(print.Visible(1));
        QVERIFY(!m_program->Stored(file, u"1999/3/17"_s).contains("locked text"));
        QTest::mouseRelease(&print, Qt::LeftButton);
        QVERIFY(print.Visible(0) && !print.Visible(1));
        QVERIFY(m_program->Stored(file, u"1999/3/17"_s).contains("locked text"));
        const PrintedPage page(Pdf());
        QVERIFY(CellOf(page, 18).contains(page.At(u"locked"_s)));
    }

    void theSetupAsksForNoFileAndHoldsForTheJob()
    {
        CancelNextPrintDialog();
        m_program->Trigger("mnuPrintSetup");
        OnNextModal<QPrintDialog>([this](QPrintDialog& dialog) {
            // A file that is there: for a job the dialog would ask whether to replace it.
            In<QLineEdit>(dialog, "filename").setText(m_program->LogPath());
            dialog.printer()->setPageSize(QPageSize(QPageSize::A5));
            OnNextModal<QDialog>([](QDialog& properties) { // margins are those of Page Setup
                QVERIFY(In<QWidget>(properties, "pageSizeCombo").isVisible());
                QVERIFY(!In<QWidget>(properties, "leftMargin").isVisible());
                QTest::keyClick(&properties, Qt::Key_Escape);
            });
            QTest::mouseClick(&In<QPushButton>(dialog, "properties"), Qt::LeftButton);
            dialog.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            // Unfolds the options, whose button changes its name.
            QTest::keyClick(dialog.windowHandle(), Qt::Key_P, Qt::AltModifier);
            QTRY_VERIFY(In<QWidget>(dialog, "printAll").isVisible());
            QTest::keyClick(dialog.windowHandle(), Qt::Key_O, Qt::AltModifier);
            QTRY_VERIFY(!dialog.isVisible());
        });
        m_program->Trigger("mnuPrintSetup");
        QVERIFY(!QFile::exists(Pdf()));
        PrintNextTo(Pdf());
        m_program->Trigger("mnuPrint");
        QVERIFY(qAbs(PrintedPage(Pdf()).Size().height() - QPageSize(QPageSize::A5).size(QPageSize::Point).width()) <
                1.5);
        QVERIFY(!m_program->Log().contains("Print"));
    }
};

ORRELIN_TEST(PrintingTest)
#include "printingtest.moc"
