// The start date, the unit and the colour of the date difference.
#pragma once

#include "settings/settings.h"
#include "tools/datecount.h"

#include <QDialog>

class MaskEdBox;
class QButtonGroup;
class QLabel;

// As the settings have it; by default the first day of the shown year. Not looked at.
QString StoredStartDate();
DateUnit StoredDateUnit(); // days for what is no unit

// Puts the colour below the label's text, and one that can be read upon it into the text.
void PaintDateDiffLabel(QLabel& label, std::uint32_t color);

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
