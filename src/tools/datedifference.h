// A small label shows the difference between a start date and the day under the mouse. The toolbar's button alone holds
// whether it is on; it is not stored.
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

    void mnuDateDiffShow_Click(); // also the toolbar's button
    void mnuDateDiffCustomize_Click();
    void subApplyDateDiff(); // as the button says
    // A memo cell leaves the label as it is. If the start date cannot be read, the label is hidden.
    void tbDay_MouseMove(int Index);
    void tbDay_GotFocus(int Index); // follows the keyboard while the mouse is over no cell
    void FollowCell();              // after a redraw: moves with its cell, or hides if that shows no day

private:
    bool IsOn() const;
    bool MouseRestsOnCell() const;
    void Show(int cell, const QString& caption);

    int m_cell = 0; // the label's cell
    Cells& m_cells;
    Toolbar& m_toolbar;
    Menus& m_menus;
    QLabel& m_lblDateDiff;
};

class DateDiffForm : public QDialog
{
    Q_OBJECT

public:
    explicit DateDiffForm(QWidget* owner = nullptr); // shows the settings
    void accept() override;                          // writes them if the date is valid

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
