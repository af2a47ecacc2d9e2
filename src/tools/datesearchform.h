// Fast Search: picks a month and a year by their buttons.
#pragma once

#include <QDialog>

#include <cstdint>
#include <optional>

class QButtonGroup;
class QGroupBox;

class DateSearchForm : public QDialog
{
    Q_OBJECT

public:
    // Chooses the shown month and year. A year without a button is logged, and none is chosen then.
    explicit DateSearchForm(QWidget* owner = nullptr);

    std::optional<std::int16_t> Month() const; // empty while none is chosen
    std::optional<std::int16_t> Year() const;

private:
    QGroupBox* MakeMonths();
    QGroupBox* MakeYears();
    void ChooseShown();

    QButtonGroup* m_opMonth;
    QButtonGroup* m_opYear;
};
