// The commands that change how days, headings, titles and new notes look.
#pragma once

#include <vector>

struct BottomPanel;
class Cells;
class Redraw;
struct StyleRules;
struct StyleSample;
class Turn;

class Appearance
{
public:
    Appearance(Cells& cells, const BottomPanel& bottom, Turn& turn, Redraw& redraw)
        : m_cells(cells), m_bottom(bottom), m_turn(turn), m_redraw(redraw)
    {
    }

    void mnuNumberDlg_Click();      // PanelDayForm
    void mnuWeekAppearance_Click(); // PanelWeekForm
    void mnuMonToSun_Click();       // LabelColor
    void mnuMonthDisplay_Click();   // lblMonthForm
    void mnuInitialFont_Click();
    void lblDayOfWeek_DblClick(int Index); // this heading only, by the font dialog

private:
    bool Customize(const StyleRules& rules, const std::vector<StyleSample>& samples); // true: OK

    Cells& m_cells;
    const BottomPanel& m_bottom;
    Turn& m_turn;
    Redraw& m_redraw;
};
