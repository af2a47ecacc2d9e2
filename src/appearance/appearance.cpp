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
    const auto name = [](int i) { return u"panelDay(%1)"_s.arg(i); };
    return {{name(0), u"Daily"_s, u"18"_s, Dialogs(styles[0].section, size), paper::Paper},
            {name(1), u"Today"_s, today, Dialogs(styles[1].section, size), paper::Today},
            {name(2), u"Memo"_s, u"Memo1"_s, Dialogs(styles[2].section, size), paper::MemoPaper},
            {name(3), u"Past Dates"_s, u"5"_s, Dialogs(styles[3].section, size), paper::Paper}};
}

StyleRules DayRules()
{
    return {.name = "PanelDayForm",
            .title = u"Customize Daily Appearance"_s,
            .frame = u"Daily Appearance"_s,
            .hint = u"Click on individual cells to change the daily appearance of numbers and text"_s,
            .click = " in PanelDayForm, lblPanel1_Click"_L1,
            .save = " in PanelDayForm, btnSave_Click"_L1,
            .font3D = settings::DailyFont3D,
            .effect = Raised,
            .strikeOut = &settings::PastDateStrikeThru,
            .strikeOutCaption = u"Strikethrough"_s};
}

StyleRules WeekRules()
{
    return {.name = "PanelWeekForm",
            .title = u"Customize Weekly Appearance"_s,
            .frame = u"Weekly Appearance"_s,
            .hint = u"Click on the panel to change the daily appearance of numbers and text"_s,
            .click = " in PanelWeekForm, lblPanel1_Click"_L1,
            .save = " in PanelWeekForm, btnSave_Click"_L1,
            .font3D = settings::WeekDailyFont3D,
            .effect = Raised,
            .strikeOut = &settings::WeekPastDateStrikeThru,
            .strikeOutCaption = u"StrikeThrough"_s,
            .alwaysItalic = true};
}

StyleRules HeadingRules(const StyleSample& all)
{
    return {.name = "LabelColor",
            .title = u"Customize Day of Week Appearance"_s,
            .frame = u"Day of Week Appearence"_s,
            .hint = u"Click on individual label to change fonts and colors"_s,
            .click = " in LabelColor, lblSampleDay_Click"_L1,
            .save = " in LabelColor, btnSave_Click"_L1,
            .font3D = settings::DayOfWeekFont3D,
            .effect = Raised,
            .all = &all};
}

StyleRules MonthRules()
{
    return {.name = "lblMonthForm",
            .title = u"Customize Monthly Appearance"_s,
            .frame = u"Monthly Appearance"_s,
            .hint = u"Click on this month's display to change fonts and color"_s,
            .click = " in lblMonthForm, lblMonth_Click"_L1,
            .save = " in lblMonthForm, btnSave_Click"_L1,
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
    if (form.exec() == QDialog::Accepted) DrawAnew(&Redraw::subDisplayMonth, " in PanelDayForm, btnSave_Click"_L1);
}

void Appearance::mnuWeekAppearance_Click()
{
    StyleForm form(
        WeekRules(),
        CellSamples({settings::WeekDaily, settings::WeekToday, settings::WeekMemo, settings::WeekPastDate}, 16),
        m_cells.Client()->window());
    if (form.exec() == QDialog::Accepted) DrawAnew(&Redraw::subDisplayWeek, " in PanelWeekForm, btnSave_Click"_L1);
}

void Appearance::mnuMonToSun_Click()
{
    static constexpr std::array<QStringView, Days> sections = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
    std::vector<StyleSample> samples;
    for (std::size_t day = 0; day < Days; ++day) {
        samples.push_back({u"lblSampleDay(%1)"_s.arg(day), QString(), sections[day].toString().toUpper(),
                           HeadingDefaults(sections[day]), paper::Band});
    }
    const StyleSample all = {u"lblAllDay"_s, QString(), u"MON-SUN"_s, HeadingDefaults(u"SUN"), paper::Band};
    StyleForm form(HeadingRules(all), samples, m_cells.Client()->window());
    if (form.exec() != QDialog::Accepted) return;
    for (int day = 0; day < Days; ++day)
        StyleHeading(m_cells.lblDayOfWeek(day));
}

void Appearance::mnuMonthDisplay_Click()
{
    const StyleSample month = {u"lblMonth"_s, QString(), fnMonthName(g_iMonth), settings::DisplayMonth, paper::Band};
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
