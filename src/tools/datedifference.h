// Shows in a small label how far the day under the mouse lies from a start date. Whether it is on is the state of the
// toolbar's button, and stored nowhere.
#pragma once

#include <QDialog>

class Cells;
class MaskEdBox;
class Menus;
class QButtonGroup;
class QLabel;
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

// The start date, the unit and the colour.
class DateDiffForm : public QDialog
{
    Q_OBJECT

public:
    explicit DateDiffForm(QWidget* owner = nullptr); // shows the settings
    void accept() override;                          // writes them, unless the date is none

private:
    void btnBGColor_Click();
    QLayout* MakeStartDate();
    QWidget* MakeMethods();
    QLayout* MakeColor();
    void ShowSettings();

    MaskEdBox* m_maskStartDate = nullptr;
    QLabel* m_lblDateFormat = nullptr;
    QButtonGroup* m_opDateDiff; // by DateUnit
    QLabel* m_lblDateDiff = nullptr;
    std::uint32_t m_color = 0;
};
