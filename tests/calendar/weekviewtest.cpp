#include "program.h"
#include "testmain.h"

#include <QDate>

namespace {
const QString Planner = u"notes.mdb"_s;

// The months of 1999 as rows of seven captions, computed with QDate alone. Each month stands by itself. Its other cells
// are memos, counted from its start.
struct Row
{
    int month;
    QStringList captions;
};

QList<Row> RowsOf(int month)
{
    const QDate first(1999, month, 1);
    const int before = first.dayOfWeek() % 7; // Sunday is 0
    QList<Row> rows;
    for (int cell = 0, memo = 0; cell % 7 != 0 || cell < before + first.daysInMonth(); ++cell) {
        if (cell % 7 == 0) rows << Row{month, {}};
        const int day = cell - before + 1;
        const bool isMemo = day < 1 || day > first.daysInMonth();
        rows.last().captions << (isMemo ? u"Memo%1"_s.arg(++memo) : QString::number(day));
    }
    return rows;
}
} // namespace

// The week view on the real window; today is Wednesday, 17 March 1999.
class WeekViewTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QStringList Shown() const
    {
        QStringList captions;
        for (int cell = 36; cell <= 42; ++cell)
            captions << m_program->Panel(cell).Caption().trimmed();
        return captions;
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void AYearOfWeeksBackAndForward()
    {
        m_program->New(Planner);
        QList<Row> rows;
        for (int month = 1; month <= 12; ++month)
            rows << RowsOf(month);
        const auto check = [&](const Row& row) {
            QCOMPARE(Shown(), row.captions);
            QCOMPARE(QPoint(g_iYear, g_iMonth), QPoint(1999, row.month));
        };
        auto row = std::find_if(rows.cbegin(), rows.cend(),
                                [](const Row& one) { return one.month == 3 && one.captions.contains(u"17"_s); });
        m_program->Trigger("mnuWeekView");
        for (; row != rows.cbegin(); --row, m_program->Trigger("mnuPrevWeek"))
            check(*row);
        for (; row != rows.cend(); ++row, m_program->Trigger("mnuNextWeek"))
            check(*row);
        QCOMPARE(QPoint(g_iYear, g_iMonth), QPoint(2000, 1));
        QCOMPARE(g_iDay, std::int16_t{1});
        m_program->Trigger("mnuPrevWeek");
        check(rows.last());
        QCOMPARE(g_iDay, std::int16_t{31});
        QCOMPARE(m_program->Bottom().Caption(), u"DECEMBER 1999"_s);
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void FebruaryKeepsTheLengthOfTheMonthLastDrawn()
    {
        m_program->New(Planner);
        m_program->Trigger("mnuWeekView");
        g_iYear = 2000;
        g_iMonth = 2;
        g_iDay = 28;
        m_program->Entry("mnuViewSBVisible").trigger();
        QCOMPARE(m_program->Panel(38).Caption(), u"Memo3"_s);
    }

    void NotesFollowTheirDaysThroughBothViews()
    {
        m_program->New(Planner);
        m_program->Type(18, u"choir"_s);
        m_program->Type(1, u"leading memo"_s);
        m_program->Trigger("mnuWeekView");
        QVERIFY(!m_program->Box(18).isVisible());
        QCOMPARE(m_program->Box(39).Text(), u"choir"_s);
        m_program->Type(40, u"dentist"_s);
        QCOMPARE(g_iDay, std::int16_t{17}); // a click in the week view selects no day
        m_program->Trigger("mnuNextWeek");
        QCOMPARE(m_program->Box(39).Text(), QString());
        m_program->Type(36, u"sunday"_s);
        // Resizing draws the week of the selected day again, with its own notes.
        m_program->form->resize(900, 650);
        QTRY_COMPARE(m_program->Panel(36).Caption(), u" 14"_s);
        QCOMPARE(m_program->Box(39).Text(), u"choir"_s);
        QCOMPARE(m_program->Box(36).Text(), QString());
        m_program->Trigger("mnuPrevWeek");
        m_program->Trigger("mnuPrevWeek");
        QCOMPARE(m_program->Panel(36).Caption(), u"Memo1"_s);
        QCOMPARE(m_program->Box(36).Text(), u"leading memo"_s);
        m_program->Trigger("mnuCurrentWeek");
        QCOMPARE(m_program->Box(40).Text(), u"dentist"_s);
        QCOMPARE(m_program->Box(36).Text(), QString());
        m_program->Trigger("mnuMonthView");
        QCOMPARE(m_program->Box(19).Text(), u"dentist"_s);
        QCOMPARE(m_program->Box(22).Text(), u"sunday"_s);
        QVERIFY(!m_program->Box(40).isVisible());
        QCOMPARE(m_program->Log(), QByteArray());
    }
};

ORRELIN_TEST(WeekViewTest)
#include "weekviewtest.moc"
