#include "platform/controls/maskedbox.h"
#include "program.h"
#include "testmain.h"

#include <QProcess>

// Export by the menu, and by the command while the planner is open. Today is 17 March 1999.
class ExportingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Path(const QString& name) const { return m_program->folders.Path(name); }

    // Exports what choose asks for, as plain text.
    QByteArray Exported(const std::function<void(QDialog& form)>& choose) const
    {
        const QString file = Path(u"out.txt"_s);
        QFile::remove(file);
        OnNextModal<QDialog>([&](QDialog& form) {
            form.findChild<QRadioButton*>(u"txt"_s)->click();
            choose(form);
            AnswerNextFileDialog(file);
            QTest::keyClick(&form, Qt::Key_Return);
        });
        m_program->Trigger("mnuExport");
        DropAnswers();
        return Content(file);
    }

    // What the command prints, with its exit status in front.
    static QByteArray Run(const QStringList& arguments)
    {
        QProcess command;
        command.start(QStringLiteral(EXPORT_COMMAND), arguments);
        if (!command.waitForFinished()) return "it does not end";
        return QByteArray::number(command.exitCode()) + ' ' + command.readAllStandardOutput() +
               command.readAllStandardError();
    }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"own.mdb"_s);
        m_program->Type(m_program->CellOf(3), u"Dentist"_s);
        m_program->Type(m_program->CellOf(25), u"Late"_s);
        m_program->Trigger("mnuNextMonth");
        m_program->Type(m_program->CellOf(5), u"Ann"_s);
    }
    void cleanup() { m_program.reset(); }

    // What stands in the cells unsaved goes out, too.
    void WhatIsChosenGoesOut()
    {
        const QByteArray dentist = "1999-03-03 Wednesday\n--------------------\nDentist\n\n";
        const QByteArray late = "1999-03-25 Thursday\n-------------------\nLate\n\n";
        const QByteArray april = "1999-04-05 Monday\n-----------------\nAnn\n\n";
        const QByteArray bo = "1999-04-06 Tuesday\n------------------\nBo\n\n";
        QCOMPARE(Exported([](QDialog&) {}), april);
        QVERIFY(m_program->Bottom().Caption().contains(u"out.txt"));
        m_program->Type(m_program->CellOf(6), u"Bo"_s); // typing goes on
        QCOMPARE(Exported([](QDialog& form) { form.findChild<QRadioButton*>(u"opAll"_s)->click(); }),
                 dentist + late + april + bo);
        SeenBox seen;
        QCOMPARE(Exported([&](QDialog& form) {
                     auto& to = *form.findChild<MaskEdBox*>(u"maskTo"_s);
                     form.findChild<QRadioButton*>(u"opSpan"_s)->click();
                     form.findChild<MaskEdBox*>(u"maskFrom"_s)->SetText(u"03/03/1999"_s);
                     to.SetText(u"03/02/1999"_s);
                     AnswerNextBox(msgbox::Ok, &seen);
                     QTest::keyClick(&form, Qt::Key_Return);
                     to.SetText(u"03/03/1999"_s);
                 }),
                 dentist);
        QCOMPARE(seen.Text, u"The last day is before the first"_s);
        m_program->Trigger("mnuPrevMonth");
        m_program->Trigger("mnuWeekView");
        QCOMPARE(Exported([](QDialog&) {}), dentist); // its week
    }

    void TheCommandReadsAnOpenPlanner()
    {
        m_program->Trigger("mnuSave");
        const QString planner = Path(u"own.mdb"_s);
        const QByteArray before = Content(planner);
        const QByteArray april = Run({planner, u"--format"_s, u"TXT"_s, u"--from"_s, u"1999-04-01"_s});
        QCOMPARE(april, QByteArray("0 1999-04-05 Monday\n-----------------\nAnn\n\n"));
        QVERIFY(Run({planner}).startsWith("0 BEGIN:VCALENDAR"));
        QCOMPARE(Run({planner, u"-o"_s, Path(u"all.html"_s)}), QByteArray("0 "));
        QVERIFY(Content(Path(u"all.html"_s)).contains("Dentist"));
        QCOMPARE(Content(planner), before);
        QVERIFY(Run({planner, u"--from"_s, u"soon"_s}).startsWith("2 orrelin-export: 'soon' is no date"));
        QVERIFY(Run({planner, u"-o"_s, u"notes"_s}).startsWith("2 orrelin-export: the name 'notes'"));
        const QString link = Path(u"link.mdb"_s); // from somebody else, perhaps to get a password
        SetContent(link, "Orrelin planner link 1\npostgresql://ann@127.0.0.1:1/db?planner=own\n");
        QVERIFY(Run({link}).startsWith("1 orrelin-export: 'link.mdb' leads to a server"));
        QVERIFY(Run({Path(u"gone.mdb"_s)}).startsWith("1 orrelin-export: "));
        QVERIFY(Run({planner, u"-o"_s, u"/dev/null/x.txt"_s}).startsWith("1 orrelin-export: 'x.txt' could not"));
    }
};

ORRELIN_TEST(ExportingTest)
#include "exportingtest.moc"
