#include "plannerfile/backups.h"

#include "planners.h"
#include "program.h"

// The copies that are made before the first save of a day.
class BackupsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = QStringLiteral("notes.mdb");

    static void SetDay(int day) { desktopclock::SetForTests(QDateTime(QDate(1999, 3, day), QTime(9, 30))); }
    static QStringList Copies()
    {
        QStringList copies;
        for (const QFileInfo& folder : QDir(BackupFolder()).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const QFileInfo& copy :
                 QDir(folder.filePath()).entryInfoList({QStringLiteral("*.mdb")}, QDir::Files, QDir::Name))
                copies += copy.filePath();
        return copies;
    }
    static QStringList Days()
    {
        QStringList days;
        for (const QString& copy : Copies())
            days += QFileInfo(copy).fileName();
        return days;
    }
    QByteArray NoteIn(const QString& path) const
    {
        Recordset notes = DBEngine::OpenDatabase(path, true).OpenTable(QStringLiteral("QMT Table"));
        notes.SetIndex(QStringLiteral("qmtPrimaryKey"));
        notes.Seek(QStringLiteral("="), QStringLiteral("1999/3/17"));
        return notes.NoMatch() ? QByteArray() : notes.Fields(QStringLiteral("qmtText")).toByteArray();
    }
    void TypeAndSave(const QString& text) const
    {
        m_program->Type(m_program->CellOf(17), text);
        m_program->Trigger("mnuSave");
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(m_file);
    }
    void cleanup() { m_program.reset(); }

    void TheFirstSaveOfADayMakesOne()
    {
        TypeAndSave(QStringLiteral("first"));
        TypeAndSave(QStringLiteral("second "));
        QCOMPARE(Days(), QStringList(QStringLiteral("notes 1999-03-17.mdb")));
        QVERIFY(NoteIn(Copies().first()).isEmpty()); // as it was before
        SetDay(18);
        TypeAndSave(QStringLiteral("third "));
        QCOMPARE(Days().size(), 2);
        const QByteArray note = NoteIn(Copies().last());
        QVERIFY2(note.contains("second") && !note.contains("third"), note);
    }

    void TenAreKeptOfEachPlanner()
    {
        SetDay(4);
        TypeAndSave(QStringLiteral("4"));
        const QString first = Copies().first();
        // Made while the clock stood wrong, and a copy of the person's own.
        const QString toCome = QString(first).replace(QStringLiteral("1999-03-04"), QStringLiteral("2027-01-01"));
        const QString own = QString(first).replace(QStringLiteral("1999-03-04"), QStringLiteral("a own"));
        QVERIFY(QFile::copy(first, toCome) && QFile::copy(first, own));
        for (int day = 5; day <= 16; ++day) {
            SetDay(day);
            TypeAndSave(QString::number(day));
        }
        QVERIFY(!QFile::exists(toCome) && QFile::remove(own));
        QCOMPARE(Days().size(), 10);
        QCOMPARE(Days().first(), QStringLiteral("notes 1999-03-07.mdb"));
        QDir().mkpath(m_program->folders.Path(QStringLiteral("elsewhere")));
        m_program->New(QStringLiteral("elsewhere/") + m_file);
        TypeAndSave(QStringLiteral("x"));
        QCOMPARE(Days().size(), 11);
    }

    // It is said once, by the first copy or the first look that meets the damage, and the copies of the days before
    // stay.
    void ADamagedPlannerPushesOutNoSoundCopy_data()
    {
        QTest::addColumn<bool>("looks");
        QTest::newRow("met by the copy") << false;
        QTest::newRow("met by a look") << true;
    }

    void ADamagedPlannerPushesOutNoSoundCopy()
    {
        QFETCH(bool, looks);
        for (int day = 4; day <= 13; ++day) {
            SetDay(day);
            TypeAndSave(QString::number(day));
        }
        const QStringList before = Days();
        Recordset notes = schema::OpenNotes(g_dbPlanner);
        for (int day = 1; day < 29; ++day)
            Write(notes, QStringLiteral("1999/5/%1").arg(day), "May" + QByteArray::number(day) + QByteArray(9000, 'x'));
        notes.Close();
        m_program->Exit();
        const QString path = m_program->folders.Path(m_file);
        QByteArray damaged = Content(path);
        damaged.replace(damaged.indexOf("May14") / 4096 * 4096, 2048, QByteArray(2048, '\0'));
        SetContent(path, damaged);
        SetDay(14);
        m_program->Start();
        m_program->Open(m_file);
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        const auto lookAtMay = [&] {
            for (const char* turn : {"mnuNextMonth", "mnuNextMonth", "mnuPrevMonth", "mnuPrevMonth"})
                m_program->Trigger(turn);
        };
        if (looks) lookAtMay();
        if (!looks) TypeAndSave(QStringLiteral("saved"));
        QTRY_VERIFY2(seen.Text.contains(QStringLiteral("Repair Database in the File menu")), qPrintable(seen.Text));
        lookAtMay();
        TypeAndSave(QStringLiteral("saved"));
        QTest::qWait(50);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(Days(), before);
        QVERIFY(m_program->Stored(m_file, QStringLiteral("1999/3/17")).contains("saved"));
    }

    void WithoutAPlaceForItTheSaveGoesOn()
    {
        QFile inTheWay(BackupFolder());
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        TypeAndSave(QStringLiteral("saved"));
        QVERIFY(m_program->Stored(m_file, QStringLiteral("1999/3/17")).contains("saved"));
        QVERIFY2(m_program->Log().contains("BackUpBeforeSave"), m_program->Log());
    }
};

QTEST_MAIN(BackupsTest)
#include "backupstest.moc"
