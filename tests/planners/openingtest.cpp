#include "planners.h"
#include "platform/controls/picturebutton.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QDirIterator>

// New, Open, the recent list and the start-up planner, with every answer to their questions.
class OpeningTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    static QString Mru(int entry) { return Ini("MRU", qPrintable(u"MRU%1"_s.arg(entry))); }

    // Makes a closed planner with only some of the tables.
    void MakeOlder(const QString& name, const std::vector<TableDef>& tables = plannerTables)
    {
        Recordset notes = schema::OpenNotes(MakePlanner(m_program->folders.Path(name), tables));
        Write(notes, u"1999/3/17"_s, "{\\rtf1 kept}");
    }

    // The message of the entry or the picture that refuses to open its window.
    QString Refusal(const QByteArray& command)
    {
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        if (command.startsWith("mnu")) {
            m_program->Trigger(command);
        } else {
            auto& picture = m_program->Find<PictureButton>(command);
            QTest::mouseClick(&picture, Qt::LeftButton);
            if (!QTest::qWaitFor([&] { return picture.Visible(0); })) return u"the picture stays pressed"_s;
        }
        const bool isAnswered = QTest::qWaitFor([] { return WaitingAnswers() == 0; });
        const bool isOpen = QApplication::activeModalWidget() || m_program->form->findChild<QDialog*>();
        m_program->Activate();
        return !isAnswered || isOpen ? u"no refusal"_s : seen.Text;
    }

    static bool MissesTable(const QString& path) { return DBEngine::OpenDatabase(path).TableNames().size() < 3; }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void ANewPlannerHasItsThreeTables()
    {
        m_program->New(u"Notes.MDB"_s);
        QVERIFY(QFile::exists(m_program->folders.Path(u"notes.mdb"_s)));
        QCOMPARE(g_dbPlanner.TableNames().size(), 3);
        for (Recordset* records : {&g_rsQMT, &g_rsAlarm, &g_rsRecurse})
            QVERIFY(records->BOF() && records->EOF_());
        QCOMPARE(m_program->form->windowTitle(), u"Orrelin for Windows 95/98/NT - "_s + g_sDBPath);
        QCOMPARE(Mru(1), u"none"_s); // added when it is opened, not when made
        QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999"_s);
    }

    // A failed New leaves the open planner's notes unchanged, unsaved ones too.
    void NewOverAnExistingFileAsksFirst()
    {
        for (const auto& [what, typed, answer] : Rows<QString, int>{{"no", u"other.mdb"_s, msgbox::No},
                                                                    {"without its ending", u"other"_s, msgbox::No},
                                                                    {"in use", u"notes"_s, msgbox::Yes},
                                                                    {"no folder", u"none/new.mdb"_s, 0}}) {
            const InRow row(this, what);
            MakeOlder(u"Other.mdb"_s);
            m_program->New(u"notes.mdb"_s);
            m_program->Type(20, u"kept"_s);
            AnswerNextFileDialog(m_program->folders.Path(typed));
            SeenBox seen;
            if (answer != 0) AnswerNextBox(answer, &seen);
            QString refusal, reason;
            if (answer != msgbox::No) {
                OnNextModal<QMessageBox>([&](QMessageBox& box) {
                    refusal = box.text();
                    reason = box.informativeText();
                    box.accept();
                });
            }
            m_program->Trigger("mnuNew");
            m_program->Activate();
            QCOMPARE(WaitingAnswers(), 0);
            QCOMPARE(seen.DefaultButton, answer == 0 ? QString() : u"No"_s);
            if (answer != msgbox::No) {
                QCOMPARE(refusal, u"Could not create New Planner"_s);
                QVERIFY(!reason.isEmpty());
                QVERIFY(g_sDBPath.endsWith(u"notes.mdb"_s));
            }
            m_program->Click(20);
            QTest::keyClick(&m_program->Box(20), Qt::Key_End, Qt::ControlModifier);
            QTest::keyClicks(&m_program->Box(20), u"!"_s);
            m_program->Trigger("mnuNextMonth");
            m_program->Trigger("mnuPrevMonth");
            QCOMPARE(m_program->Box(20).Text(), u"kept!"_s);
            QVERIFY(m_program->Stored(u"Other.mdb"_s, u"1999/3/17"_s).contains("kept"));
        }
    }

    void CancelLeavesEverythingAsItWas()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"kept"_s);
        for (const char* entry : {"mnuNew", "mnuOpen"}) {
            CancelNextFileDialog();
            m_program->Trigger(entry);
            QCOMPARE(m_program->Box(20).Text(), u"kept"_s);
            QVERIFY(!g_sDBPath.isEmpty());
        }
        QCOMPARE(m_program->Log(), QByteArray());
    }

    void WhatIsNoPlannerIsRefusedAndLeftAsItWas()
    {
        const QString path = m_program->folders.Path(u"other.mdb"_s);
        SetContent(path, "Dear diary, this is no planner.\n");
        const SeenBox seen = m_program->SaidAtOpening(u"other.mdb"_s, true);
        QVERIFY(m_program->Said("mnuLockDay").Text.startsWith(u"No Planner Exists!"_s));
        QCOMPARE(seen.Title, u"Orrelin Help Wizard"_s);
        QCOMPARE(seen.Icon, QMessageBox::Warning);
        QCOMPARE(m_program->Bottom().Caption(), seen.Text);
        QCOMPARE(g_sDBPath, QString());
        QVERIFY(m_program->Box(20).Locked());
        QVERIFY(m_program->Log().startsWith(" 1:"));
        QCOMPARE(Content(path), QByteArray("Dear diary, this is no planner.\n"));
    }

    void APlannerInUseNamesItsUser()
    {
        const QString refusal = u"Could not use 'team.mdb'; file already in use by "_s + OtherProgram::Name();
        const QString path = m_program->folders.Path(u"team.mdb"_s);
        OtherProgram other;
        m_program->New(u"team.mdb"_s);
        for (const bool shared : {false, true}) {
            m_program->Open(u"team.mdb"_s, shared);
            QCOMPARE(other.Open(path, false), shared ? u"0"_s : u"3045 "_s + refusal);
        }
        QCOMPARE(m_program->SaidAtOpening(u"team.mdb"_s).Text, refusal);
        QVERIFY(!HasPlanner());
    }

    void AnOlderFileIsUpgraded()
    {
        // answer 0: no question is expected
        for (const auto& [what, lacksAlarms, answer] : Rows<bool, int>{{"both missing, yes", true, msgbox::Yes},
                                                                       {"both missing, no", true, msgbox::No},
                                                                       {"recursions missing", false, 0}}) {
            const InRow row(this, what);
            std::vector<TableDef> tables = {schema::NotesTable()};
            if (!lacksAlarms) tables.push_back(schema::AlarmsTable());
            MakeOlder(u"old.mdb"_s, tables);
            AnswerNextFileDialog(m_program->folders.Path(u"old.mdb"_s));
            Program::AnswerOpenAs(false);
            if (answer) AnswerNextBox(answer);
            m_program->Trigger("mnuOpen");
            QCOMPARE(WaitingAnswers(), 0);
            QCOMPARE(m_program->Box(18).Text(), u"kept"_s);
            const bool upgraded = answer != msgbox::No;
            QDirIterator copies(folders::ApplicationDirectory() + u"/backups"_s, {u"*.mdb"_s}, QDir::Files,
                                QDirIterator::Subdirectories);
            QCOMPARE(copies.hasNext(), upgraded); // the planner before the upgrade
            QVERIFY(!upgraded || MissesTable(copies.next()));
            QCOMPARE(g_dbPlanner.TableNames().size(), upgraded ? 3 : 1);
            QCOMPARE(g_rsRecurse.IsNothing(), !upgraded);
            QCOMPARE(m_program->form->windowTitle().endsWith(u"old.mdb"_s), upgraded);
            if (!upgraded) continue;
            m_program->Open(u"old.mdb"_s); // no second question
            QCOMPARE(WaitingAnswers(), 0);
            QCOMPARE(m_program->Box(18).Text(), u"kept"_s);
        }
    }

    void SomeCommandsNeedAPlanner()
    {
        for (const char* command :
             {"mnuDayView", "picDay", "mnuWeekView", "picWeek", "mnuFindWord", "mnuAutoload", "mnuDateDiffCustomize",
              "mnuNewAlarm", "mnuChangeAlarms", "picAlarm", "mnuRecurse", "picRecurse"})
            QVERIFY2(Refusal(command).startsWith(u"No Planner Exists!\n"), command);
    }

    void SomeNeedAPersonalOne()
    {
        m_program->New(u"team.mdb"_s, true);
        for (const auto& [command, what] : {std::pair("mnuNewAlarm", u"alarm settings"_s),
                                            {"mnuChangeAlarms", u"alarm settings"_s},
                                            {"picAlarm", u"alarm settings"_s},
                                            {"mnuRecurse", u"recurring event"_s},
                                            {"picRecurse", u"recurring event"_s}})
            QVERIFY2(Refusal(command).startsWith(u"Global %1 for a shared database is not allowed."_s.arg(what)),
                     command);
    }

    void TheRecentListMovesByItsRules()
    {
        for (const char* name : {"a.mdb", "b.mdb", "c.mdb", "d.mdb", "e.mdb"}) {
            MakeOlder(QString::fromLatin1(name));
            m_program->Open(QString::fromLatin1(name));
        }
        const auto list = [&] {
            QString names;
            for (int entry = 1; entry <= 4; ++entry)
                names += Mru(entry).section(u'/', -1).left(1);
            return names;
        };
        QCOMPARE(list(), u"edcb"_s);
        QVERIFY(m_program->Entry("mnuMRU(3)").isVisible() && m_program->Entry("mnuMRUHyphen").isVisible());
        Program::AnswerOpenAs(false);
        m_program->Trigger("mnuMRU(2)"); // planner c
        QCOMPARE(list(), u"cedb"_s);
        QCOMPARE(m_program->Box(18).Text(), u"kept"_s);
        m_program->Open(u"c.mdb"_s);
        QCOMPARE(list(), u"cedb"_s);
        SetIni("MRU", "MRU2", "");
        m_program->Open(u"c.mdb"_s);
        QVERIFY(m_program->Entry("mnuMRU(0)").isVisible());
        QVERIFY(!m_program->Entry("mnuMRU(2)").isVisible()); // the list ends at the first empty key
    }

    void ALongerEntryThatBeginsWithThePathCountsAsTheSame()
    {
        MakeOlder(u"plan"_s);
        const QString path = m_program->folders.Path(u"plan"_s).toLower();
        SetIni("MRU", "MRU1", u"/other.mdb"_s);
        SetIni("MRU", "MRU2", path.toUpper() + u".MDB"_s);
        m_program->Open(u"plan"_s);
        QCOMPARE(Mru(1), path);
        QCOMPARE(Mru(2), u"/other.mdb"_s);
        QCOMPARE(Mru(3), u"none"_s);
    }
};

ORRELIN_TEST(OpeningTest)
#include "openingtest.moc"
