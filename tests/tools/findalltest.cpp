#include "failingstore.h"
#include "platform/engine/engineerrors.h"
#include "printedpage.h"
#include "program.h"
#include "settings/settings.h"
#include "settingsfile.h"
#include "testmain.h"
#include "tools/findwordform.h"

#include <QLabel>
#include <QListView>
#include <QRadioButton>
#include <QToolButton>

// The list of Find Word; today is 17 March 1999.
class FindAllTest : public QObject
{
    Q_OBJECT

    const QString m_name = u"notes.mdb"_s;
    std::unique_ptr<Program> m_program;

    void Begin(bool shared = false, const QByteArray& summer2000 = {})
    {
        m_program->Start();
        m_program->New(m_name, true);
        {
            Database planner = DBEngine::OpenDatabase(m_program->folders.Path(m_name));
            Recordset records = planner.OpenTable(u"QMT Table"_s);
            const QMap<QString, QByteArray> notes = {
                {u"1999/3/9"_s, "first line\r\nfresh {Milk} and milk"},
                {u"1998/12/31"_s, "{\\rtf1 buy m{\\b ilk}}"},
                {u"1999/10/2"_s, "{\\rtf1{\\pict\\pngblip 00}tea, then M\\u237?lk}"},
                {u"1999/3/Memo2"_s, "milk of March"},
                {u"1999/4/1"_s, "{\\rtf1\\milk tea}"},
                {u"2000/7/1"_s, summer2000},
            };
            for (auto note = notes.cbegin(); note != notes.cend(); ++note) {
                if (note->isEmpty()) continue;
                records.AddNew();
                records.SetField(u"qmtDate"_s, note.key());
                records.SetField(u"qmtText"_s, note.value());
                records.Update();
            }
        }
        m_program->Open(m_name, shared);
    }

    FindWordForm* Form() const { return m_program->form->findChild<FindWordForm*>(); }
    template <typename Control = QPushButton>
    Control& Of(const char* name) const
    {
        return *Form()->findChild<Control*>(QString::fromLatin1(name));
    }
    QListView& List() const { return Of<QListView>("lstFound"); }

    void Open(Qt::KeyboardModifiers modifiers) const
    {
        m_program->Activate();
        QTest::keyClick(m_program->form.get(), Qt::Key_F, modifiers);
        QVERIFY(QTest::qWaitFor([this] { return Form() && Form()->isActiveWindow(); }, support::longestWait));
        QVERIFY(Of<QLineEdit>("tbFindWord").hasFocus());
    }
    void OpenAll() const { Open(Qt::ControlModifier | Qt::ShiftModifier); }
    void Type(const QString& words) const
    {
        Of<QLineEdit>("tbFindWord").clear();
        for (const QChar letter : words)
            QTest::sendKeyEvent(QTest::Click, &Of<QLineEdit>("tbFindWord"), Qt::Key_unknown, letter, {});
    }
    bool Counts(const QString& count) const
    {
        return QTest::qWaitFor([&] { return Of<QLabel>("lblCount").text() == count; }, support::longestWait);
    }
    QStringList Rows() const
    {
        QStringList rows;
        for (int row = 0; row < List().model()->rowCount(); ++row)
            rows += List().model()->index(row, 0).data().toString();
        return rows;
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualRect(List().model()->index(row, 0)).center());
    }
    // The shown day or memo with the selected text.
    QString Selected() const
    {
        QStringList all;
        for (const RichTextBox* box : m_program->form->findChildren<RichTextBox*>())
            if (box->isVisible() && box->SelLength() > 0) all += box->textCursor().selectedText();
        return u"%1/%2/%3 %4"_s.arg(g_iYear).arg(g_iMonth).arg(m_program->Panel(g_iCurrentPanel).Caption().trimmed(),
                                                               all.join(u'+'));
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    void ListsAndGoesThere()
    {
        Begin();
        OpenAll();
        Type(u"milk"_s);
        QVERIFY(Counts(u"3 days and 1 memo"_s));
        QCOMPARE(Rows(), QStringList({u"Dec 31, 1998: buy milk"_s, u"Mar 9, 1999: fresh {Milk} and milk"_s,
                                      u"Mar Memo2, 1999: milk of March"_s, u"Oct 2, 1999: tea, then Mílk"_s}));
        ClickRow(0);
        QCOMPARE(Selected(), u"1998/12/31 milk"_s);
        QVERIFY(List().hasFocus()); // the next row is an arrow away
        QTest::keyClick(&List(), Qt::Key_Down);
        QTest::keyClick(&List(), Qt::Key_Return);
        QCOMPARE(Selected(), u"1999/3/9 Milk"_s);
        m_program->Trigger("mnuWeekView");
        ClickRow(2);
        QCOMPARE(Selected(), u"1999/3/Memo2 milk"_s);
        Type(u"tea m?lk"_s);
        QVERIFY(Counts(u"1 day"_s));
        ClickRow(0);
        QCOMPARE(Selected(), u"1999/10/2 tea"_s); // behind a picture
        Type(u"rtf"_s);
        QVERIFY(Counts(u"No day"_s));
        QTest::qWait(600); // as long as a search may be at work before it says so
        Type(QString());
        QVERIFY(Counts(QString()));
        QVERIFY(!Of("btnStop").isVisible());
    }

    void UnfoldsAndIsRemembered()
    {
        Begin();
        Open(Qt::ControlModifier);
        QVERIFY(!List().isVisible());
        const int folded = Form()->height();
        Type(u"milk"_s);
        QTest::keyClick(Form(), Qt::Key_A, Qt::AltModifier);
        QVERIFY(Counts(u"3 days and 1 memo"_s));
        Form()->resize(700, 500);
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Down);
        QVERIFY(List().hasFocus());
        QTest::keyClick(&List(), Qt::Key_Escape);
        QVERIFY(QTest::qWaitFor([this] { return !Form(); }));
        Open(Qt::ControlModifier);
        QVERIFY(List().isVisible());
        QCOMPARE(Form()->size(), QSize(700, 500));
        // The stated meaning of Return stays.
        Type(u"tea"_s);
        QTest::keyClick(&Of<QLineEdit>("tbFindWord"), Qt::Key_Return);
        QCOMPARE(g_iMonth, 10);
        Of<QToolButton>("btnAllDays").click();
        QCOMPARE(Form()->height(), folded);
        QCOMPARE(Read(settings::FindAllDays), 0);
    }

    void FollowsWhatIsTypedAndSaved()
    {
        for (const bool shared : {false, true}) {
            const InRow inRow(this, shared ? "shared" : "personal");
            Begin(shared);
            OpenAll();
            Type(u"milk"_s);
            QVERIFY(Counts(u"3 days and 1 memo"_s));
            m_program->Activate();
            const int cell = m_program->CellOf(9);
            m_program->Click(cell);
            if (shared) m_program->Trigger("mnuLockDay");
            m_program->Box(cell).selectAll();
            QTest::keyClicks(&m_program->Box(cell), u"silk"_s);
            OpenAll();
            QVERIFY(Counts(u"2 days and 1 memo"_s));
            Type(u"silk"_s);
            QVERIFY(Counts(u"1 day"_s));
            QVERIFY(!m_program->Stored(m_name, u"1999/3/9"_s).contains("silk"));
            // A save of another day by another connection.
            {
                Database planner = DBEngine::OpenDatabase(m_program->folders.Path(m_name));
                Recordset records = planner.OpenTable(u"QMT Table"_s);
                records.AddNew();
                records.SetField(u"qmtDate"_s, u"1999/5/5"_s);
                records.SetField(u"qmtText"_s, u"silk, too"_s);
                records.Update();
            }
            m_program->Activate();
            OpenAll();
            QVERIFY(Counts(u"2 days"_s));
            m_program->Trigger(shared ? "mnuLockDay" : "mnuSave");
            QVERIFY(m_program->Stored(m_name, u"1999/3/9"_s).contains("silk"));
            QVERIFY(Counts(u"2 days"_s));
        }
    }

    void SaysWhatIsWrongInItsPlace()
    {
        const FailingStores failing;
        // A key reads nothing itself, and the list comes after somebody else's save.
        for (const QString& step : {u"Revision"_s, u"Definition"_s, u"Page"_s}) {
            const InRow inRow(this, step);
            Begin(true);
            OpenAll();
            *failing.plan = {1, FailurePlan::Before, {engineerrors::Busy, u"busy"_s}, step};
            Type(u"milk"_s);
            QCOMPARE(failing.plan->calls, 0);
            QVERIFY(Counts(u"3 days and 1 memo"_s));
            QVERIFY(failing.plan->calls > 1);
            QVERIFY(!Of<QLabel>("lblTrouble").isVisible());
        }
        *failing.plan = {1, FailurePlan::Before, {engineerrors::BrokenConnection, u"gone"_s}, u"Page"_s};
        Type(u"m"_s);
        auto& trouble = Of<QLabel>("lblTrouble");
        QVERIFY(QTest::qWaitFor([&] { return trouble.isVisible() && trouble.text() == u"gone"; }));
        QVERIFY(!Of("btnExportList").isEnabled());
        Type(u"mi"_s);
        QVERIFY(Counts(u"3 days and 1 memo"_s));
        QVERIFY(!trouble.isVisible());
    }

    void AnotherPlannerIsListed()
    {
        Begin();
        OpenAll();
        Type(u"milk"_s);
        QVERIFY(Counts(u"3 days and 1 memo"_s));
        m_program->New(u"other.mdb"_s);
        QVERIFY(Counts(u"No day"_s));
        DBEngine::DeleteDatabase(m_program->folders.Path(m_name)); // the list keeps no planner open
    }

    void IsPrintedAndExported()
    {
        // A paragraph of many pages is cut around the word.
        Begin(false, QByteArray("words ").repeated(20000) + "before milk " + QByteArray("words ").repeated(20000) +
                         "the end of it");
        OpenAll();
        Type(u"milk"_s);
        QVERIFY(Counts(u"4 days and 1 memo"_s));
        const QString pdf = m_program->folders.Path(u"list.pdf"_s), file = m_program->folders.Path(u"list.txt"_s);
        QVERIFY(QTest::qWaitFor([this] { return Of("btnPrintList").isEnabled(); }));
        PrintNextTo(pdf);
        Of("btnPrintList").click();
        const QByteArray printed = OutputOf(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
        for (const char* piece : {"4 days and 1 memo with milk", "Page 1", "Mar 9, 1999", "fresh {Milk} and milk",
                                  "before milk", "Jul 1, 2000", "Oct 2, 1999"})
            QVERIFY2(printed.contains(piece), printed);
        for (const char* piece : {"first line", "the end of it", "Page 2"})
            QVERIFY2(!printed.contains(piece), printed);
        OnNextModal<QDialog>([](QDialog& dialog) {
            In<QRadioButton>(dialog, "txt").click();
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        AnswerNextFileDialog(file);
        Of("btnExportList").click();
        QCOMPARE(WaitingAnswers(), 0);
        const QByteArray exported = Content(file);
        for (const char* piece : {"1998-12-31 Thursday\n", "1999-03-09 Tuesday\n", "first line\n", "1999-03 Memo 2\n"})
            QVERIFY2(exported.contains(piece), exported);
        QVERIFY(!exported.contains("1999-04"));
    }
};

ORRELIN_TEST(FindAllTest)
#include "findalltest.moc"
