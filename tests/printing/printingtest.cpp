#include "printing/printing.h"

#include "hall/bars.h"
#include "platform/controls/picturebutton.h"
#include "printedpage.h"
#include "printing/spoolform.h"
#include "program.h"
#include "testmain.h"

#include <QPrinter>

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

    // The notice would cover the message.
    void aFullDiskIsToldWhenTheNoticeIsGone()
    {
        m_program->New(u"notes.mdb"_s);
        PrintNextTo(Pdf());
        bool isAlone = false;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            isAlone = !Notice();
            box.accept();
        });
        std::optional<FullDisk> full(0);
        m_program->Trigger("mnuPrint");
        full.reset();
        QVERIFY(isAlone);
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
    }

    // A folder in place of the scratch file makes writing it fail, like a full disk.
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
            const QRectF note = page.At(u"note%1"_s.arg(cell)),
                         date = page.At(m_program->Panel(cell).Caption().trimmed());
            QVERIFY(!note.isNull() && note.left() == date.left() && note.top() > date.top());
        }
    }

    void theShownMonthIsOnThePage()
    {
        m_program->New(u"notes.mdb"_s);
        g_iMonth = 4; // the next month, May, has two days that wrap to the first row
        m_program->Trigger("mnuNextMonth");
        for (int cell = 1; cell <= 35; ++cell)
            m_program->Box(cell).SetText(u"note%1"_s.arg(cell));
        CancelNextPrintDialog();
        m_program->Trigger("mnuPrint");
        QVERIFY(!Notice() && !QFile::exists(Pdf()));
        QCOMPARE(m_program->Bottom().Caption(), u"MAY 1999"_s);
        PrintNextTo(Pdf());
        m_program->Trigger("mnuPrint");
        QVERIFY(!Notice() && !QFile::exists(Scratch()));
        QCOMPARE(m_program->Bottom().Caption(), u"MAY 1999 - The page is in "_s + Pdf());
        const PrintedPage page(Pdf());
        QCOMPARE(page.Pages(), 1);
        for (int cell = 1; cell <= 35; ++cell) {
            const QRectF place = CellOf(page, cell);
            QVERIFY(place.contains(page.At(u"note%1"_s.arg(cell))));
            QVERIFY(place.contains(page.At(m_program->Panel(cell).Caption().trimmed()).center()));
        }
        QVERIFY(page.At(u"36"_s).isNull() && !page.At(u"MAY"_s).isNull());
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
            // An existing file: printing would ask whether to replace it.
            In<QLineEdit>(dialog, "filename").setText(m_program->LogPath());
            dialog.printer()->setPageSize(QPageSize(QPageSize::A5));
            OnNextModal<QDialog>([](QDialog& properties) { // Page Setup has the margins
                QVERIFY(In<QWidget>(properties, "pageSizeCombo").isVisible());
                QVERIFY(!In<QWidget>(properties, "leftMargin").isVisible());
                QTest::keyClick(&properties, Qt::Key_Escape);
            });
            QTest::mouseClick(&In<QPushButton>(dialog, "properties"), Qt::LeftButton);
            dialog.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            // Opens the options; their button changes its name.
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
