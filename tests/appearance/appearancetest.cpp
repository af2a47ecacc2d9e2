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

    // Presses the sample and answers the font dialog, then leaves the dialog by the key.
    void Customize(const char* entry, const QString& sample, std::function<void(QFontDialog&)> choose, Qt::Key key)
    {
        OnNextModal<StyleForm>([=](StyleForm& form) {
            auto* const panel = form.findChild<SSPanel*>(sample);
            QVERIFY(panel);
            AnswerFontDialog(choose);
            QTest::mouseClick(panel, Qt::LeftButton);
            QTest::keyClick(&form, key);
        });
        m_program->Trigger(entry);
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void TheDaysTakeTheStyleThatWasChosen()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(20, u"typed before"_s);
        Customize(
            "mnuNumberDlg", u"panelDay(0)"_s,
            [](QFontDialog& fonts) {
                QFont font = fonts.currentFont();
                QVERIFY(font.bold() && font.pointSize() == 12); // the dialog's own default, not the grid's
                font.setPointSize(14);
                font.setBold(false);
                font.setStyleName(QString()); // which would say the contrary
                fonts.setCurrentFont(font);
            },
            Qt::Key_Return);
        QCOMPARE(Ini("DAILY PANEL", "FONTSIZE"), u"14"_s);
        QCOMPARE(Ini("DAILY PANEL", "FONTBOLD"), u"0"_s);
        QCOMPARE(Ini("DAILY PANEL", "FONTNAME"), u"Arial"_s); // installed or not
        QCOMPARE(Ini("DAILY PANEL", "FONTCOLOR"), u"&H0&"_s);
        QCOMPARE(Ini("MEMO PANEL", "FONTSIZE"), u"12"_s);
        QCOMPARE(Ini("DAILY PANEL", "FONT3D"), u"2"_s);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSTRIKETHRU"), u"-1"_s);
        QCOMPARE(m_program->Panel(25).CaptionFont().pointSize(), 14);
        QCOMPARE(m_program->Box(20).Text(), u"typed before"_s);
        QVERIFY(m_program->Stored(u"notes.mdb"_s, u"1999/3/19"_s).contains("before"));
    }

    void CancelChangesNothing()
    {
        Customize(
            "mnuNumberDlg", u"panelDay(3)"_s,
            [](QFontDialog& fonts) { fonts.setCurrentFont(QFont(u"Liberation Serif"_s, 20)); }, Qt::Key_Escape);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSIZE"), u"none"_s);
        Customize("mnuNumberDlg", u"panelDay(3)"_s, nullptr, Qt::Key_Return);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSIZE"), u"12"_s);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTBOLD"), u"1"_s);
    }

    void WeeksComeOutItalicAfterEachSave()
    {
        OnNextModal<StyleForm>([](StyleForm& form) {
            In<QCheckBox>(form, "chkFontEffect").click();
            In<QCheckBox>(form, "chkStrikeOut").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        m_program->Trigger("mnuWeekAppearance");
        QCOMPARE(Ini("WEEKDAILY", "FONTITALIC"), u"1"_s);
        QCOMPARE(Ini("WEEKMEMO", "FONTSIZE"), u"16"_s);
        QCOMPARE(Ini("WEEKDAILY", "FONT3D"), u"0"_s);
        QCOMPARE(Ini("WEEKPASTDATE", "FONTSTRIKETHRU"), u"0"_s);
    }

    void OneSampleStandsForAllHeadings()
    {
        Customize(
            "mnuMonToSun", u"lblAllDay"_s, [](QFontDialog& fonts) { ChooseSize(fonts, 11); }, Qt::Key_Return);
        QCOMPARE(Ini("Sun", "FONTSIZE"), u"11"_s);
        QCOMPARE(Ini("Sat", "FONTSIZE"), u"11"_s);
        auto& heading = m_program->Find<SSPanel>("lblDayOfWeek(3)");
        QCOMPARE(heading.CaptionFont().pointSize(), 11);

        // A double click changes one heading, with flags written another way.
        AnswerFontDialog([](QFontDialog& fonts) { ChooseSize(fonts, 18); });
        QTest::mouseDClick(&heading, Qt::LeftButton);
        QCOMPARE(heading.CaptionFont().pointSize(), 18);
        QCOMPARE(Ini("Wed", "FONTSIZE"), u"18"_s);
        QCOMPARE(Ini("Wed", "FONTBOLD"), u"-1"_s);
        QCOMPARE(Ini("Thu", "FONTSIZE"), u"11"_s);
    }

    void TheTitleFollowsAtOnce()
    {
        Customize(
            "mnuMonthDisplay", u"lblMonth"_s, [](QFontDialog& fonts) { ChooseSize(fonts, 20); }, Qt::Key_Return);
        QCOMPARE(m_program->Bottom().CaptionFont().pointSize(), 20);
        QCOMPARE(Ini("DISPLAY MONTH", "FONT3D"), u"4"_s);
    }

    void TheInitialFontIsThatOfTheNextEmptyDay()
    {
        m_program->New(u"notes.mdb"_s);
        m_program->Type(21, u"full"_s);
        OnNextModal<InitFontForm>([](InitFontForm& form) {
            const auto choose = [&](const char* name, const QString& text) {
                auto* const combo = form.findChild<ORLCombo*>(QString::fromLatin1(name));
                for (int i = 0; i < combo->ListCount(); ++i)
                    if (combo->List(i).trimmed() == text) combo->SetListIndex(i);
            };
            QCOMPARE(In<ORLCombo>(form, "orlcmbFontname").Text(), u"Arial"_s);
            choose("orlcmbFontsize", u"14"_s);
            choose("orlcmbFontcolor", u"Navy"_s);
            In<QCheckBox>(form, "chkItalic").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        m_program->Trigger("mnuInitialFont");
        QCOMPARE(Ini("DEFAULT FONTS", "BOLD"), u"0"_s);
        QCOMPARE(Ini("DEFAULT FONTS", "FONTNAME"), u"Arial"_s);
        m_program->Activate();
        m_program->Type(20, u"x"_s);
        Select(m_program->Box(20), 0, 1);
        QCOMPARE(m_program->Box(20).SelFontSize(), std::optional(14.0));
        QCOMPARE(m_program->Box(20).SelColor(), std::optional(0x800000u));
        QCOMPARE(m_program->Box(20).SelItalic(), std::optional(true));
        m_program->Click(21); // which keeps its own
        Select(m_program->Box(21), 0, 4);
        QCOMPARE(m_program->Box(21).SelFontSize(), std::optional(8.0));
        QCOMPARE(m_program->Box(21).SelItalic(), std::optional(false));
    }
};

ORRELIN_TEST(AppearanceTest)
#include "appearancetest.moc"
