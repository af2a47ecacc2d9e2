#include "notes/journal.h"

#include "editing/zoomboxform.h"
#include "failingstore.h"
#include "notes/recoveryform.h"
#include "notes/rescuefiles.h"
#include "platform/controls/timer.h"
#include "settings/settings.h"
#include "testmain.h"
#include "workgroupprogram.h"

#include <QListWidget>

// Typing that no planner holds yet, after a power cut: restores the files as they were at some moment after the program
// has ended, then starts it again.
class JournalTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    QMap<QString, QByteArray> m_atTheCut;

    static QString Folder() { return folders::ApplicationDirectory() + u"/journal"_s; }
    static QByteArray Journalled()
    {
        QByteArray all;
        for (const QString& name : QDir(Folder()).entryList({u"*.notes"_s}))
            all += Content(Folder() + u'/' + name);
        return all;
    }
    QString Stored() const { return PlainText(m_program->Stored(m_program->File, m_program->Key)); }

    void CutWhenJournalled(const QByteArray& text)
    {
        QTRY_VERIFY(Journalled().contains(text));
        m_atTheCut.clear();
        for (const QString& path : {Folder() + u"/1.notes"_s, m_program->folders.Path(m_program->File)})
            m_atTheCut[path] = Content(path);
    }
    void StartAfterTheCut()
    {
        m_program->Exit();
        ResetPlannerStateForTests();
        for (const QString& name : QDir(Folder()).entryList({u"*.notes"_s}))
            QFile::remove(Folder() + u'/' + name); // files that the exit left
        for (auto file = m_atTheCut.cbegin(); file != m_atTheCut.cend(); ++file)
            SetContent(file.key(), file.value());
        m_program->Start();
    }
    // Opens the planner, then queues the answers to what follows.
    void OpenWith(bool shared, const std::function<void()>& answers) const
    {
        AnswerNextFileDialog(m_program->folders.Path(m_program->File));
        Program::AnswerOpenAs(shared);
        answers();
        m_program->Trigger("mnuOpen");
        m_program->Activate();
    }
    void OpenAndAnswer(bool shared, const std::function<void(RecoveryForm&)>& answer) const
    {
        OpenWith(shared, [&] { OnNextModal<RecoveryForm>(answer); });
    }
    // Types into the day, in its cell or in the day view, until the journal has the text.
    void TypeUntilTheCut(bool shared, bool inDayView)
    {
        m_program->Click(WorkgroupProgram::Cell);
        if (!inDayView) {
            if (shared) m_program->PressLock();
            m_program->TypeOn(u" and new"_s);
            CutWhenJournalled("old and new");
            return;
        }
        m_program->InWindow<ZoomBoxForm>("mnuDayView", [&](ZoomBoxForm& form) {
            QTest::keyClick(&form.tbZoom(), Qt::Key_End, Qt::ControlModifier);
            QTest::keyClicks(&form.tbZoom(), u" and new"_s);
            CutWhenJournalled("old and new");
            Press(form, "btnCancel");
        });
    }
    void StartTyping(bool shared, bool inDayView = false)
    {
        m_program->WriteAs(m_program->Key, "old");
        m_program->Start();
        m_program->Open(m_program->File, shared);
        TypeUntilTheCut(shared, inDayView);
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<WorkgroupProgram>();
        m_program->MakePlanner(false);
    }
    void cleanup() { m_program.reset(); }

    void WhatWasTypedComesBack()
    {
        for (const auto& [what, shared, inDayView, othersWrote] :
             Rows<bool, bool, bool>{{"cell", false, false, false},
                                    {"day view", false, true, false},
                                    {"locked day", true, false, false},
                                    {"locked day view", true, true, false},
                                    {"others wrote meanwhile", true, false, true},
                                    {"others wrote into a personal planner", false, true, true}}) {
            const InRow row(this, what);
            StartTyping(shared, inDayView);
            StartAfterTheCut();
            QCOMPARE(Stored(), u"old"_s);
            if (othersWrote) m_program->WriteAs(m_program->Key, "theirs");
            const QString wanted = othersWrote ? u"theirs\nold and new"_s : u"old and new"_s;
            QString stored, found;
            OpenAndAnswer(shared, [&](RecoveryForm& form) {
                stored = In<RichTextBox>(form, "tbStored").Text();
                found = In<RichTextBox>(form, "tbFound").Text();
                Press(form, "btnOk");
            });
            QCOMPARE(stored, othersWrote ? u"theirs"_s : u"old"_s);
            QCOMPARE(found, wanted);
            QCOMPARE(Stored(), wanted);
            QCOMPARE(m_program->Box().Text(), wanted);
            QVERIFY(Journalled().isEmpty());
        }
    }

    void ALockedDayThatIsLeftIsOffered()
    {
        for (const auto& [way, inDayView] :
             Rows<bool>{{"exit", false}, {"open", false}, {"recent", false}, {"other", false}, {"exit", true}}) {
            const InRow row(this, way);
            const QString leaving = QString::fromLatin1(way);
            const QString other = u"other.mdb"_s;
            ::MakePlanner(m_program->folders.Path(other));
            std::optional<FailingStores> failing(std::in_place);
            StartTyping(true);
            if (inDayView) {
                OnNextModal<ZoomBoxForm>([](ZoomBoxForm& form) { Press(form, "btnOk"); });
                *failing->plan = {1, FailurePlan::ForEver, {3026, u"Disk full"_s}, u"Replace"_s};
                AnswerNextBox(msgbox::Ok);
                m_program->Trigger("mnuDayView");
            }
            failing.reset();
            if (leaving == u"exit") {
                m_program->Exit();
                QCOMPARE(QDir(Folder()).entryList({u"*.notes"_s}).size(), 1); // only the old run's journal
                m_program->Start();
            }
            if (leaving == u"other") m_program->Open(other);
            const auto takeIt = [&](RecoveryForm& form) {
                QCOMPARE(In<RichTextBox>(form, "tbStored").Text(), u"old"_s);
                Press(form, "btnOk");
            };
            if (leaving == u"recent") {
                Program::AnswerOpenAs(true);
                OnNextModal<RecoveryForm>(takeIt);
                m_program->Trigger("mnuMRU(0)");
            } else {
                OpenAndAnswer(true, takeIt);
            }
            QCOMPARE(Stored(), u"old and new"_s);
            QVERIFY(Journalled().isEmpty());
        }
    }

    void WhatIsNotWantedBecomesAFileAndLaterAsksAgain()
    {
        StartTyping(false);
        StartAfterTheCut();
        OpenAndAnswer(false, [](RecoveryForm& form) { QTest::keyClick(&form, Qt::Key_Escape); });
        QCOMPARE(m_program->Box().Text(), u"old"_s);
        QVERIFY(Journalled().contains("old and new"));
        OpenAndAnswer(false, [](RecoveryForm& form) {
            QTest::keyClick(&In<QListWidget>(form, "lstDays"), Qt::Key_Space);
            Press(form, "btnOk");
        });
        QCOMPARE(Stored(), u"old"_s);
        QVERIFY(Journalled().isEmpty());
        QCOMPARE(PlainText(Content(RescueFolder() + u"/team 1999-3-17.rtf"_s)), u"old and new"_s);
    }

    void WithoutRoomTheJournalStays()
    {
        for (const auto& [what, isWanted, said] :
             Rows<bool, QString>{{"for the planner", true, u"These days cannot be saved now"_s},
                                 {"for the file", false, u"The days that you did not tick could not be kept"_s}}) {
            const InRow row(this, what);
            StartTyping(false);
            StartAfterTheCut();
            SeenBox seen;
            std::optional<FullDisk> full;
            OpenAndAnswer(false, [&](RecoveryForm& form) {
                if (!isWanted) QTest::keyClick(form.findChild<QListWidget*>(u"lstDays"_s), Qt::Key_Space);
                full.emplace(0);
                AnswerNextBox(msgbox::Ok, &seen);
                Press(form, "btnOk");
            });
            full.reset();
            QVERIFY2(seen.Text.startsWith(said), qPrintable(seen.Text));
            QVERIFY(Journalled().contains("old and new"));
        }
    }

    // Even if the power cut came after the commit, before the journal was removed.
    void WhatWasSavedIsNotOffered()
    {
        StartTyping(false);
        m_program->Trigger("mnuSave");
        QVERIFY(Journalled().isEmpty());
        m_atTheCut.remove(m_program->folders.Path(m_program->File));
        StartAfterTheCut();
        m_program->Open(m_program->File);
        QCOMPARE(m_program->Box().Text(), u"old and new"_s);
        QVERIFY(Journalled().isEmpty());
        m_program->TypeOn(u"!"_s);
        QTRY_VERIFY(Journalled().contains("old and new!"));
        m_program->Exit();
        QVERIFY(Journalled().isEmpty());
    }

    // There is nobody to ask, and the disk is full.
    void AnEndWithoutAScreenKeepsTheJournalOfALockedDay()
    {
        const FailingStores failing;
        StartTyping(true);
        *failing.plan = {1, FailurePlan::ForEver, {3026, u"Disk full"_s}, {}};
        SetContent(RescueFolder(), "no folder");
        m_program->form->subExitProgram(Mainform::ProcessIsEnded);
        QVERIFY(Journalled().contains("old and new"));
    }

    void ADamagedJournalIsToldOfOnce()
    {
        StartTyping(false);
        QByteArray& journal = m_atTheCut[Folder() + u"/1.notes"_s];
        const QByteArray whole = journal;
        int number = 0;
        for (const QByteArray& damaged : {whole.chopped(1), QByteArray(whole).replace("old", "odd"), QByteArray("x")}) {
            journal = damaged;
            StartAfterTheCut();
            const QString aside = Folder() + u"/damaged-%1"_s.arg(++number);
            SeenBox seen;
            OpenWith(false, [&] { AnswerNextBox(msgbox::Ok, &seen); });
            QVERIFY2(seen.Text.contains(aside), qPrintable(seen.Text));
            QCOMPARE(Content(aside), damaged);
            QVERIFY(Journalled().isEmpty());
        }
    }

    void APlannerBehindAnotherPathGetsItsNotes()
    {
        for (const auto& [what, isMoved] : Rows<bool>{{"moved", true}, {"through a link", false}}) {
            const InRow row(this, what);
            StartTyping(false);
            StartAfterTheCut();
            const QString path = m_program->folders.Path(m_program->File);
            m_program->File = u"other.mdb"_s;
            const QString other = m_program->folders.Path(m_program->File);
            QVERIFY(isMoved ? QFile::rename(path, other) : QFile::link(path, other));
            SeenBox seen;
            OpenWith(false, [&] {
                if (isMoved) AnswerNextBox(msgbox::Yes, &seen);
                OnNextModal<RecoveryForm>([](RecoveryForm& form) { Press(form, "btnOk"); });
            });
            QCOMPARE(seen.Text.contains(path), isMoved);
            QCOMPARE(Stored(), u"old and new"_s);
            QVERIFY(Journalled().isEmpty());
        }
    }

    // The start window would cover the question. No alarm may open behind it.
    void AtTheStartItIsOfferedBehindIt()
    {
        StartTyping(false);
        Write(settings::LoadCondition, 1);
        Write(settings::LoadFilePath, m_program->folders.Path(m_program->File));
        bool alarmsRun = false;
        OnNextModal<RecoveryForm>([&](RecoveryForm& form) {
            alarmsRun = m_program->form->findChild<Timer*>(u"tmAlarm"_s)->Enabled();
            Press(form, "btnOk");
        });
        StartAfterTheCut();
        QTRY_COMPARE(Stored(), u"old and new"_s);
        QVERIFY(alarmsRun);
    }

    void WhereNothingCanBeKeptAsideItIsTold()
    {
        QDir(Folder()).removeRecursively();
        SetContent(Folder(), "no folder");
        const FailingStores failing;
        m_program->Start();
        m_program->Open(m_program->File);
        m_program->Type(WorkgroupProgram::Cell, u"new"_s);
        const QString told = u" - What you type cannot be kept aside: "_s;
        QTRY_VERIFY(m_program->Bottom().Caption().contains(told));
        // Turning a page does not clear the message, a successful save does.
        *failing.plan = {1, FailurePlan::ForEver, {3026, u"Disk full"_s}, {}};
        m_program->Trigger("mnuNextMonth");
        QVERIFY(m_program->Bottom().Caption().contains(told));
        *failing.plan = {};
        m_program->Trigger("mnuSave");
        QCOMPARE(m_program->Bottom().Caption(), u"APRIL 1999"_s);
    }
};

ORRELIN_TEST(JournalTest)
#include "journaltest.moc"
