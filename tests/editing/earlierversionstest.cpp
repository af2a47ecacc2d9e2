#include "editing/versionsform.h"
#include "plannerfile/backups.h"
#include "settingsfile.h"
#include "testmain.h"
#include "workgroupprogram.h"

#include <QListWidget>

// The window of earlier versions over the real main window; today is 17 March 1999, in cell 18.
class EarlierVersionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    const QByteArray m_first = "{\\rtf1\\pard\\qc\\b first\\b0\\par\\pard\\ql second line}";

    RichTextBox& Box() const { return m_program->Box(); }
    // The planner's backup of yesterday has the first text, and today's note is another.
    void StartWith(const QByteArray& now, bool shared = false)
    {
        m_program->MakePlanner(false);
        m_program->WriteAs(m_program->Key, m_first);
        m_program->Start();
        m_program->Open(m_program->File, shared);
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 16), QTime(9, 30)));
        BackUpBeforeSave();
        desktopclock::SetForTests(QDateTime(QDate(1999, 3, 17), QTime(9, 30)));
        m_program->WriteAs(m_program->Key, now);
        m_program->Trigger(shared ? "mnuRefresh" : "mnuNextMonth");
        if (!shared) m_program->Trigger("mnuPrevMonth");
        m_program->Click(WorkgroupProgram::Cell);
    }
    void InForm(const std::function<void(VersionsForm&)>& act) const { m_program->InWindow("mnuVersions", act); }
    static QListWidget& List(VersionsForm& form) { return In<QListWidget>(form, "lstVersions"); }
    void PutBack() const
    {
        InForm([](VersionsForm& form) { Press(form, "btnOk"); });
    }
    QString Stored() const { return PlainText(m_program->Stored(m_program->File, m_program->Key)); }

private Q_SLOTS:
    void init() { m_program = std::make_unique<WorkgroupProgram>(); }
    void cleanup() { m_program.reset(); }

    void WhatIsPutBackIsOneStepOfUndoAndIsSaved()
    {
        SetDateOrder(1);
        StartWith("second line\nthird");
        m_program->TypeOn(u" typed"_s);
        InForm([](VersionsForm& form) {
            QCOMPARE(List(form).count(), 1);
            QCOMPARE(List(form).item(0)->text(), u"16/03/1999\nBackup"_s);
            auto& version = In<RichTextBox>(form, "tbVersion");
            auto& present = In<RichTextBox>(form, "tbPresent");
            QCOMPARE(version.Text(), u"first\nsecond line"_s);
            QCOMPARE(present.Text(), u"second line\nthird typed"_s); // not what is stored
            QCOMPARE(version.extraSelections().size(), 1);
            QCOMPARE(present.extraSelections().size(), 1);
            QVERIFY(version.Locked() && present.Locked());
            QTest::keyClick(&List(form), Qt::Key_Return);
        });
        QCOMPARE(Box().Text(), u"first\nsecond line"_s);
        Select(Box(), 0, 5);
        QCOMPARE(Box().SelBold(), true);
        QCOMPARE(Box().textCursor().blockFormat().alignment(), Qt::AlignHCenter);
        QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Box().Text(), u"second line\nthird typed"_s);
        QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(Box().Text(), u"first\nsecond line"_s);
        m_program->Trigger("mnuNextMonth");
        QCOMPARE(Stored(), u"first\nsecond line"_s);
    }

    void ADayThatIsGoneComesBack()
    {
        StartWith("now");
        Box().selectAll();
        QTest::keyClick(&Box(), Qt::Key_Delete);
        m_program->Trigger("mnuSave");
        QVERIFY(m_program->Stored(m_program->File, m_program->Key).isNull());
        InForm([](VersionsForm& form) {
            QVERIFY(In<RichTextBox>(form, "tbPresent").IsEmpty());
            const QPoint first = List(form).visualItemRect(List(form).item(0)).center();
            QTest::mouseClick(List(form).viewport(), Qt::LeftButton, {}, first);
            QTest::mouseDClick(List(form).viewport(), Qt::LeftButton, {}, first);
        });
        m_program->Trigger("mnuSave");
        QVERIFY(!m_program->Stored(m_program->File, m_program->Key).isNull());
    }

    void CancelChangesNothingAndTheSizeIsKept()
    {
        StartWith("now");
        InForm([](VersionsForm& form) {
            form.resize(640, 420);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        QVERIFY(!Box().Modified() && Box().Text() == u"now"_s);
        InForm([](VersionsForm& form) {
            QCOMPARE(form.size(), QSize(640, 420));
            form.reject();
        });
    }

    void WithoutAVersionItSaysSo()
    {
        m_program->Start();
        QVERIFY(m_program->Said("mnuVersions").Text.startsWith(u"No Planner Exists!"_s));
        StartWith(m_first);
        QCOMPARE(m_program->Said("mnuVersions").Text,
                 u"No earlier text of Mar 17, 1999 is kept that differs from the present one."_s);
    }

    void WhatCannotBePutBackIsRefused()
    {
        StartWith("now");
        InForm([&](VersionsForm& form) {
            m_program->Trigger("mnuNextMonth"); // as the clock does at midnight
            AnswerNextBox(msgbox::Ok);
            Press(form, "btnOk");
        });
        for (int cell = 1; cell <= 35; ++cell)
            QVERIFY(m_program->Box(cell).IsEmpty());
    }

    void AWorkgroupsDayIsLocked()
    {
        StartWith("now", true);
        InForm([](VersionsForm& form) { form.reject(); });
        QVERIFY(m_program->ShowsFree()); // looking takes no lock
        m_program->WriteAs(m_program->Key, "theirs");
        PutBack();
        QVERIFY(m_program->ShowsLocked());
        QCOMPARE(Box().Text(), u"first\nsecond line"_s);
        QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Box().Text(), u"theirs"_s); // what others have stored meanwhile is not lost
        QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        m_program->Click(20); // goes back to the locked day
        m_program->PressLock();
        QCOMPARE(Stored(), u"first\nsecond line"_s);
    }

    void ADayThatAnotherHoldsStays()
    {
        StartWith("now", true);
        Database planner = DBEngine::OpenDatabase(m_program->folders.Path(m_program->File));
        Recordset theirs = Days(planner);
        theirs.Seek(u"="_s, m_program->Key);
        theirs.Edit();
        SeenBox seen;
        InForm([&](VersionsForm& form) {
            AnswerNextBox(msgbox::Ok, &seen);
            Press(form, "btnOk");
        });
        QVERIFY2(seen.Text.contains(u"currently locked by"_s), qPrintable(seen.Text));
        QVERIFY(m_program->ShowsFree() && Box().Text() == u"now"_s);
    }

    void AServerKeepsTheHistory()
    {
        m_program->MakePlanner(true);
        m_program->WriteAs(m_program->Key, "old");
        m_program->Start();
        m_program->Open(m_program->File, true);
        m_program->WriteAs(m_program->Key, "theirs");
        m_program->Trigger("mnuRefresh");
        m_program->Click(WorkgroupProgram::Cell);
        InForm([](VersionsForm& form) {
            QCOMPARE(List(form).count(), 1);
            QVERIFY(List(form).item(0)->text().contains(u"Replaced by user '"_s));
            Press(form, "btnOk");
        });
        QCOMPARE(Box().Text(), u"old"_s);
        m_program->PressLock();
        QCOMPARE(Stored(), u"old"_s);
    }
};

ORRELIN_TEST(EarlierVersionsTest)
#include "earlierversionstest.moc"
