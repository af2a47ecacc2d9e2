#include "appearance/initfontform.h"
#include "appearance/styleform.h"
#include "platform/controls/orlcombo.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QCheckBox>

// The dialogs of appearance on the real window; today is 17 March 1999.
class AppearanceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    // Presses the sample, answers the font dialog and closes the dialog with the key.
    void Customize(const char* entry, const QString& sample, std::function<void(QFontDialog&)> choose,
                   Qt::Key key = Qt::Key_Return)
    {
        m_program->InWindow<StyleForm>(entry, [=](StyleForm& form) {
            AnswerFontDialog(choose);
            QTest::mouseClick(form.findChild<SSPanel*>(sample), Qt::LeftButton);
            QTest::keyClick(&form, key);
        });
    }

    // Expected keys as "SIZE=12 BOLD=1", without their prefix FONT.
    static void CheckIni(const char* section, const char* expected)
    {
        for (const QByteArray& setting : QByteArray(expected).split(' ')) {
            const QList<QByteArray> parts = setting.split('=');
            QCOMPARE(Ini(section, "FONT" + parts[0]), QString::fromLatin1(parts[1]));
        }
    }

    void CheckFont(int cell, double size, bool italic) const
    {
        Select(m_program->Box(cell), 0, 1);
        QCOMPARE(m_program->Box(cell).SelFontSize(), std::optional(size));
        QCOMPARE(m_program->Box(cell).SelItalic(), std::optional(italic));
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void TheDaysTakeTheStyleThatWasChosen()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"typed before"_s);
        Customize("mnuNumberDlg", u"panelDay(0)"_s, [](QFontDialog& fonts) {
            QFont font = fonts.currentFont();
            QVERIFY(font.bold() && font.pointSize() == 12); // the dialog's own default, not the grid's
            font.setPointSize(14);
            font.setBold(false);
            font.setStyleName(QString()); // the style name would contradict
            fonts.setCurrentFont(font);
        });
        CheckIni("DAILY PANEL", "SIZE=14 BOLD=0 NAME=Arial COLOR=&H0& 3D=2"); // whether or not the font is installed
        CheckIni("MEMO PANEL", "SIZE=12");
        CheckIni("PASTDATE PANEL", "STRIKETHRU=-1");
        QCOMPARE(m_program->Panel(25).CaptionFont().pointSize(), 14);
        QCOMPARE(m_program->Box(20).Text(), u"typed before"_s);
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/3/19"_s).contains("before"));
    }

    void CancelChangesNothing()
    {
        Customize(
            "mnuNumberDlg", u"panelDay(3)"_s,
            [](QFontDialog& fonts) { fonts.setCurrentFont(QFont(u"Liberation Serif"_s, 20)); }, Qt::Key_Escape);
        CheckIni("PASTDATE PANEL", "SIZE=none");
        Customize("mnuNumberDlg", u"panelDay(3)"_s, nullptr);
        CheckIni("PASTDATE PANEL", "SIZE=12 BOLD=1");
    }

    // A sample is painted like the cell or heading that it stands for. Settings that only the file can hold are gone.
    void DefaultsAreThoseOfAnUntouchedCalendar()
    {
        struct Row
        {
            const char* entry;
            QString sample, shown;
        };
        const Row rows[] = {
            {"mnuNumberDlg", u"panelDay(0)"_s, u"panelDay(25)"_s},
            {"mnuNumberDlg", u"panelDay(1)"_s, u"panelDay(18)"_s},
            {"mnuNumberDlg", u"panelDay(2)"_s, u"panelDay(35)"_s},
            {"mnuNumberDlg", u"panelDay(3)"_s, u"panelDay(5)"_s},
            {"mnuMonToSun", u"lblSampleDay(2)"_s, u"lblDayOfWeek(2)"_s},
            {"mnuMonthDisplay", u"lblMonth"_s, u"panelBottom"_s},
        };
        const auto look = [](const SSPanel& panel) {
            return std::tuple(panel.CaptionFont(), panel.ForeColor(), panel.Font3D(), panel.CaptionAlignment(),
                              panel.Paper().rgb(), panel.Frame());
        };
        std::vector<decltype(look(m_program->Bottom()))> untouched;
        for (const Row& row : rows)
            untouched.push_back(look(*m_program->form->findChild<SSPanel*>(row.shown)));
        for (const char* section :
             {"DAILY PANEL", "TODAY PANEL", "MEMO PANEL", "PASTDATE PANEL", "Tue", "DISPLAY MONTH"})
            for (const auto& [key, value] : {std::pair("FONTSIZE", "33"), std::pair("FONTCOLOR", "&HFF00FF&"),
                                             std::pair("FONT3D", "0"), std::pair("FONTSTRIKETHRU", "0")})
                SetIni(section, key, value);
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            const SSPanel& shown = *m_program->form->findChild<SSPanel*>(rows[i].shown);
            m_program->InWindow<StyleForm>(rows[i].entry, [&](StyleForm& form) {
                Press(form, "btnDefaults");
                QCOMPARE(look(*form.findChild<SSPanel*>(rows[i].sample)), untouched[i]);
                Press(form, "btnSave");
            });
            QCOMPARE(look(shown), untouched[i]);
        }
    }

    void WeeksComeOutItalicAfterEachSave()
    {
        m_program->InWindow<StyleForm>("mnuWeekAppearance", [](StyleForm& form) {
            In<QCheckBox>(form, "chkFontEffect").click();
            In<QCheckBox>(form, "chkStrikeOut").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        CheckIni("WEEKDAILY", "ITALIC=1 3D=0");
        CheckIni("WEEKMEMO", "SIZE=16");
        CheckIni("WEEKPASTDATE", "STRIKETHRU=0");
        m_program->InWindow<StyleForm>("mnuWeekAppearance", [](StyleForm& form) {
            Press(form, "btnDefaults");
            QVERIFY(In<SSPanel>(form, "panelDay(0)").CaptionFont().italic());
            form.reject();
        });
    }

    // One sample stands for all headings. A double click changes a single heading, which writes its flags in another
    // form.
    void HeadingsAndTheTitleFollowAtOnce()
    {
        Customize("mnuMonToSun", u"lblAllDay"_s, [](QFontDialog& fonts) { ChooseSize(fonts, 11); });
        CheckIni("Sun", "SIZE=11");
        CheckIni("Sat", "SIZE=11");
        auto& heading = m_program->Find<SSPanel>("lblDayOfWeek(3)");
        QCOMPARE(heading.CaptionFont().pointSize(), 11);
        AnswerFontDialog([](QFontDialog& fonts) { ChooseSize(fonts, 18); });
        QTest::mouseDClick(&heading, Qt::LeftButton);
        QCOMPARE(heading.CaptionFont().pointSize(), 18);
        CheckIni("Wed", "SIZE=18 BOLD=-1");
        CheckIni("Thu", "SIZE=11");
        Customize("mnuMonthDisplay", u"lblMonth"_s, [](QFontDialog& fonts) { ChooseSize(fonts, 20); });
        QCOMPARE(m_program->Bottom().CaptionFont().pointSize(), 20);
        CheckIni("DISPLAY MONTH", "3D=4");
    }

    void TheInitialFontIsThatOfTheNextEmptyDay()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(21, u"full"_s);
        m_program->InWindow<InitFontForm>("mnuInitialFont", [](InitFontForm& form) {
            QCOMPARE(In<ORLCombo>(form, "orlcmbFontname").Text(), u"Arial"_s);
            In<ORLCombo>(form, "orlcmbFontsize").setCurrentText(u"14"_s);
            In<ORLCombo>(form, "orlcmbFontcolor").setCurrentText(u"Navy"_s);
            In<QCheckBox>(form, "chkItalic").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        CheckIni("DEFAULT FONTS", "NAME=Arial");
        QCOMPARE(Ini("DEFAULT FONTS", "BOLD"), u"0"_s);
        m_program->Type(20, u"x"_s);
        CheckFont(20, 14, true);
        QCOMPARE(m_program->Box(20).SelColor(), std::optional(0x800000u));
        m_program->Click(21); // this day keeps its own font
        CheckFont(21, 8, false);
        m_program->InWindow<InitFontForm>("mnuInitialFont", [](InitFontForm& form) {
            Press(form, "btnDefaults");
            Press(form, "btnOk");
        });
        CheckIni("DEFAULT FONTS", "NAME=Arial SIZE=8 COLOR=Black");
        QCOMPARE(Ini("DEFAULT FONTS", "ITALIC"), u"0"_s);
    }
};

ORRELIN_TEST(AppearanceTest)
#include "appearancetest.moc"
