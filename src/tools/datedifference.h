// Shows in a small label how far the day under the mouse lies from a start date. Whether it is on is the state of the
// toolbar's button, and stored nowhere.
#pragma once

class Cells;
class Menus;
class QLabel;
class QString;
class Toolbar;

class DateDifference
{
public:
    DateDifference(Cells& cells, Toolbar& toolbar, Menus& menus, QLabel& label)
        : m_cells(cells), m_toolbar(toolbar), m_menus(menus), m_lblDateDiff(label)
    {
    }

    void mnuDateDiffShow_Click(); // the toolbar's button too
    void mnuDateDiffCustomize_Click();
    void subApplyDateDiff(); // as the button is
    // Over a memo cell the label stays what and where it was. With a start date that cannot be read it is hidden.
    void tbDay_MouseMove(int Index);
    void tbDay_GotFocus(int Index); // the keyboard leads the label while the mouse rests on no cell
    void FollowCell();              // after a redraw: to where its cell is now, or away if that shows no day

private:
    bool IsOn() const;
    bool MouseRestsOnCell() const;
    void Show(int cell, const QString& caption);

    int m_cell = 0; // that the label belongs to
    Cells& m_cells;
    Toolbar& m_toolbar;
    Menus& m_menus;
    QLabel& m_lblDateDiff;
};
