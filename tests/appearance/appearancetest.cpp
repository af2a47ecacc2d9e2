#include "appearance/initfontform.h"
#include "appearance/styleform.h"
#include "platform/controls/orlcombo.h"
#include "program.h"
#include "settingsfile.h"

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
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(20, QStringLiteral("typed before"));
        Customize(
            "mnuNumberDlg", QStringLiteral("panelDay(0)"),
            [](QFontDialog& fonts) {
                QFont font = fonts.currentFont();
                QVERIFY(font.bold() && font.pointSize() == 12); // the dialog's own default, not the grid's
                font.setPointSize(14);
                font.setBold(false);
                font.setStyleName(QString()); // which would say the contrary
                fonts.setCurrentFont(font);
            },
            Qt::Key_Return);
        QCOMPARE(Ini("DAILY PANEL", "FONTSIZE"), QStringLiteral("14"));
        QCOMPARE(Ini("DAILY PANEL", "FONTBOLD"), QStringLiteral("0"));
        QCOMPARE(Ini("DAILY PANEL", "FONTNAME"), QStringLiteral("Arial")); // installed or not
        QCOMPARE(Ini("DAILY PANEL", "FONTCOLOR"), QStringLiteral("&H0&"));
        QCOMPARE(Ini("MEMO PANEL", "FONTSIZE"), QStringLiteral("12"));
        QCOMPARE(Ini("DAILY PANEL", "FONT3D"), QStringLiteral("2"));
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSTRIKETHRU"), QStringLiteral("-1"));
        QCOMPARE(m_program->Panel(25).CaptionFont().pointSize(), 14);
        QCOMPARE(m_program->Box(20).Text(), QStringLiteral("typed before"));
        QVERIFY(m_program->Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("before"));
    }

    void CancelChangesNothing()
    {
        Customize(
            "mnuNumberDlg", QStringLiteral("panelDay(3)"),
            [](QFontDialog& fonts) { fonts.setCurrentFont(QFont(QStringLiteral("Liberation Serif"), 20)); },
            Qt::Key_Escape);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSIZE"), QStringLiteral("none"));
        Customize("mnuNumberDlg", QStringLiteral("panelDay(3)"), nullptr, Qt::Key_Return);
        QCOMPARE(Ini("PASTDATE PANEL", "FONTSIZE"), QStringLiteral("12"));
        QCOMPARE(Ini("PASTDATE PANEL", "FONTBOLD"), QStringLiteral("1"));
    }

    void WeeksComeOutItalicAfterEachSave()
    {
        OnNextModal<StyleForm>([](StyleForm& form) {
            In<QCheckBox>(form, "chkFontEffect").click();
            In<QCheckBox>(form, "chkStrikeOut").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        m_program->Trigger("mnuWeekAppearance");
        QCOMPARE(Ini("WEEKDAILY", "FONTITALIC"), QStringLiteral("1"));
        QCOMPARE(Ini("WEEKMEMO", "FONTSIZE"), QStringLiteral("16"));
        QCOMPARE(Ini("WEEKDAILY", "FONT3D"), QStringLiteral("0"));
        QCOMPARE(Ini("WEEKPASTDATE", "FONTSTRIKETHRU"), QStringLiteral("0"));
    }

    void OneSampleStandsForAllHeadings()
    {
        Customize(
            "mnuMonToSun", QStringLiteral("lblAllDay"), [](QFontDialog& fonts) { ChooseSize(fonts, 11); },
            Qt::Key_Return);
        QCOMPARE(Ini("Sun", "FONTSIZE"), QStringLiteral("11"));
        QCOMPARE(Ini("Sat", "FONTSIZE"), QStringLiteral("11"));
        auto& heading = m_program->Find<SSPanel>("lblDayOfWeek(3)");
        QCOMPARE(heading.CaptionFont().pointSize(), 11);

        // A double click changes one heading, with flags written another way.
        AnswerFontDialog([](QFontDialog& fonts) { ChooseSize(fonts, 18); });
        QTest::mouseDClick(&heading, Qt::LeftButton);
        QCOMPARE(heading.CaptionFont().pointSize(), 18);
        QCOMPARE(Ini("Wed", "FONTSIZE"), QStringLiteral("18"));
        QCOMPARE(Ini("Wed", "FONTBOLD"), QStringLiteral("-1"));
        QCOMPARE(Ini("Thu", "FONTSIZE"), QStringLiteral("11"));
    }

    void TheTitleFollowsAtOnce()
    {
        Customize(
            "mnuMonthDisplay", QStringLiteral("lblMonth"), [](QFontDialog& fonts) { ChooseSize(fonts, 20); },
            Qt::Key_Return);
        QCOMPARE(m_program->Bottom().CaptionFont().pointSize(), 20);
        QCOMPARE(Ini("DISPLAY MONTH", "FONT3D"), QStringLiteral("4"));
    }

    void TheInitialFontIsThatOfTheNextEmptyDay()
    {
        m_program->New(QStringLiteral("notes.mdb"));
        m_program->Type(21, QStringLiteral("full"));
        OnNextModal<InitFontForm>([](InitFontForm& form) {
            const auto choose = [&](const char* name, const QString& text) {
                auto* const combo = form.findChild<ORLCombo*>(QString::fromLatin1(name));
                for (int i = 0; i < combo->ListCount(); ++i)
                    if (combo->List(i).trimmed() == text) combo->SetListIndex(i);
            };
            QCOMPARE(In<ORLCombo>(form, "orlcmbFontname").Text(), QStringLiteral("Arial"));
            choose("orlcmbFontsize", QStringLiteral("14"));
            choose("orlcmbFontcolor", QStringLiteral("Navy"));
            In<QCheckBox>(form, "chkItalic").click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        m_program->Trigger("mnuInitialFont");
        QCOMPARE(Ini("DEFAULT FONTS", "BOLD"), QStringLiteral("0"));
        QCOMPARE(Ini("DEFAULT FONTS", "FONTNAME"), QStringLiteral("Arial"));
        m_program->Activate();
        m_program->Type(20, QStringLiteral("x"));
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

QTEST_MAIN(AppearanceTest)
#include "appearancetest.moc"
