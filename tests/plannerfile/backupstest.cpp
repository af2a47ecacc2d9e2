#include "plannerfile/backups.h"

#include "planners.h"
#include "program.h"
#include "testmain.h"

#include <QDirIterator>

// The copies made before the first save of a day.
class BackupsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = u"notes.mdb"_s;

    static void SetDay(int day) { desktopclock::SetForTests(QDateTime(QDate(1999, 3, day), QTime(9, 30))); }
    static QStringList Copies()
    {
        QStringList copies;
        for (QDirIterator all(BackupFolder(), {u"*.mdb"_s}, QDir::Files, QDirIterator::Subdirectories); all.hasNext();)
            copies += all.next();
        copies.sort();
        return copies;
    }
    static QStringList Days()
    {
        QStringList days;
        for (const QString& copy : Copies())
            days += copy.section(u'/', -1);
        return days;
    }
    static QByteArray NoteIn(const QString& path)
    {
        Recordset notes = schema::OpenNotes(DBEngine::OpenDatabase(path, true));
        notes.Seek(schema::Equal, u"1999/3/17"_s);
        return notes.NoMatch() ? QByteArray() : notes.Fields(schema::TextField).toByteArray();
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
        TypeAndSave(u"first"_s);
        TypeAndSave(u"second "_s);
        QCOMPARE(Days(), QStringList(u"notes 1999-03-17.mdb"_s));
        QVERIFY(NoteIn(Copies().first()).isEmpty()); // the state before the save
        SetDay(18);
        TypeAndSave(u"third "_s);
        QCOMPARE(Days().size(), 2);
        const QByteArray note = NoteIn(Copies().last());
        QVERIFY2(note.contains("second") && !note.contains("third"), note);
    }

    void TenAreKeptOfEachPlanner()
    {
        SetDay(4);
        TypeAndSave(u"4"_s);
        const QString first = Copies().first();
        // A copy made while the clock was wrong, and the person's own copy.
        const QString toCome = QString(first).replace(u"1999-03-04"_s, u"2027-01-01"_s);
        const QString own = QString(first).replace(u"1999-03-04"_s, u"a own"_s);
        QVERIFY(QFile::copy(first, toCome) && QFile::copy(first, own));
        for (int day = 5; day <= 16; ++day) {
            SetDay(day);
            TypeAndSave(QString::number(day));
        }
        QVERIFY(!QFile::exists(toCome) && QFile::remove(own));
        QCOMPARE(Days().size(), 10);
        QCOMPARE(Days().first(), u"notes 1999-03-07.mdb"_s);
        QDir().mkpath(m_program->folders.Path(u"elsewhere"_s));
        m_program->New(u"elsewhere/"_s + m_file);
        TypeAndSave(u"x"_s);
        QCOMPARE(Days().size(), 11);
    }

    // The first copy or read that finds the damage reports it, once. The copies of the days before stay.
    void ADamagedPlannerPushesOutNoSoundCopy()
    {
        for (const auto& [what, looks] : Rows<bool>{{"met by the copy", false}, {"met by a look", true}}) {
            const InRow row(this, what);
            for (int day = 4; day <= 13; ++day) {
                SetDay(day);
                TypeAndSave(QString::number(day));
            }
            const QStringList before = Days();
            Recordset notes = schema::OpenNotes(g_dbPlanner);
            for (int day = 1; day < 29; ++day)
                Write(notes, u"1999/5/%1"_s.arg(day), "May" + QByteArray::number(day) + QByteArray(9000, 'x'));
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
            if (!looks) TypeAndSave(u"saved"_s);
            QTRY_VERIFY2(seen.Text.contains(u"Repair Database in the File menu"_s), qPrintable(seen.Text));
            lookAtMay();
            TypeAndSave(u"saved"_s);
            QTest::qWait(50);
            QVERIFY(!QApplication::activeModalWidget());
            QCOMPARE(Days(), before);
            QVERIFY(m_program->Stored(m_file, u"1999/3/17"_s).contains("saved"));
        }
    }

    void WithoutAPlaceForItTheSaveGoesOn()
    {
        QFile inTheWay(BackupFolder());
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        TypeAndSave(u"saved"_s);
        QVERIFY(m_program->Stored(m_file, u"1999/3/17"_s).contains("saved"));
        QVERIFY2(m_program->Log().contains("BackUpBeforeSave"), m_program->Log());
    }
};

ORRELIN_TEST(BackupsTest)
#include "backupstest.moc"
