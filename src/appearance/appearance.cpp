#include "appearance/appearance.h"

#include "appearance/initfontform.h"
#include "appearance/panelstyle.h"
#include "appearance/styleform.h"
#include "calendar/calendarstate.h"
#include "calendar/modshow.h"
#include "calendar/redraw.h"
#include "calendar/turn.h"
#include "hall/bottompanel.h"
#include "hall/cells.h"
#include "platform/desktop/clock.h"
#include "platform/look/paper.h"
#include "platform/profile/profile.h"

namespace {
constexpr int Days = 7;
constexpr int Raised = 2, Inset = 4; // 3D effects

StyleDefaults Dialogs(QStringView section, int size)
{
    return {section, -1, size, 0, u""};
}

std::vector<StyleSample> CellSamples(const std::array<StyleDefaults, 4>& styles, int size)
{
    const QString today = QString::number(desktopclock::Now().date().day());
    const auto name = [](int i) { return QStringLiteral("panelDay(%1)").arg(i); };
    return {
        {name(0), QStringLiteral("Daily"), QStringLiteral("18"), Dialogs(styles[0].section, size), paper::Paper},
        {name(1), QStringLiteral("Today"), today, Dialogs(styles[1].section, size), paper::Today},
        {name(2), QStringLiteral("Memo"), QStringLiteral("Memo1"), Dialogs(styles[2].section, size), paper::MemoPaper},
        {name(3), QStringLiteral("Past Dates"), QStringLiteral("5"), Dialogs(styles[3].section, size), paper::Paper}};
}

StyleRules DayRules()
{
    return {.name = "PanelDayForm",
            .title = QStringLiteral("Customize Daily Appearance"),
            .frame = QStringLiteral("Daily Appearance"),
            .hint = QStringLiteral("Click on individual cells to change the daily appearance of numbers and text"),
            .click = QLatin1StringView(" in PanelDayForm, lblPanel1_Click"),
            .save = QLatin1StringView(" in PanelDayForm, btnSave_Click"),
            .font3D = settings::DailyFont3D,
            .effect = Raised,
            .strikeOut = &settings::PastDateStrikeThru,
            .strikeOutCaption = QStringLiteral("Strikethrough")};
}

StyleRules WeekRules()
{
    return {.name = "PanelWeekForm",
            .title = QStringLiteral("Customize Weekly Appearance"),
            .frame = QStringLiteral("Weekly Appearance"),
            .hint = QStringLiteral("Click on the panel to change the daily appearance of numbers and text"),
            .click = QLatin1StringView(" in PanelWeekForm, lblPanel1_Click"),
            .save = QLatin1StringView(" in PanelWeekForm, btnSave_Click"),
            .font3D = settings::WeekDailyFont3D,
            .effect = Raised,
            .strikeOut = &settings::WeekPastDateStrikeThru,
            .strikeOutCaption = QStringLiteral("StrikeThrough"),
            .alwaysItalic = true};
}

StyleRules HeadingRules(const StyleSample& all)
{
    return {.name = "LabelColor",
            .title = QStringLiteral("Customize Day of Week Appearance"),
            .frame = QStringLiteral("Day of Week Appearence"),
            .hint = QStringLiteral("Click on individual label to change fonts and colors"),
            .click = QLatin1StringView(" in LabelColor, lblSampleDay_Click"),
            .save = QLatin1StringView(" in LabelColor, btnSave_Click"),
            .font3D = settings::DayOfWeekFont3D,
            .effect = Raised,
            .all = &all};
}

StyleRules MonthRules()
{
    return {.name = "lblMonthForm",
            .title = QStringLiteral("Customize Monthly Appearance"),
            .frame = QStringLiteral("Monthly Appearance"),
            .hint = QStringLiteral("Click on this month's display to change fonts and color"),
            .click = QLatin1StringView(" in lblMonthForm, lblMonth_Click"),
            .save = QLatin1StringView(" in lblMonthForm, btnSave_Click"),
            .font3D = settings::DisplayMonthFont3D,
            .effect = Inset};
}
} // namespace

void Appearance::DrawAnew(void (Redraw::*display)(), QLatin1StringView literal)
{
    m_turn(literal, [&] { (m_redraw.*display)(); });
}

void Appearance::mnuNumberDlg_Click()
{
    StyleForm form(
        DayRules(),
        CellSamples({settings::DailyPanel, settings::TodayPanel, settings::MemoPanel, settings::PastDatePanel}, 12),
        m_cells.Client()->window());
    if (form.exec() == QDialog::Accepted)
        DrawAnew(&Redraw::subDisplayMonth, QLatin1StringView(" in PanelDayForm, btnSave_Click"));
}

void Appearance::mnuWeekAppearance_Click()
{
    StyleForm form(
        WeekRules(),
        CellSamples({settings::WeekDaily, settings::WeekToday, settings::WeekMemo, settings::WeekPastDate}, 16),
        m_cells.Client()->window());
    if (form.exec() == QDialog::Accepted)
        DrawAnew(&Redraw::subDisplayWeek, QLatin1StringView(" in PanelWeekForm, btnSave_Click"));
}

void Appearance::mnuMonToSun_Click()
{
    static constexpr std::array<QStringView, Days> sections = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
    std::vector<StyleSample> samples;
    for (std::size_t day = 0; day < Days; ++day) {
        samples.push_back({QStringLiteral("lblSampleDay(%1)").arg(day), QString(), sections[day].toString().toUpper(),
                           HeadingDefaults(sections[day]), paper::Band});
    }
    const StyleSample all = {QStringLiteral("lblAllDay"), QString(), QStringLiteral("MON-SUN"), HeadingDefaults(u"SUN"),
                             paper::Band};
    StyleForm form(HeadingRules(all), samples, m_cells.Client()->window());
    if (form.exec() != QDialog::Accepted) return;
    for (int day = 0; day < Days; ++day)
        StyleHeading(m_cells.lblDayOfWeek(day));
}

void Appearance::mnuMonthDisplay_Click()
{
    const StyleSample month = {QStringLiteral("lblMonth"), QString(), fnMonthName(g_iMonth), settings::DisplayMonth,
                               paper::Band};
    StyleForm form(MonthRules(), {month}, m_cells.Client()->window());
    if (form.exec() == QDialog::Accepted) StyleTitle(*m_bottom.panelBottom);
}

void Appearance::mnuInitialFont_Click()
{
    InitFontForm(m_cells.Client()->window()).exec();
}

void Appearance::lblDayOfWeek_DblClick(int Index)
{
    SSPanel& heading = m_cells.lblDayOfWeek(Index);
    const QString section = heading.Caption();
    const auto chosen = ChooseStyle(m_cells.Client()->window(), ReadStyle(HeadingDefaults(section)));
    if (!chosen) return;
    ApplyStyle(heading, *chosen);
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    WriteStyle(section, *chosen, u"-1");
}
