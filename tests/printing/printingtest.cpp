#include "printing/printing.h"

#include "hall/bars.h"
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

// The calls of a job, a line each, as a back end gets them.
class RecordingLibrary final : public PrintLibrary
{
public:
    explicit RecordingLibrary(QStringList& calls) : m_calls(calls) {}

    std::int16_t Answer = 1;
    std::function<void()> OnBody = [] {};
    std::function<void()> OnTrouble = [] {};

    std::int16_t qmtInitPrint(QWidget*, RichTextBox& tbPrint) override
    {
        m_carrier = &tbPrint;
        m_calls += u"init"_s;
        return Answer;
    }
    void qmtPrintHeader() override { m_calls += u"header"_s; }
    void qmtPrintDOW(const QString& caption, const CaptionLook&) override { m_calls += caption; }
    void qmtPrintBoxes(int view, int position) override { Add("box", view, position); }
    void qmtPrintBody(const QString&, int view, int position) override
    {
        OnBody();
        Add("body", view, position, m_carrier->Text());
    }
    void qmtPrintDate(const QString& caption, const CaptionLook&, int view, int position) override
    {
        Add("date", view, position, caption);
    }
    void qmtPrintMonth(const QString& caption, const CaptionLook&) override { m_calls += caption; }
    void qmtEndPrint() override { m_calls += u"end"_s; }
    void TellTrouble() override
    {
        OnTrouble();
        m_calls += u"trouble"_s;
    }

private:
    void Add(const char* what, int view, int position, const QString& text = QString())
    {
        m_calls += u"%1 %2 %3 %4"_s.arg(QLatin1StringView(what)).arg(view).arg(position).arg(text);
    }

    QStringList& m_calls;
    RichTextBox* m_carrier = nullptr;
};

struct RecordingLock final : LockedDay
{
    explicit RecordingLock(QStringList& calls) : Calls(calls) {}
    bool Commit() override
    {
        Calls += u"commit"_s;
        return true;
    }
    void LeaveBehind() override {}
    QStringList& Calls;
};

struct FixedView final : ViewMode
{
    int GetViewMode() const override { return Mode; }
    int Mode = Month;
};

// Printing of the main window; today is 17 March 1999.
class PrintingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    // The window's controls over a back end that records.
    struct Job
    {
        explicit Job(Program& program)
            : cells(*program.form->findChild<Cells*>()), bottom{&program.Bottom()},
              printing({cells, bottom, view}, lock, FontDialog, printer, library)
        {
        }
        QStringList calls;
        RecordingLibrary library{calls};
        RecordingLock lock{calls};
        FixedView view;
        CommonDialog FontDialog{nullptr};
        SystemPrinter printer;
        Cells& cells;
        BottomPanel bottom;
        Printing printing;
    };

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

    void theOperationsComeInOrder_data()
    {
        QTest::addColumn<int>("view");
        QTest::addColumn<int>("count");
        QTest::newRow("month") << int(ViewMode::Month) << 35;
        QTest::newRow("week") << int(ViewMode::Week) << 7;
    }

    void theOperationsComeInOrder()
    {
        QFETCH(const int, view);
        QFETCH(const int, count);
        m_program->New(u"notes.mdb"_s);
        if (view == ViewMode::Week) m_program->Trigger("mnuWeekView");
        const int first = view == ViewMode::Week ? 36 : 1;
        m_program->Type(first + 3, u"typed"_s);
        Job job(*m_program);
        job.view.Mode = view;
        bool hadFile = true;
        job.library.OnBody = [&] { hadFile = hadFile && QFile::exists(Scratch()) && Notice()->isVisible(); };
        job.library.OnTrouble = [&] { QVERIFY(!Notice()); }; // it would lie over the box
        job.printing.mnuPrint_Click();

        QStringList wanted = {u"commit"_s, u"init"_s, u"header"_s};
        for (const char16_t* day : {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"})
            wanted += QString::fromUtf16(day);
        for (int i = 1; i <= count; ++i) {
            wanted += u"box %1 %2 "_s.arg(view).arg(i);
            wanted += u"body %1 %2 %3"_s.arg(view).arg(i).arg(i == 4 ? u"typed"_s : QString());
        }
        for (int i = 1; i <= count; ++i)
            wanted += u"date %1 %2 %3"_s.arg(view).arg(i).arg(m_program->Panel(first + i - 1).Caption());
        wanted += {u"MARCH 1999"_s, u"end"_s, u"trouble"_s};
        QCOMPARE(job.calls, wanted);
        QVERIFY(hadFile);
        QVERIFY(!QFile::exists(Scratch()));
        QVERIFY(!Notice());
    }

    void aRefusedJobDoesNothing()
    {
        Job job(*m_program);
        job.library.Answer = 0;
        job.printing.subUseDLLPrintEngine();
        QCOMPARE(job.calls, QStringList{u"init"_s});
        QVERIFY(!Notice());
    }

    void anErrorEndsTheRoutineAndLeavesTheNotice()
    {
        Job job(*m_program);
        job.library.OnBody = [&] {
            if (job.calls.contains(u"box 3 5 "_s)) throw RunTimeError{5, u"broken"_s};
        };
        job.printing.subUseDLLPrintEngine();
        QCOMPARE(job.calls.last(), u"box 3 5 "_s);
        QVERIFY(m_program->Log().contains("broken in MainForm, subUseDLLPrintEngine"));
        QVERIFY(Notice()->isVisible());
        const SSPanel& heading = m_program->Find<SSPanel>("lblDayOfWeek(0)");
        QCOMPARE(Notice()->pos(), QPoint(heading.x(), heading.y() + 2 * heading.height()));
    }

    // A folder in the way of the scratch file stands for a disk that takes no more.
    void aNoteIsPrintedWithoutItsScratchFile()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"kept"_s);
        QVERIFY(QDir().mkpath(Scratch() + u"/in the way"_s));
        Job job(*m_program);
        job.printing.subUseDLLPrintEngine();
        QVERIFY(job.calls.contains(u"body 3 20 kept"_s));
        QVERIFY(job.calls.contains(u"body 3 21 "_s));
        QVERIFY(job.calls.contains(u"end"_s));
    }

    void theShownMonthIsOnThePage()
    {
        m_program->New(u"notes.mdb"_s);
        g_iMonth = 4; // and then May, whose last two days wrap to the first row
        m_program->Trigger("mnuNextMonth");
        for (int cell = 1; cell <= 35; ++cell)
            m_program->Box(cell).SetText(u"note%1"_s.arg(cell));
        PrintNextTo(Pdf());
        m_program->Trigger("mnuPrint");
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
