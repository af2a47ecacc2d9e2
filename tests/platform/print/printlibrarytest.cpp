#include "files.h"
#include "platform/desktop/systemprinter.h"
#include "platform/print/qmtprn32.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/richtextbox.h"
#include "printedpage.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QPrinter>
#include <QRandomGenerator>

// The eight operations and their output on the page of a PDF.
class PrintLibraryTest : public QObject
{
    Q_OBJECT

    static constexpr int Week = 2, Month = 3;
    std::unique_ptr<TemporaryFolders> m_folders;
    std::unique_ptr<SystemPrinter> m_printer;
    std::unique_ptr<QMTPrn32> m_library;
    std::unique_ptr<RichTextBox> m_carrier;
    QString m_pdf;

    static void SetMargins(const QString& margin)
    {
        for (const char* key : {"LEFT", "TOP", "RIGHT", "BOTTOM"})
            SetIni("PAGESETUP", key, margin);
    }

    static bool IsRed(const QColor& color) { return color.red() > 200 && color.green() < 90; }

    static CaptionLook Look(double size, Qt::Alignment alignment = Qt::AlignHCenter)
    {
        QFont font(u"Liberation Sans"_s);
        font.setPointSizeF(size);
        return {.font = font, .alignment = alignment};
    }

    bool Begin()
    {
        PrintNextTo(m_pdf);
        return m_library->qmtInitPrint(nullptr, *m_carrier) != 0;
    }

    // Each note is the carrier's content after fill was called for its cell.
    template <typename Fill>
    void Feed(int view, Fill fill)
    {
        m_library->qmtPrintHeader();
        for (const char16_t* day : {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"})
            m_library->qmtPrintDOW(QString::fromUtf16(day), Look(16));
        const int count = view == Week ? 7 : 35;
        for (int i = 1; i <= count; ++i) {
            m_library->qmtPrintBoxes(view, i);
            m_carrier->SetTextRTF({});
            fill(i);
            m_library->qmtPrintBody(QString(), view, i);
        }
        for (int i = 1; i <= count; ++i)
            m_library->qmtPrintDate(u" d%1"_s.arg(i), Look(8, Qt::AlignLeft), view, i);
        m_library->qmtPrintMonth(u"JULY 1999"_s, Look(12));
    }

    // Prints one note in the third cell of the second row of an otherwise empty month.
    PrintedPage PrintNote(const QByteArray& rtf)
    {
        if (!Begin()) QTest::qFail("no job", __FILE__, __LINE__);
        Feed(Month, [&](int i) {
            if (i == 10) m_carrier->SetTextRTF(rtf);
        });
        m_library->qmtEndPrint();
        return PrintedPage(m_pdf);
    }

    // The rectangle of that cell, found by the dates around it.
    static QRectF CellOfNote(const PrintedPage& page)
    {
        return QRectF(page.At(u"d10"_s).topLeft() - QPointF(2, 2), page.At(u"d18"_s).topLeft() - QPointF(2, 2));
    }

private Q_SLOTS:
    void init()
    {
        m_folders = std::make_unique<TemporaryFolders>();
        m_printer = std::make_unique<SystemPrinter>();
        m_library = std::make_unique<QMTPrn32>(*m_printer);
        m_carrier = std::make_unique<RichTextBox>();
        m_pdf = m_folders->Path(u"page.pdf"_s);
    }
    void cleanup()
    {
        DropAnswers();
        m_folders.reset();
    }

    void everythingHasItsPlace_data()
    {
        QTest::addColumn<int>("view");
        QTest::addColumn<QPageSize::PageSizeId>("paper");
        QTest::addColumn<QPageLayout::Orientation>("orientation");
        for (const int view : {Week, Month}) {
            for (const auto paper : {QPageSize::A4, QPageSize::Letter}) {
                for (const auto orientation : {QPageLayout::Portrait, QPageLayout::Landscape}) {
                    QTest::addRow("view %d paper %d orientation %d", view, paper, orientation)
                        << view << paper << orientation;
                }
            }
        }
    }

    void everythingHasItsPlace()
    {
        QFETCH(const int, view);
        QFETCH(const QPageSize::PageSizeId, paper);
        QFETCH(const QPageLayout::Orientation, orientation);
        SetMargins(u"0.5"_s);
        SetIni("PAGESETUP", "HEADER", "Household");
        m_printer->Printer().setPageSize(QPageSize(paper));
        m_printer->Printer().setPageOrientation(orientation);
        QVERIFY(Begin());
        Feed(view, [&](int i) { m_carrier->SetText(u"n%1"_s.arg(i)); });
        m_library->qmtEndPrint();

        const PrintedPage page(m_pdf);
        QCOMPARE(page.Pages(), 1);
        QSizeF size = QPageSize(paper).size(QPageSize::Point);
        if (orientation == QPageLayout::Landscape) size.transpose();
        QVERIFY(qAbs(page.Size().width() - size.width()) < 1.5 && qAbs(page.Size().height() - size.height()) < 1.5);
        const QRectF area = QRectF(QPointF(), size).adjusted(36, 36, -36, -36);
        const QRectF withLetterTops = area.adjusted(-1, -4, 1, 1); // a font's own box is higher than its letters
        for (const Word& word : page.Words())
            QVERIFY2(withLetterTops.contains(word.at), qPrintable(word.text));
        const QRectF title = page.At(u"JULY"_s) | page.At(u"1999"_s);
        const double gridTop = page.At(u"Wed"_s).bottom();
        QVERIFY(page.At(u"Household"_s).bottom() < page.At(u"Wed"_s).top());
        QVERIFY(qAbs(title.center().x() - area.center().x()) < 2);
        const int rows = view == Week ? 1 : 5;
        for (int i = 0; i < 7 * rows; ++i) {
            const QRectF note = page.At(u"n%1"_s.arg(i + 1)), date = page.At(u"d%1"_s.arg(i + 1));
            QVERIFY(!note.isNull() && date.bottom() <= note.top() + 1);
            const double left = area.left() + area.width() * (i % 7) / 7;
            QVERIFY(note.left() > left && note.right() < left + area.width() / 7);
            const double height = (title.top() - gridTop) / rows;
            QVERIFY(note.top() > gridTop + height * (i / 7) - 1 && note.bottom() < gridTop + height * (i / 7 + 1));
        }
    }

    void marginsAreReadAsTyped()
    {
        const std::tuple<const char*, QString, double> rows[] = {
            {"point", u"0.75"_s, 0.75},    {"comma", u"0,75"_s, 0.75},      {"none", u""_s, 1.0},
            {"no number", u"wide"_s, 1.0}, {"no room left", u"3.5"_s, 1.0}, {"off the paper", u"-2"_s, 0.0},
            {"endless", u"1e999"_s, 1.0},
        };
        for (const auto& [name, text, inches] : rows) {
            const InRow inRow(this, name);
            SetMargins(text);
            const PrintedPage page = PrintNote("a");
            const QRectF ink = page.Painted([](const QColor& color) { return color.lightness() < 230; });
            const QRectF wanted =
                QRectF(QPointF(), page.Size()).adjusted(72 * inches, 72 * inches, -72 * inches, -72 * inches);
            QVERIFY(qAbs(ink.left() - wanted.left()) < 1.5 && qAbs(ink.right() - wanted.right()) < 1.5);
            QVERIFY(ink.top() >= wanted.top() - 1 && ink.bottom() <= wanted.bottom() + 1);
        }
    }

    void aLongNoteEndsWithAWholeLine()
    {
        const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
            {"one paragraph", "\\pard ", " "},
            {"paragraphs", "\\pard ", "\\par "},
            {"from right to left", "\\pard\\rtlpar ", "\\par "},
            {"higher than its box", "\\pard\\fs150 ", " "},
        };
        for (const auto& [name, before, between] : rows) {
            const InRow inRow(this, name);
            QByteArray text;
            for (int i = 0; i < 300; ++i)
                text += "w" + QByteArray::number(i) + between;
            const PrintedPage page =
                PrintNote("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\fs18" + before + text + "}");
            QVERIFY(CellOfNote(page).contains(page.Painted(IsRed)));
            QVERIFY(page.At(u"w299"_s).isNull());
            const bool clipped = before.contains("fs150"); // its first line is cut off with the ellipsis
            const auto endsHere = [](const Word& word) { return word.text.contains(QChar(0x2026)); };
            QVERIFY(clipped || std::any_of(page.Words().begin(), page.Words().end(), endsHere));
            const QRectF first = page.At(u"w0"_s), cell = CellOfNote(page);
            QVERIFY(clipped || before.contains("rtlpar") == (first.center().x() > cell.center().x()));
        }
    }

    // Lines break between the letters, whether or not the fonts have glyphs for them.
    void lettersWithoutBlanksBreakInTheBox()
    {
        QByteArray text;
        for (int i = 0; i < 40; ++i)
            text += "\\u26085?\\u26412?\\u35486?";
        const PrintedPage page =
            PrintNote("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\fs18 " + text + "}");
        const QRectF ink = page.Painted(IsRed);
        QVERIFY(CellOfNote(page).contains(ink));
        QVERIFY(ink.height() > 30 && ink.width() > 60);
    }

    void aPictureFitsItsBox()
    {
        for (const QSize size : {QSize(24, 24), QSize(1600, 300), QSize(300, 1600)}) {
            const InRow inRow(this, QString::number(size.width()));
            QImage image(size, QImage::Format_RGB32);
            image.fill(Qt::red);
            RichTextBox box;
            QTextCursor cursor(box.document());
            QVERIFY(InsertPicture(cursor, image, PictureFit{}));
            cursor.insertText(u"\nbelow\nit\nthere\nis\nmore\nthan\nfits"_s);
            const PrintedPage page = PrintNote(box.TextRTF());
            const QRectF red = page.Painted(IsRed);
            QVERIFY(CellOfNote(page).contains(red));
            const double wanted = double(size.width()) / size.height();
            QVERIFY(red.height() > 4 && qAbs(red.width() / red.height() - wanted) < 0.2 * wanted);
        }
    }

    void cancelLeavesNothing()
    {
        CancelNextPrintDialog();
        QCOMPARE(m_library->qmtInitPrint(nullptr, *m_carrier), std::int16_t{0});
        Feed(Month, [](int) {});
        m_library->qmtEndPrint();
        QVERIFY(!QFile::exists(m_pdf));
    }

    void aJobWithoutItsEndIsDropped()
    {
        QVERIFY(Begin());
        Feed(Month, [&](int) { m_carrier->SetText(u"stale"_s); });
        QVERIFY(!QFile::exists(m_pdf));
        const PrintedPage page = PrintNote("fresh");
        QVERIFY(!page.At(u"fresh"_s).isNull());
        for (const Word& word : page.Words())
            QVERIFY(word.text != u"stale");
    }

    // The page's picture is larger than the buffer of a file.
    void aFileThatCannotBeWrittenIsToldOf()
    {
        for (const bool full : {false, true}) {
            const InRow inRow(this, full ? "disk full" : "folder gone");
            const QString folder = m_folders->Path(u"there"_s);
            QDir().mkpath(folder);
            const QString usual = std::exchange(m_pdf, folder + u"/page.pdf"_s);
            m_printer->Printer().setPageSize(QPageSize(QPageSize::A5));
            PrintNote("kept");
            PrintNextTo(m_pdf);
            AnswerNextBox(msgbox::Yes); // replace the file
            QVERIFY(m_library->qmtInitPrint(nullptr, *m_carrier) != 0);
            QImage noise(600, 600, QImage::Format_RGB32);
            QRandomGenerator(1).generate(noise.bits(), noise.bits() + noise.sizeInBytes());
            Feed(Month, [&](int i) {
                QTextCursor cursor(m_carrier->document());
                if (i == 10) QVERIFY(InsertPicture(cursor, noise, PictureFit{}));
            });
            QVERIFY(full || QDir(folder).removeRecursively());
            std::optional<FullDisk> limit;
            if (full) limit.emplace(2000);
            m_library->qmtEndPrint();
            limit.reset();
            SeenBox seen;
            AnswerNextBox(msgbox::Ok, &seen);
            m_library->TellTrouble();
            QVERIFY(seen.Text.contains(m_pdf));
            QVERIFY(!full || !PrintedPage(m_pdf).At(u"kept"_s).isNull());
            QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), full ? 1 : 0);
            m_pdf = usual;
            const PrintedPage page = PrintNote("again");
            QVERIFY(!page.At(u"again"_s).isNull());
            QVERIFY(qAbs(page.Size().height() - QPageSize(QPageSize::A5).size(QPageSize::Point).width()) < 1.5);
        }
    }
};

ORRELIN_TEST(PrintLibraryTest)
#include "printlibrarytest.moc"
