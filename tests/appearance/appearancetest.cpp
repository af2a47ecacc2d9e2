#include "appearance/initfontform.h"
#include "appearance/styleform.h"
#include "platform/controls/orlcombo.h"
#include "platform/profile/profile.h"
#include "program.h"

#include <QCheckBox>

// The dialogs of appearance on the real window; today is 17 March 1999.
class AppearanceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    QString Ini(const char* section, const char* key)
    {
        return GetPrivateProfileStringA(QString::fromLatin1(section), QString::fromLatin1(key), QStringLiteral("none"),
                                        100, QStringLiteral("PLANNER.INI"));
    }

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
    void init()
    {
        m_program = std::make_unique<Program>();
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void TheDaysTakeTheStyleThatWasChosen()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        program.Type(20, QStringLiteral("typed before"));
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
        QCOMPARE(program.Panel(25).CaptionFont().pointSize(), 14);
        QCOMPARE(program.Box(20).Text(), QStringLiteral("typed before"));
        QVERIFY(program.Stored(QStringLiteral("notes.mdb"), QStringLiteral("1999/3/19")).contains("before"));
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
            form.findChild<QCheckBox*>(QStringLiteral("chkFontEffect"))->click();
            form.findChild<QCheckBox*>(QStringLiteral("chkStrikeOut"))->click();
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
            "mnuMonToSun", QStringLiteral("lblAllDay"),
            [](QFontDialog& fonts) {
                QFont font = fonts.currentFont();
                font.setPointSize(11);
                fonts.setCurrentFont(font);
            },
            Qt::Key_Return);
        QCOMPARE(Ini("Sun", "FONTSIZE"), QStringLiteral("11"));
        QCOMPARE(Ini("Sat", "FONTSIZE"), QStringLiteral("11"));
        auto& heading = *m_program->form->findChild<SSPanel*>(QStringLiteral("lblDayOfWeek(3)"));
        QCOMPARE(heading.CaptionFont().pointSize(), 11);

        // A double click changes one heading, with flags written another way.
        AnswerFontDialog([](QFontDialog& fonts) {
            QFont font = fonts.currentFont();
            font.setPointSize(18);
            fonts.setCurrentFont(font);
        });
        QTest::mouseDClick(&heading, Qt::LeftButton);
        QCOMPARE(heading.CaptionFont().pointSize(), 18);
        QCOMPARE(Ini("Wed", "FONTSIZE"), QStringLiteral("18"));
        QCOMPARE(Ini("Wed", "FONTBOLD"), QStringLiteral("-1"));
        QCOMPARE(Ini("Thu", "FONTSIZE"), QStringLiteral("11"));
    }

    void TheTitleFollowsAtOnce()
    {
        Customize(
            "mnuMonthDisplay", QStringLiteral("lblMonth"),
            [](QFontDialog& fonts) {
                QFont font = fonts.currentFont();
                font.setPointSize(20);
                fonts.setCurrentFont(font);
            },
            Qt::Key_Return);
        QCOMPARE(m_program->Bottom().CaptionFont().pointSize(), 20);
        QCOMPARE(Ini("DISPLAY MONTH", "FONT3D"), QStringLiteral("4"));
    }

    void TheInitialFontIsThatOfTheNextEmptyDay()
    {
        Program& program = *m_program;
        program.New(QStringLiteral("notes.mdb"));
        OnNextModal<InitFontForm>([](InitFontForm& form) {
            const auto choose = [&](const char* name, const QString& text) {
                auto* const combo = form.findChild<ORLCombo*>(QString::fromLatin1(name));
                for (int i = 0; i < combo->ListCount(); ++i)
                    if (combo->List(i).trimmed() == text) combo->SetListIndex(i);
            };
            QCOMPARE(form.findChild<ORLCombo*>(QStringLiteral("orlcmbFontname"))->Text(), QStringLiteral("Arial"));
            choose("orlcmbFontsize", QStringLiteral("14"));
            choose("orlcmbFontcolor", QStringLiteral("Navy"));
            form.findChild<QCheckBox*>(QStringLiteral("chkItalic"))->click();
            QTest::keyClick(&form, Qt::Key_Return);
        });
        program.Trigger("mnuInitialFont");
        QCOMPARE(Ini("DEFAULT FONTS", "BOLD"), QStringLiteral("0"));
        QCOMPARE(Ini("DEFAULT FONTS", "FONTNAME"), QStringLiteral("Arial"));
        program.Activate();
        program.Type(20, QStringLiteral("x"));
        program.Box(20).SetSelStart(0);
        program.Box(20).SetSelLength(1);
        QCOMPARE(program.Box(20).SelFontSize(), std::optional(14.0));
        QCOMPARE(program.Box(20).SelColor(), std::optional(0x800000u));
        QCOMPARE(program.Box(20).SelItalic(), std::optional(true));
    }
};

QTEST_MAIN(AppearanceTest)
#include "appearancetest.moc"
