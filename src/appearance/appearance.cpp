#include "appearance/appearance.h"

#include "appearance/initfontform.h"
#include "appearance/styleform.h"
#include "calendar/redraw.h"
#include "hall/bars.h"
#include "hall/cells.h"
#include "hall/panelstyle.h"
#include "notes/turn.h"
#include "platform/controls/sspanel.h"
#include "platform/desktop/clock.h"
#include "platform/look/paper.h"
#include "platform/profile/profile.h"
#include "state/calendarstate.h"
#include "state/modshow.h"

namespace {
constexpr int Days = 7;
constexpr int Raised = 2, Inset = 4; // 3D effects

constexpr StyleRules DayRules = {
    .name = "PanelDayForm",
    .title = "Customize Daily Appearance"_L1,
    .frame = "Daily Appearance"_L1,
    .hint = "Click on individual cells to change the daily appearance of numbers and text"_L1,
    .click = " in PanelDayForm, lblPanel1_Click"_L1,
    .save = " in PanelDayForm, btnSave_Click"_L1,
    .font3D = settings::DailyFont3D,
    .effect = Raised,
    .strikeOut = &settings::PastDateStrikeThru,
    .strikeOutCaption = "Strikethrough"_L1,
};
constexpr StyleRules WeekRules = {
    .name = "PanelWeekForm",
    .title = "Customize Weekly Appearance"_L1,
    .frame = "Weekly Appearance"_L1,
    .hint = "Click on the panel to change the daily appearance of numbers and text"_L1,
    .click = " in PanelWeekForm, lblPanel1_Click"_L1,
    .save = " in PanelWeekForm, btnSave_Click"_L1,
    .font3D = settings::WeekDailyFont3D,
    .effect = Raised,
    .strikeOut = &settings::WeekPastDateStrikeThru,
    .strikeOutCaption = "StrikeThrough"_L1,
    .alwaysItalic = true,
};
constexpr StyleRules HeadingRules = {
    .name = "LabelColor",
    .title = "Customize Day of Week Appearance"_L1,
    .frame = "Day of Week Appearence"_L1,
    .hint = "Click on individual label to change fonts and colors"_L1,
    .click = " in LabelColor, lblSampleDay_Click"_L1,
    .save = " in LabelColor, btnSave_Click"_L1,
    .font3D = settings::DayOfWeekFont3D,
    .effect = Raised,
    .lastStandsForAll = true,
};
constexpr StyleRules MonthRules = {
    .name = "lblMonthForm",
    .title = "Customize Monthly Appearance"_L1,
    .frame = "Monthly Appearance"_L1,
    .hint = "Click on this month's display to change fonts and color"_L1,
    .click = " in lblMonthForm, lblMonth_Click"_L1,
    .save = " in lblMonthForm, btnSave_Click"_L1,
    .font3D = settings::DisplayMonthFont3D,
    .effect = Inset,
};

// Of the month's or the week's cells: daily, today, memo, past. The dialog has defaults of its own.
std::vector<StyleSample> CellSamples(const std::array<StyleDefaults, 4>& styles, int size, int memoAlignment)
{
    const QString today = QString::number(desktopclock::Now().date().day());
    const auto own = [size](const StyleDefaults& drawn) { return StyleDefaults{drawn.section, -1, size, 0, u""}; };
    const auto& [daily, now, memo, past] = styles;
    return {{u"panelDay(0)"_s, u"Daily"_s, u"18"_s, own(daily), daily, paper::Paper, SSPanel::LeftTop},
            {u"panelDay(1)"_s, u"Today"_s, today, own(now), now, paper::Today, SSPanel::LeftTop, paper::TodayFrame},
            {u"panelDay(2)"_s, u"Memo"_s, u"Memo1"_s, own(memo), memo, paper::MemoPaper, memoAlignment},
            {u"panelDay(3)"_s, u"Past Dates"_s, u"5"_s, own(past), past, paper::Paper, SSPanel::LeftTop}};
}

// Of a heading or the title, where dialog and drawing have the same defaults.
StyleSample BandSample(const QString& name, const QString& caption, const StyleDefaults& defaults)
{
    return {name, QString(), caption, defaults, defaults, paper::Band, SSPanel::CenterMiddle};
}
} // namespace

bool Appearance::Customize(const StyleRules& rules, const std::vector<StyleSample>& samples)
{
    return StyleForm(rules, samples, m_cells.Client()->window()).exec() == QDialog::Accepted;
}

void Appearance::mnuNumberDlg_Click()
{
    using namespace settings;
    if (Customize(DayRules, CellSamples({DailyPanel, TodayPanel, MemoPanel, PastDatePanel}, 12, SSPanel::CenterTop)))
        m_turn(DayRules.save, [this] { m_redraw.subDisplayMonth(); });
}

void Appearance::mnuWeekAppearance_Click()
{
    using namespace settings;
    if (Customize(WeekRules, CellSamples({WeekDaily, WeekToday, WeekMemo, WeekPastDate}, 16, SSPanel::LeftTop)))
        m_turn(WeekRules.save, [this] { m_redraw.subDisplayWeek(); });
}

void Appearance::mnuMonToSun_Click()
{
    static constexpr std::array<QStringView, Days> sections = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
    std::vector<StyleSample> samples;
    for (std::size_t day = 0; day < Days; ++day) {
        samples.push_back(BandSample(u"lblSampleDay(%1)"_s.arg(day), sections[day].toString().toUpper(),
                                     HeadingDefaults(sections[day])));
    }
    samples.push_back(BandSample(u"lblAllDay"_s, u"MON-SUN"_s, HeadingDefaults(u"SUN")));
    if (!Customize(HeadingRules, samples)) return;
    for (int day = 0; day < Days; ++day)
        StyleHeading(m_cells.lblDayOfWeek(day));
}

void Appearance::mnuMonthDisplay_Click()
{
    if (Customize(MonthRules, {BandSample(u"lblMonth"_s, fnMonthName(g_iMonth), settings::DisplayMonth)}))
        StyleTitle(*m_bottom.panelBottom);
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
