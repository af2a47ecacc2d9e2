#include "exchange/extraction.h"
#include "exchange/importedfile.h"
#include "platform/controls/maskedbox.h"
#include "program.h"
#include "state/plannerstate.h"
#include "testmain.h"

#include <QDirIterator>
#include <QTreeWidget>

// Import by the menu. Today is 17 March 1999.
class ImportingTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Path(const QString& name) const { return m_program->folders.Path(name); }

    // Imports a file of this content after the person's choice; returns the message box, if there is one.
    SeenBox Import(const QString& name, const QByteArray& content, const std::function<void(QDialog& form)>& choose)
    {
        SetContent(Path(name), content);
        SeenBox seen;
        AnswerNextFileDialog(Path(name));
        if (choose)
            OnNextModal([](QWidget* window) { return window->objectName() == u"ImportForm"; },
                        [&](QWidget* form) {
                            choose(static_cast<QDialog&>(*form));
                            QTest::keyClick(form, Qt::Key_Return);
                        });
        else
            AnswerNextBox(msgbox::Ok, &seen);
        m_program->Trigger("mnuImport");
        DropAnswers();
        return seen;
    }

    static QStringList Rows(const QDialog& form)
    {
        const auto& list = *form.findChild<QTreeWidget*>();
        QStringList rows;
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            const QTreeWidgetItem& item = *list.topLevelItem(row);
            const QVariant tick = item.data(0, Qt::CheckStateRole);
            rows += (tick.isNull() ? u""_s : tick.toInt() ? u"+ "_s : u"- "_s) + item.text(0) + u": "_s + item.text(1);
        }
        return rows;
    }

    QString Text(int day) const { return m_program->Box(m_program->CellOf(day)).Text(); }

private Q_SLOTS:
    void init()
    {
        m_program = Program::Started();
        m_program->New(u"own.mdb"_s);
        m_program->Type(m_program->CellOf(3), u"mine"_s);
    }
    void cleanup() { m_program.reset(); }

    void WhatIsTickedComesIn()
    {
        const QByteArray text = "1999-03-03\nDentist\nBEGIN:VCALENDAR\n1999-03-05\nAnn\n1999-13-01\n";
        QStringList rows;
        QString sum;
        const auto untick = [&](QDialog& form) {
            rows = Rows(form);
            form.findChild<QTreeWidget*>()->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
            sum = form.findChild<QLabel*>(u"lblSum"_s)->text();
        };
        Import(u"days.txt"_s, text, untick);
        QCOMPARE(rows, QStringList({u"+ Mar 3, 1999: Dentist"_s, u"+ Mar 5, 1999: Ann"_s,
                                    u"Left out: Line 6: no day of the calendar: 1999-13-01"_s}));
        QCOMPARE(sum, u"1 of 2 entries of days.txt: Mar 3, 1999."_s);
        QCOMPARE(Text(3), u"mine\nDentist\nBEGIN:VCALENDAR"_s);
        QCOMPARE(Text(5), QString());
        QCOMPARE(m_program->Bottom().Caption().section(u':', 1), u" 1 new, 0 changed, 0 already there"_s);
        // The form is that of typed text, and what is typed afterwards is saved.
        QVERIFY(m_program->Stored(u"own.mdb"_s, u"1999/3/3"_s).contains("Arial;}}"));
        m_program->Type(m_program->CellOf(5), u"typed"_s);
        m_program->Trigger("mnuNextMonth");
        m_program->Trigger("mnuPrevMonth");
        QCOMPARE(Text(5), u"typed"_s);
        // The planner as it was before lies in the backups.
        const QString copies = folders::ApplicationDirectory() + u"/backups"_s;
        QDirIterator copy(copies, {u"own before import.mdb"_s}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(copy.hasNext());
        QFile::copy(copy.next(), Path(u"before.mdb"_s));
        QVERIFY(!m_program->Stored(u"before.mdb"_s, u"1999/3/3"_s).contains("Dentist"));
    }

    // It has no tick, but what was imported of it goes.
    void ACancelledEventIsTakenOut()
    {
        const auto file = [](const QByteArray& status) {
            return "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:a\nDTSTART:19990318T100000\nSUMMARY:Ann\n" + status +
                   "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT5M\nEND:VALARM\nEND:VEVENT\nEND:VCALENDAR\n";
        };
        Import(u"a.ics"_s, file({}), [](QDialog&) {});
        QCOMPARE(Text(18), u"10:00 Ann"_s);
        QCOMPARE(ExtractFrom(g_dbPlanner, {}, {}).alarms.size(), 1U);
        QStringList rows;
        Import(u"a.ics"_s, file("STATUS:CANCELLED\n"), [&rows](QDialog& form) { rows = Rows(form); });
        QCOMPARE(rows, QStringList(u"- Mar 18, 1999: 10:00 Ann"_s));
        QCOMPARE(Text(18), QString());
        QVERIFY(ExtractFrom(g_dbPlanner, {}, {}).alarms.empty());
    }

    void WhatCannotBeReadIsTold()
    {
        const SeenBox seen = Import(u"days.md"_s, "nothing", {});
        QCOMPARE(seen.Text, u"'days.md' cannot be imported."_s);
        QFile large(Path(u"large.ics"_s));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(100 << 20));
        large.close();
        SeenBox refused;
        AnswerNextFileDialog(large.fileName());
        AnswerNextBox(msgbox::Ok, &refused);
        m_program->Trigger("mnuImport");
        QCOMPARE(refused.Text, u"'large.ics' cannot be imported."_s);
        QCOMPARE(Text(3), u"mine"_s);
    }
};

ORRELIN_TEST(ImportingTest)
#include "importingtest.moc"
