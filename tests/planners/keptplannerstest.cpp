#include "testmain.h"
#include "workgroupprogram.h"

#include <QTextDocument>
#include <QToolButton>

// Planners of every kind as the first version left them. Version 1 of the format must stay readable for ever.
class KeptPlannersTest : public QObject
{
    Q_OBJECT

    static constexpr int Dentist = 22, Meeting = 24, Choir = 29, Memo1 = 31;

    // Starts the program in the month of the notes, with a planner of this kind.
    static void Bring(WorkgroupProgram& program, const QString& kind)
    {
        desktopclock::SetForTests(QDateTime(QDate(2026, 11, 22), QTime(9, 30)));
        for (const char* ending : {".mdb", ".ldb"})
            QFile::copy(QStringLiteral(KEPT) + kind + QLatin1StringView(ending),
                        program.folders.Path(u"team"_s + QLatin1StringView(ending)));
        if (kind == u"server") {
            const QString address = TestServer::Get().Uri(u"kept"_s);
            TestServer::Get().Load(QStringLiteral(KEPT "server.sql"));
            SetContent(program.folders.Path(program.File), "Orrelin planner link 1\n" + address.toUtf8() + '\n');
            RememberServer(address);
        }
        program.Start();
        program.Open(program.File, kind != u"personal");
    }

private Q_SLOTS:
    void AllThatItHoldsIsShownAndMoreCanBeWritten_data()
    {
        QTest::addColumn<QString>("meeting");
        QTest::newRow("personal") << QString();
        QTest::newRow("shared") << u"All meet at nine"_s;
        QTest::newRow("server") << u"All meet at nine"_s;
    }
    void AllThatItHoldsIsShownAndMoreCanBeWritten()
    {
        QFETCH(QString, meeting);
        const QString kind = QLatin1StringView(QTest::currentDataTag());
        WorkgroupProgram program;
        Bring(program, kind);

        QCOMPARE(program.Box(Dentist).Text(), u"Dentist\nat ten, Mühlgasse 3\nChoir"_s);
        QCOMPARE(program.Box(Dentist).document()->firstBlock().begin().fragment().text(), u"Dentist"_s);
        QVERIFY(program.Box(Dentist).document()->firstBlock().begin().fragment().charFormat().font().bold());
        QCOMPARE(program.Box(Meeting).Text(), meeting);
        QCOMPARE(program.Box(Choir).Text(), u"Choir"_s);
        QCOMPARE(program.Box(Memo1).Text(), u"Call the joiner"_s);
        QVERIFY(program.form->findChild<QToolButton*>(u"btnTunes(22)"_s));
        QVERIFY(!program.form->findChild<QToolButton*>(u"btnTunes(24)"_s));
        const Recordset events = schema::OpenRecursions(g_dbPlanner);
        QCOMPARE(events.Fields(u"Frequency"_s).toString(), u"WEEKLY"_s);
        QCOMPARE(PlainText(events.Fields(u"Recursion Text"_s).toByteArray()), u"Choir"_s);

        program.Click(Meeting);
        if (kind != u"personal") program.PressLock();
        QTest::keyClick(&program.Box(Meeting), Qt::Key_Home);
        QTest::keyClicks(&program.Box(Meeting), u"Today: "_s);
        if (kind != u"personal") program.PressLock();
        program.Exit();
        QCOMPARE(PlainText(program.Stored(program.File, u"2026/11/24"_s)), u"Today: "_s + meeting);
    }
};

ORRELIN_TEST(KeptPlannersTest)

#include "keptplannerstest.moc"
