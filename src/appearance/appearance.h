// The commands that change how days, headings, titles and new notes look.
#pragma once

struct BottomPanel;
class Cells;
class QMTDB;
class Redraw;

class Appearance
{
public:
    Appearance(Cells& cells, const BottomPanel& bottom, QMTDB& notes, Redraw& redraw)
        : m_cells(cells), m_bottom(bottom), m_notes(notes), m_redraw(redraw)
    {
    }

    void mnuNumberDlg_Click();      // PanelDayForm
    void mnuWeekAppearance_Click(); // PanelWeekForm
    void mnuMonToSun_Click();       // LabelColor
    void mnuMonthDisplay_Click();   // lblMonthForm
    void mnuInitialFont_Click();
    void lblDayOfWeek_DblClick(int Index); // this heading alone, by the font dialog

private:
    void DrawAnew(void (Redraw::*display)());
    void ShowHeadingStyles();

    Cells& m_cells;
    const BottomPanel& m_bottom;
    QMTDB& m_notes;
    Redraw& m_redraw;
};
