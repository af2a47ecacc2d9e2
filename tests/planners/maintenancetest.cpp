#include "platform/engine/sqlite/scratchplace.h"
#include "program.h"
#include "testmain.h"

class MaintenanceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Path() const { return m_program->folders.Path(u"notes.mdb"_s); }

    // Makes a closed planner with one long and one short note.
    void MakePlanner()
    {
        m_program->Start();
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"short"_s);
        m_program->Click(21);
        m_program->Box(21).insertPlainText(u"a long note "_s.repeated(300)); // typing it would take a minute
        m_program->Exit();
        m_program->Start();
    }

    // The box's second text, after it reports success.
    QString MendAndHear(const char* entry, const QString& done)
    {
        QString second;
        AnswerNextFileDialog(Path());
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.text(), done);
            second = box.informativeText();
            box.accept();
        });
        m_program->Trigger(entry);
        return second;
    }

    SeenBox Run(const char* entry)
    {
        SeenBox seen;
        AnswerNextFileDialog(Path());
        AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger(entry);
        return seen;
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<Program>(); }
    void cleanup() { m_program.reset(); }

    // The work closes the open planner, with its typed text, and opens it again in the same way. If declined, nothing
    // happens.
    void TheOpenPlannerIsClosedForIt()
    {
        for (const auto& [what, entry, shared] : Rows<QByteArray, bool>{{"compact", "mnuCompact", false},
                                                                        {"repair", "mnuRepair", false},
                                                                        {"compact, shared", "mnuCompact", true}}) {
            const InRow row(this, what);
            MakePlanner();
            m_program->Open(u"notes.mdb"_s, shared);
            if (!shared) m_program->Type(22, u"typed"_s);
            const QByteArray before = Content(Path());
            AnswerNextFileDialog(Path());
            AnswerNextBox(msgbox::No);
            m_program->Trigger(entry.constData());
            QCOMPARE(Content(Path()), before);
            SeenBox asked, done;
            AnswerNextFileDialog(Path());
            AnswerNextBox(msgbox::Yes, &asked);
            AnswerNextBox(msgbox::Ok, &done);
            m_program->Trigger(entry.constData());
            QVERIFY2(asked.Text.contains(u"'notes.mdb' is the planner that is open"_s), qPrintable(asked.Text));
            QCOMPARE(done.Icon, QMessageBox::Information);
            QCOMPARE(g_bDBShared, shared);
            QCOMPARE(m_program->Box(20).Text(), u"short"_s);
            QCOMPARE(m_program->Box(22).Text(), shared ? QString() : u"typed"_s);
            QVERIFY2(shared || Content(Path()).contains("typed"), "it was not saved");
        }
    }

    void APlannerThatAnotherHasOpenIsLeftAlone()
    {
        for (const auto& [what, entry, text] :
             Rows<QByteArray, QString>{{"compact", "mnuCompact", u"Unable to compress database: "_s},
                                       {"repair", "mnuRepair", u"Error when repairing database: "_s}}) {
            const InRow row(this, what);
            MakePlanner();
            const Database another = DBEngine::OpenDatabase(Path());
            const QByteArray before = Content(Path());
            const SeenBox seen = Run(entry.constData());
            QVERIFY2(seen.Text.startsWith(text), qPrintable(seen.Text));
            QVERIFY(seen.Text.size() > text.size());
            QCOMPARE(seen.Icon, QMessageBox::Critical);
            QCOMPARE(Content(Path()), before);
            QVERIFY(m_program->Log().contains(entry));
            // A Cancel after Open shows an error.
            m_program->Open(u"notes.mdb"_s, true);
            SeenBox cancelled;
            OnNextModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
            AnswerNextBox(msgbox::Ok, &cancelled);
            m_program->Trigger(entry.constData());
            QCOMPARE(cancelled.Text, text + u"Cancel was selected."_s);
        }
    }

    // Files in the place of Compact's copy.
    void TheScratchFileIsNoHindrance()
    {
        for (const auto& [what, lies] : Rows<QByteArray>{{"left by a run that died", "left"},
                                                         {"somebody's own", "own"},
                                                         {"another Orrelin's", "other"},
                                                         {"cannot be put in place", "failed"}}) {
            const InRow row(this, what);
            MakePlanner();
            const QString dummy = folders::ApplicationDirectory() + u"/dummy.mdb"_s;
            const QString kept = folders::ApplicationDirectory() + u"/dummy.kept.mdb"_s;
            auto other = std::make_unique<ScratchPlace>(dummy, m_program->folders.Path(u"other.mdb"_s));
            const QByteArray mark = Content(dummy + u".lock"_s);
            if (lies != "other") other.reset();
            if (lies == "left") SetContent(dummy + u".lock"_s, mark);
            if (lies != "failed") SetContent(dummy, "lies there");
            const QString inTheWay = Path() + u".new"_s;
            if (lies == "failed") QVERIFY(QDir().mkdir(inTheWay));
            const SeenBox seen = Run("mnuCompact");
            QCOMPARE(seen.Icon, lies == "left" || lies == "own" ? QMessageBox::Information : QMessageBox::Critical);
            QCOMPARE(Content(kept), QByteArray(lies == "own" ? "lies there" : "no file"));
            QCOMPARE(Content(dummy), QByteArray(lies == "other" ? "lies there" : "no file"));
            QVERIFY2(lies != "other" || seen.Text.contains(dummy), qPrintable(seen.Text));
            QDir().rmdir(inTheWay);
            other.reset();
            QCOMPARE(Run("mnuCompact").Icon, QMessageBox::Information);
            m_program->Open(u"notes.mdb"_s);
            QCOMPARE(m_program->Box(20).Text(), u"short"_s);
        }
    }

    void APlannerOfTheOlderEngineIsConverted()
    {
        QDir(m_program->folders.Path({})).mkdir(u"shipped"_s);
        QFile::link(QStringLiteral(READER), m_program->folders.Path(u"shipped/orrelin-readjet"_s));
        QFile::copy(QStringLiteral(SAMPLE), Path());
        desktopclock::SetForTests(QDateTime(QDate(2003, 1, 15), QTime(9, 30)));
        m_program->Start();
        QVERIFY(m_program->SaidAtOpening(u"notes.mdb"_s).Text.contains(u"Compact Database in the File menu"_s));
        QVERIFY(!HasPlanner());
        const QString second = MendAndHear("mnuCompact", u"Database compressed OK"_s);
        QVERIFY2(second.contains(u"notes.old.mdb"_s), qPrintable(second));
        m_program->Open(u"notes.mdb"_s);
        const QString text = m_program->Box(m_program->CellOf(15)).Text();
        QVERIFY2(text.startsWith(u"Line 0 of a long day, bold and italic"_s), qPrintable(text.left(60)));
    }

    void ADamagedPlannerIsRepairedAndKept()
    {
        MakePlanner();
        QByteArray damaged = Content(Path());
        damaged.replace(0, 100, QByteArray(100, '\xff')); // the head of the file
        SetContent(Path(), damaged);
        QCOMPARE(m_program->SaidAtOpening(u"notes.mdb"_s).Text,
                 u"The planner 'notes.mdb' is damaged. Repair may be able to mend it."_s);
        const QString second = MendAndHear("mnuRepair", u"Database repaired successfully"_s);
        QVERIFY2(second.contains(u"Notes: 2 recovered"_s), qPrintable(second));
        const QStringList kept = QFileInfo(Path()).dir().entryList({u"notes?*.mdb"_s});
        QCOMPARE(kept.size(), 1);
        QVERIFY(second.contains(kept.first()));
        m_program->Open(u"notes.mdb"_s);
        QCOMPARE(m_program->Box(20).Text(), u"short"_s);
    }
};

ORRELIN_TEST(MaintenanceTest)
#include "maintenancetest.moc"
